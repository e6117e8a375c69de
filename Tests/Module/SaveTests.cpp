#include "DanmakuSave.h"
#include "Kismet/GameplayStatics.h"
#include "SaveGameSystem.h"
#include "UObject/GeneratedCppIncludes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

/** Another game's record. */
class UOtherSave final : public USaveGame
{
	DECLARE_LAYER_CLASS(UOtherSave, USaveGame)

public:
	explicit UOtherSave(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}
};

IMPLEMENT_LAYER_CLASS(UOtherSave, "OtherSave")

namespace Flitmark
{

namespace
{

/** In-memory slots that count reads and may refuse to write. */
class FMemorySlots final : public ISaveGameSystem
{
public:
	FMemorySlots() { Install(this); }
	~FMemorySlots() override { Install(nullptr); }

	bool DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex) override
	{
		return Slots.contains({Name, UserIndex});
	}
	bool SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data) override
	{
		++NumWrites;
		if (!bFull)
		{
			Slots[{Name, UserIndex}] = std::string(Data.begin(), Data.end());
		}
		return !bFull;
	}
	bool LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data) override
	{
		++NumReads;
		const auto Found = Slots.find({Name, UserIndex});
		if (Found == Slots.end())
		{
			return false;
		}
		Data.SetNum(static_cast<int32>(Found->second.size()));
		std::copy(Found->second.begin(), Found->second.end(), Data.begin());
		return true;
	}

	std::map<std::pair<std::u16string, int32>, std::string> Slots;
	bool bFull = false;
	int32 NumReads = 0;
	int32 NumWrites = 0;
};

class FSave : public testing::Test
{
protected:
	~FSave() override { CollectGarbage(); }

	std::string& GetSlot() { return Slots.Slots[{u"Danmaku_SGSLOT", 0}]; }
	static std::string Write(int32 FontSize, const char* SpeedScale, bool bIsOpened)
	{
		return "[UDanmakuSave]\nFontSize=" + std::to_string(FontSize) + "\nSpeedScale=" + SpeedScale +
			   "\nbIsOpened=" + (bIsOpened ? "true" : "false") + "\n[End]\n";
	}

	FMemorySlots Slots;
};

TEST_F(FSave, MakesItsSlotAtTheFirstCallWhicheverItIs)
{
	const struct
	{
		void (*Call)();
		int32 NumWrites;
		std::string Slot;
	} Cases[] = {
		{[] { EXPECT_EQ(UDanmakuSave::LoadFontSize(), 24); }, 1, Write(24, "1", true)},
		{[] { EXPECT_EQ(UDanmakuSave::LoadSpeedScale(), 1.f); }, 1, Write(24, "1", true)},
		{[] { EXPECT_TRUE(UDanmakuSave::LoadIsOpend()); }, 1, Write(24, "1", true)},
		{[] { UDanmakuSave::SaveFontSize(30); }, 2, Write(30, "1", true)},
		{[] { UDanmakuSave::SaveSpeedScale(2.5f); }, 2, Write(24, "2.5", true)},
		{[] { UDanmakuSave::SaveIsOpend(false); }, 2, Write(24, "1", false)},
	};
	for (const auto& Case : Cases)
	{
		Slots.Slots.clear();
		Slots.NumWrites = 0;
		Case.Call();
		EXPECT_EQ(Slots.NumWrites, Case.NumWrites);
		EXPECT_EQ(GetSlot(), Case.Slot);
		EXPECT_EQ(Slots.Slots.size(), 1u);
	}
}

TEST_F(FSave, KeepsWhatItIsGiven)
{
	UDanmakuSave::SaveSpeedScale(2.5f);
	UDanmakuSave::SaveFontSize(-5);
	UDanmakuSave::SaveIsOpend(false);
	EXPECT_EQ(GetSlot(), Write(-5, "2.5", false));
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), -5);
	EXPECT_EQ(UDanmakuSave::LoadSpeedScale(), 2.5f);
	EXPECT_FALSE(UDanmakuSave::LoadIsOpend());
	for (const float Scale : {0.f, -1.5f, 0.1f, 1e-45f, INFINITY})
	{
		UDanmakuSave::SaveSpeedScale(Scale);
		EXPECT_EQ(UDanmakuSave::LoadSpeedScale(), Scale);
	}
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), -5);
}

TEST_F(FSave, AsksStorageAtEveryCall)
{
	UDanmakuSave::LoadFontSize();
	Slots.NumReads = 0;
	Slots.NumWrites = 0;
	UDanmakuSave::LoadFontSize();
	EXPECT_EQ(Slots.NumReads, 2);
	EXPECT_EQ(Slots.NumWrites, 0);
	UDanmakuSave::SaveFontSize(1);
	EXPECT_EQ(Slots.NumReads, 4);
	EXPECT_EQ(Slots.NumWrites, 1);
	GetSlot() = Write(99, "1", true);
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), 99);
}

TEST_F(FSave, TakesThePlaceOfWhatIsNoRecordOfItsOwn)
{
	ASSERT_NE(UOtherSave::StaticClass(), nullptr);
	for (const char* Content : {"", "garbage", "[UDanmakuSave]\nFontSize=30\n", "[UOtherSave]\n[End]\n",
								"[UNobody]\n[End]\n", "[UDanmakuSave]\nFontSize=many\n[End]\n"})
	{
		GetSlot() = Content;
		EXPECT_EQ(UDanmakuSave::LoadFontSize(), 24) << Content;
		EXPECT_EQ(GetSlot(), Write(24, "1", true));
		GetSlot() = Content;
		UDanmakuSave::SaveIsOpend(false);
		EXPECT_EQ(GetSlot(), Write(24, "1", false));
	}
}

TEST_F(FSave, WorksWithoutStorage)
{
	Slots.bFull = true;
	for (int32 Round = 0; Round < 2; ++Round)
	{
		UDanmakuSave::SaveFontSize(30);
		EXPECT_EQ(UDanmakuSave::LoadFontSize(), 24) << "nothing was kept";
		EXPECT_EQ(UDanmakuSave::LoadSpeedScale(), 1.f);
		EXPECT_TRUE(UDanmakuSave::LoadIsOpend());
		ISaveGameSystem::Install(nullptr);
	}
}

TEST_F(FSave, LeavesItsRecordsToTheCollector)
{
	UDanmakuSave::SaveFontSize(30);
	EXPECT_GT(CountObjects(UDanmakuSave::StaticClass()), 0);
	CollectGarbage();
	EXPECT_EQ(CountObjects(UDanmakuSave::StaticClass()), 0);
}

} // namespace

} // namespace Flitmark
