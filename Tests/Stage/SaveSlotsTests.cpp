#include "Stage/SaveSlots.h"

#include "DanmakuSave.h"
#include "Stage/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <map>
#include <unistd.h>

namespace Flitmark
{

namespace
{

namespace fs = std::filesystem;

/** The system's calls, of which one fails, or stops the whole world at it, or writes in small pieces. */
class FFaultyCalls final : public FFileCalls
{
public:
	enum class EFault
	{
		None,
		/** The call alone fails. */
		Once,
		/** It and all that follow, as after a crash. */
		ForGood,
	};

	int Open(const char* Path, int Flags, unsigned int Mode) override
	{
		return Fails() ? -1 : FFileCalls::Open(Path, Flags, Mode);
	}
	ssize_t Write(int File, const void* Bytes, std::size_t Size) override
	{
		if (bInterrupts && !std::exchange(bInterrupted, !bInterrupted))
		{
			errno = EINTR;
			return -1;
		}
		// A disk that becomes full takes the first part yet.
		const bool bFails = Fails();
		const ssize_t Written = FFileCalls::Write(File, Bytes, std::min<std::size_t>(Size, 7));
		return bFails ? Refuse() : Written;
	}
	int Flush(int File) override { return Fails() ? -1 : FFileCalls::Flush(File); }
	int Close(int File) override
	{
		// A file is closed whatever its closing tells.
		const int Result = FFileCalls::Close(File);
		return Fails() ? -1 : Result;
	}
	int Rename(const char* From, const char* To) override { return Fails() ? -1 : FFileCalls::Rename(From, To); }
	int Remove(const char* Path) override { return Fails() ? -1 : FFileCalls::Remove(Path); }

	void Reset(int32 InFaulty, EFault InFault)
	{
		NumCalls = 0;
		Faulty = InFaulty;
		Fault = InFault;
	}

	int32 NumCalls = 0;
	bool bInterrupts = false;

private:
	static int Refuse()
	{
		errno = ENOSPC;
		return -1;
	}
	bool Fails()
	{
		const int32 Call = NumCalls++;
		const bool bFails = (Fault == EFault::Once && Call == Faulty) || (Fault == EFault::ForGood && Call >= Faulty);
		return bFails && Refuse() != 0;
	}

	int32 Faulty = 0;
	EFault Fault = EFault::None;
	bool bInterrupted = false;
};

class FSaveSlotFiles : public testing::Test
{
protected:
	using EFault = FFaultyCalls::EFault;

	FSaveSlotFiles()
	{
		std::string Name = (fs::temp_directory_path() / "flitmark-slots-XXXXXX").string();
		Folder = fs::path(mkdtemp(Name.data()));
		File = Folder / "Danmaku_SGSLOT.0.sav";
		ISaveGameSystem::Install(&Slots());
	}
	~FSaveSlotFiles() override
	{
		ISaveGameSystem::Install(nullptr);
		fs::remove_all(Folder);
	}
	FSaveSlotFiles(const FSaveSlotFiles&) = delete;
	FSaveSlotFiles& operator=(const FSaveSlotFiles&) = delete;

	FSaveSlots& Slots()
	{
		if (Made == nullptr)
		{
			Made = std::make_unique<FSaveSlots>(Folder, &Calls);
		}
		return *Made;
	}
	static std::string Record(int32 FontSize)
	{
		return "[UDanmakuSave]\nFontSize=" + std::to_string(FontSize) + "\nSpeedScale=1\nbIsOpened=true\n[End]\n";
	}
	bool Save(const std::string& Text)
	{
		TArray<uint8> Data;
		for (const char Each : Text)
		{
			Data.Add(static_cast<uint8>(Each));
		}
		return Slots().SaveGame(TEXT("Danmaku_SGSLOT"), 0, Data);
	}
	static std::string Read(const fs::path& Path)
	{
		std::string Error;
		return LoadBytes(Path, Error).value_or("(missing)");
	}
	void Write(const fs::path& Path, const std::string& Text) { std::ofstream(Path, std::ios::binary) << Text; }
	std::map<std::string, std::string> ReadFolder() const
	{
		std::map<std::string, std::string> Files;
		for (const fs::directory_entry& Entry : fs::directory_iterator(Folder))
		{
			Files[Entry.path().filename().string()] = Read(Entry.path());
		}
		return Files;
	}

	fs::path Folder;
	fs::path File;
	FFaultyCalls Calls;

private:
	std::unique_ptr<FSaveSlots> Made;
};

TEST_F(FSaveSlotFiles, AreOneReadableFileASlotAndUser)
{
	UDanmakuSave::SaveFontSize(30);
	EXPECT_EQ(ReadFolder(), (std::map<std::string, std::string>{{"Danmaku_SGSLOT.0.sav", Record(30)}}));
	EXPECT_TRUE(Slots().DoesSaveGameExist(TEXT("Danmaku_SGSLOT"), 0));
	EXPECT_FALSE(Slots().DoesSaveGameExist(TEXT("Danmaku_SGSLOT"), 1));
	TArray<uint8> Data;
	EXPECT_FALSE(Slots().LoadGame(TEXT("Danmaku_SGSLOT"), 1, Data));
	EXPECT_TRUE(Slots().SaveGame(TEXT("../a b/\u5F39"), 1, Data));
	EXPECT_TRUE(ReadFolder().contains("___a_b____.1.sav")) << "no name leads out of the folder";
}

TEST_F(FSaveSlotFiles, HoldTheOldRecordOrTheNewWhateverFails)
{
	Calls.Reset(0, EFault::None);
	ASSERT_TRUE(Save(Record(1)));
	Calls.Reset(0, EFault::None);
	ASSERT_TRUE(Save(Record(1)));
	const int32 NumCalls = Calls.NumCalls;
	ASSERT_GT(NumCalls, 8) << "written in pieces";
	for (const EFault Fault : {EFault::Once, EFault::ForGood})
	{
		for (int32 Faulty = 0; Faulty < NumCalls; ++Faulty)
		{
			SCOPED_TRACE(Faulty);
			Calls.Reset(0, EFault::None);
			ASSERT_TRUE(Save(Record(1)));
			ASSERT_TRUE(Slots().GetLastError().empty());
			Calls.Reset(Faulty, Fault);
			EXPECT_FALSE(Save(Record(2)));
			EXPECT_NE(Slots().GetLastError().find(Folder.string()), std::string::npos) << "says where";
			const std::string Now = Read(File);
			EXPECT_TRUE(Now == Record(1) || Now == Record(2)) << Now;
			Calls.Reset(0, EFault::None);
			ASSERT_TRUE(Save(Record(3))) << "and goes on when the disk does";
			EXPECT_EQ(Read(File), Record(3));
			EXPECT_EQ(ReadFolder().size(), 1u) << "nothing is left lying about";
		}
	}
}

TEST_F(FSaveSlotFiles, StartWithNothingOrTheWholeRecord)
{
	Calls.Reset(0, EFault::None);
	ASSERT_TRUE(Save(Record(1)));
	const int32 NumCalls = Calls.NumCalls;
	for (int32 Faulty = 0; Faulty < NumCalls; ++Faulty)
	{
		fs::remove_all(Folder);
		Calls.Reset(Faulty, EFault::ForGood);
		EXPECT_FALSE(Save(Record(1)));
		const std::string Now = Read(File);
		EXPECT_TRUE(Now == "(missing)" || Now == Record(1)) << Now;
	}
}

TEST_F(FSaveSlotFiles, AreWrittenThroughInterruptions)
{
	Calls.bInterrupts = true;
	EXPECT_TRUE(Save(Record(5)));
	EXPECT_EQ(Read(File), Record(5));
}

TEST_F(FSaveSlotFiles, AreKeptAsideWhereTheyAreNoRecord)
{
	const std::string Contents[] = {"[UDanmakuSave]\nFontSize=30\n", "not a record\n", "", std::string(3, '\0')};
	std::map<std::string, std::string> Expected;
	for (const std::string& Content : Contents)
	{
		Write(File, Content);
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
	Write(File, Foreign);
	Calls.Reset(0, EFault::None);
	ASSERT_TRUE(Save(Record(1)));
	const int32 NumCalls = Calls.NumCalls;
	for (int32 Faulty = 0; Faulty < NumCalls; ++Faulty)
	{
		fs::remove_all(Folder);
		fs::create_directories(Folder);
		Write(File, Foreign);
		Calls.Reset(Faulty, EFault::ForGood);
		EXPECT_FALSE(Save(Record(1)));
		const std::map<std::string, std::string> Files = ReadFolder();
		EXPECT_TRUE(std::ranges::any_of(Files, [&](const auto& Each) { return Each.second == Foreign; })) << Faulty;
	}
}

TEST_F(FSaveSlotFiles, StandAsideWithoutAFolder)
{
	fs::remove_all(Folder);
	Write(Folder, "a file where the folder should be");
	EXPECT_FALSE(Save(Record(1)));
	EXPECT_NE(Slots().GetLastError().find("cannot be made"), std::string::npos);
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
