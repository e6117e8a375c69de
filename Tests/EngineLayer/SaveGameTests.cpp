#include "LayerFixture.h"

#include "Kismet/GameplayStatics.h"
#include "SaveGameSystem.h"

#include <cmath>
#include <limits>
#include <map>

namespace
{

/** In-memory slots; a failing one writes nothing. */
class FMemorySlots final : public ISaveGameSystem
{
public:
	using FSlot = std::pair<std::u16string, int32>;

	FMemorySlots() { Install(this); }
	~FMemorySlots() override { Install(nullptr); }

	bool DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex) override
	{
		return Slots.contains({Name, UserIndex});
	}
	bool SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data) override
	{
		if (!bFailing)
		{
			Slots[{Name, UserIndex}] = Data;
		}
		return !bFailing;
	}
	bool LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data) override
	{
		const auto Found = Slots.find({Name, UserIndex});
		Data = Found != Slots.end() ? Found->second : TArray<uint8>();
		return Found != Slots.end();
	}

	std::map<FSlot, TArray<uint8>> Slots;
	bool bFailing = false;
};

class FSaveGames : public FLayerFixture
{
protected:
	/** No library registers the test's class: it becomes known when first asked for. */
	FSaveGames() { UTestSave::StaticClass(); }

	static UTestSave* Make()
	{
		return Cast<UTestSave>(UGameplayStatics::CreateSaveGameObject(UTestSave::StaticClass()));
	}
	static std::string Write(USaveGame* Save)
	{
		TArray<uint8> Data;
		EXPECT_TRUE(UGameplayStatics::SaveGameToMemory(Save, Data));
		return std::string(Data.begin(), Data.end());
	}
	static USaveGame* Read(std::string_view Text)
	{
		TArray<uint8> Data;
		for (const char Each : Text)
		{
			Data.Add(static_cast<uint8>(Each));
		}
		return UGameplayStatics::LoadGameFromMemory(Data);
	}
};

TEST_F(FSaveGames, AreReadableByEye)
{
	UTestSave* Save = Make();
	Save->Count = -5;
	Save->Ticks = MAX_int64;
	Save->Scale = 0.1f;
	Save->Exact = 0.1;
	Save->bOpen = true;
	Save->Title = u"\u5F39\u5E55 \"x\"\n";
	EXPECT_EQ(Write(Save), "[UTestSave]\nCount=-5\nTicks=9223372036854775807\nScale=0.1\nExact=0.1\nbOpen=true\n"
						   "Title=\"弹幕 \\u0022x\\u0022\\u000A\"\n[End]\n");
}

TEST_F(FSaveGames, KeepEveryBitOfANumber)
{
	constexpr float Infinity = std::numeric_limits<float>::infinity();
	for (const float Scale : {0.f, -0.f, 1.f, 2.5f, 1e-45f, 3.4028235e38f, 16777217.f, 1.f / 3.f, Infinity, -Infinity,
							  std::numeric_limits<float>::quiet_NaN()})
	{
		UTestSave* Save = Make();
		Save->Scale = Scale;
		Save->Exact = static_cast<double>(Scale) / 3.0;
		Save->Count = MIN_int32;
		const UTestSave* Loaded = Cast<UTestSave>(Read(Write(Save)));
		ASSERT_NE(Loaded, nullptr) << Write(Save);
		EXPECT_EQ(std::isnan(Loaded->Scale), std::isnan(Scale));
		EXPECT_TRUE(std::isnan(Scale) || (Loaded->Scale == Scale && Loaded->Exact == Save->Exact)) << Scale;
		EXPECT_EQ(std::signbit(Loaded->Scale), std::signbit(Scale));
		EXPECT_EQ(Loaded->Count, MIN_int32);
	}
}

TEST_F(FSaveGames, KeepEveryUnitOfAString)
{
	const std::u16string Titles[] = {
		u"",	   u"plain = [End]", u"line\r\nfeed\t", u"\\u0041 \"",	 std::u16string(2, u'\0'),
		u"\xD83D", u"\xDE00\xD83D",	 u"\U0001F600",		u"\xFEFF\xFFFE", u"\x85\x2028"};
	for (const std::u16string& Title : Titles)
	{
		UTestSave* Save = Make();
		Save->Title = FString(Title);
		const UTestSave* Loaded = Cast<UTestSave>(Read(Write(Save)));
		ASSERT_NE(Loaded, nullptr) << Write(Save);
		EXPECT_EQ(Loaded->Title.GetStd(), Title) << Write(Save);
	}
}

TEST_F(FSaveGames, CutShortAnywhereAreUnreadable)
{
	UTestSave* Save = Make();
	Save->Title = TEXT("[End]\n[End]");
	const std::string Whole = Write(Save);
	// A record is complete even without its last line feed.
	for (std::size_t Length = 0; Length + 1 < Whole.size(); ++Length)
	{
		EXPECT_EQ(Read(Whole.substr(0, Length)), nullptr) << Whole.substr(0, Length);
	}
	EXPECT_NE(Read(Whole.substr(0, Whole.size() - 1)), nullptr);
}

TEST_F(FSaveGames, ThatAreNoRecordsAreUnreadable)
{
	const char* const Texts[] = {
		"",
		"\n",
		"[]\n[End]\n",
		"[UNobody]\n[End]\n",
		"[UTestListener]\n[End]\n",
		"[USaveGame]\n[End]\n",
		"[UTestSave]\nCount=1.5\n[End]\n",
		"[UTestSave]\nCount=2147483648\n[End]\n",
		"[UTestSave]\nCount=\n[End]\n",
		"[UTestSave]\nCount= 1\n[End]\n",
		"[UTestSave]\nScale=fast\n[End]\n",
		"[UTestSave]\nScale=1e999\n[End]\n",
		"[UTestSave]\nbOpen=1\n[End]\n",
		"[UTestSave]\nTitle=x\n[End]\n",
		"[UTestSave]\nTitle=\"\n[End]\n",
		"[UTestSave]\nTitle=\"\"\"\n[End]\n",
		"[UTestSave]\nTitle=\"\\u00\"\n[End]\n",
		"[UTestSave]\nTitle=\"\\u00+1\"\n[End]\n",
		"[UTestSave]\nCount=1\nCount=1\n[End]\n",
		"[UTestSave]\nCount\n[End]\n",
		"[UTestSave]\n[End]\nCount=1\n",
		"[UTestSave\n[End]\n",
		"\xFF\xFE[UTestSave]\n[End]\n",
	};
	for (const char* Text : Texts)
	{
		EXPECT_EQ(Read(Text), nullptr) << Text;
	}
	EXPECT_EQ(Read(std::string_view("\0\0\0", 3)), nullptr);
}

TEST_F(FSaveGames, OfAnotherVersionKeepWhatBothKnow)
{
	const UTestSave* Loaded = Cast<UTestSave>(Read("[UTestSave]\r\nLater=\"?\r\nCount=3\r\n[End]\r\n"));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_EQ(Loaded->Count, 3);
	EXPECT_EQ(Loaded->Scale, 0.f);
}

TEST_F(FSaveGames, GoToTheSlotsOfTheInstalledSystem)
{
	UTestSave* Save = Make();
	EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(Save, TEXT("S"), 0)) << "no system";
	EXPECT_EQ(UGameplayStatics::LoadGameFromSlot(TEXT("S"), 0), nullptr);
	FMemorySlots Slots;
	EXPECT_EQ(UGameplayStatics::LoadGameFromSlot(TEXT("S"), 0), nullptr);
	EXPECT_FALSE(UGameplayStatics::DoesSaveGameExist(TEXT("S"), 0));
	Save->Count = 4;
	EXPECT_TRUE(UGameplayStatics::SaveGameToSlot(Save, TEXT("S"), 0));
	EXPECT_TRUE(UGameplayStatics::DoesSaveGameExist(TEXT("S"), 0));
	EXPECT_EQ(UGameplayStatics::LoadGameFromSlot(TEXT("S"), 1), nullptr) << "another user";
	Slots.bFailing = true;
	Save->Count = 5;
	EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(Save, TEXT("S"), 0));
	const USaveGame* Loaded = UGameplayStatics::LoadGameFromSlot(TEXT("S"), 0);
	ASSERT_TRUE(Loaded != nullptr && Loaded->GetClass() == UTestSave::StaticClass());
	EXPECT_EQ(Cast<UTestSave>(Loaded)->Count, 4);
}

TEST_F(FSaveGames, AreNotWrittenWithoutPartOfThem)
{
	FMemorySlots Slots;
	USaveGame* Unkept = UGameplayStatics::CreateSaveGameObject(UTestUnkeptSave::StaticClass());
	EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(Unkept, TEXT("S"), 0));
	EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(nullptr, TEXT("S"), 0));
	EXPECT_TRUE(Slots.Slots.empty());
	EXPECT_EQ(UGameplayStatics::CreateSaveGameObject(USaveGame::StaticClass()), nullptr) << "abstract";
	EXPECT_EQ(UGameplayStatics::CreateSaveGameObject(UTestListener::StaticClass()), nullptr) << "no save game";
}

} // namespace
