#include "Files/SaveSlots.h"

#include "DanmakuSave.h"
#include "FaultyCalls.h"
#include "FolderFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <sys/stat.h>

namespace Flitmark
{

namespace
{

class FSaveSlotFiles : public FFolderFixture
{
protected:
	using EFault = FFaultyCalls::EFault;

	FSaveSlotFiles() { ISaveGameSystem::Install(&Slots); }
	~FSaveSlotFiles() override { ISaveGameSystem::Install(nullptr); }
	FSaveSlotFiles(const FSaveSlotFiles&) = delete;
	FSaveSlotFiles& operator=(const FSaveSlotFiles&) = delete;

	static std::string Record(int32 InFontSize)
	{
		return "[UDanmakuSave]\nFontSize=" + std::to_string(InFontSize) + "\nSpeedScale=1\nbIsOpened=true\n[End]\n";
	}
	bool Save(const std::string& InText)
	{
		TArray<uint8> Data;
		for (const char Each : InText)
		{
			Data.Add(static_cast<uint8>(Each));
		}
		return Slots.SaveGame(TEXT("Danmaku_SGSLOT"), 0, Data);
	}

	const fs::path File = Folder / "Danmaku_SGSLOT.0.sav";
	FFaultyCalls Calls;
	FSaveSlots Slots{Folder, Calls};
};

TEST_F(FSaveSlotFiles, AreOneReadableFilePerSlotAndUser)
{
	UDanmakuSave::SaveFontSize(30);
	EXPECT_EQ(ReadFolder(), (std::map<std::string, std::string>{{"Danmaku_SGSLOT.0.sav", Record(30)}}));
	EXPECT_TRUE(Slots.DoesSaveGameExist(TEXT("Danmaku_SGSLOT"), 0));
	EXPECT_FALSE(Slots.DoesSaveGameExist(TEXT("Danmaku_SGSLOT"), 1));
	TArray<uint8> Data;
	EXPECT_FALSE(Slots.LoadGame(TEXT("Danmaku_SGSLOT"), 1, Data));
	EXPECT_TRUE(Slots.SaveGame(TEXT("../a b/\u5F39"), 1, Data));
	EXPECT_TRUE(ReadFolder().contains("___a_b____.1.sav")) << "no name leads out of the folder";
}

TEST_F(FSaveSlotFiles, AreMovedAsideUnlessTheyAreARecord)
{
	const std::string Contents[] = {"[UDanmakuSave]\nFontSize=30\n", "not a record\n", "", std::string(3, '\0')};
	std::map<std::string, std::string> Expected;
	for (const std::string& Content : Contents)
	{
		WriteText(File, Content);
		EXPECT_EQ(UDanmakuSave::LoadFontSize(), 24);
		Expected["Danmaku_SGSLOT.0.sav"] = Record(24);
		Expected["Danmaku_SGSLOT.0.sav.kept-" + std::to_string(Expected.size())] = Content;
		EXPECT_EQ(ReadFolder(), Expected);
	}
	UDanmakuSave::SaveFontSize(25);
	EXPECT_EQ(ReadFolder().size(), Expected.size()) << "a record of its own is replaced";
}

TEST_F(FSaveSlotFiles, LoseNoForeignFileWhateverFails)
{
	const std::string Foreign = "somebody's own\n";
	WriteText(File, Foreign);
	Calls.Reset();
	ASSERT_TRUE(Save(Record(1)));
	const int32 NumCalls = Calls.NumCalls;
	for (int32 Faulty = 0; Faulty < NumCalls; ++Faulty)
	{
		fs::remove_all(Folder);
		fs::create_directories(Folder);
		WriteText(File, Foreign);
		Calls.Reset(Faulty, EFault::ForGood);
		EXPECT_FALSE(Save(Record(1)));
		EXPECT_NE(Slots.GetLastError().find(File.string()), std::string::npos) << "says where";
		const std::map<std::string, std::string> Files = ReadFolder();
		EXPECT_TRUE(std::ranges::any_of(Files, [&](const auto& Each) { return Each.second == Foreign; })) << Faulty;
	}
}

/**
 * Something that was never saved there is neither read in full nor waited for. It is moved aside like any file that is
 * not a record.
 */
TEST_F(FSaveSlotFiles, AreNoLargeFilesAndNoPipes)
{
	const auto MakeLarge = [](const fs::path& InPath)
	{
		WriteText(InPath, Record(30));
		fs::resize_file(InPath, std::uintmax_t{1} << 40);
	};
	const auto MakePipe = [](const fs::path& InPath)
	{
		ASSERT_EQ(::mkfifo(InPath.c_str(), 0600), 0);
	};
	for (const auto& Make :
		 {std::function<void(const fs::path&)>(MakeLarge), std::function<void(const fs::path&)>(MakePipe)})
	{
		Make(File);
		TArray<uint8> Data;
		EXPECT_FALSE(Slots.LoadGame(TEXT("Danmaku_SGSLOT"), 0, Data));
		EXPECT_TRUE(Save(Record(25)));
		EXPECT_EQ(Read(File), Record(25));
		fs::remove(File);
	}
	EXPECT_EQ(std::distance(fs::directory_iterator(Folder), {}), 2) << "both are kept aside";
}

TEST_F(FSaveSlotFiles, StandAsideWithoutAFolder)
{
	fs::remove_all(Folder);
	WriteText(Folder, "a file where the folder should be");
	EXPECT_FALSE(Save(Record(1)));
	EXPECT_NE(Slots.GetLastError().find("cannot be created"), std::string::npos);
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), 24);
}

TEST(FSaveSlotFolder, FollowsTheDesktopsRules)
{
	const auto Get = [](const char* Data, const char* Home)
	{
		Data != nullptr ? setenv("XDG_DATA_HOME", Data, 1) : unsetenv("XDG_DATA_HOME");
		setenv("HOME", Home, 1);
		return FSaveSlots::GetUserFolder().string();
	};
	EXPECT_EQ(Get("/data", "/home/ann"), "/data/flitmark");
	EXPECT_EQ(Get("relative", "/home/ann"), "/home/ann/.local/share/flitmark");
	EXPECT_EQ(Get("", "/home/ann"), "/home/ann/.local/share/flitmark");
	EXPECT_EQ(Get(nullptr, "/home/ann"), "/home/ann/.local/share/flitmark");
}

} // namespace

} // namespace Flitmark
