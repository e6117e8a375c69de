#include "DanmakuSave.h"
#include "Misc/AutomationTest.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

/** Restores what the slot held. A slot that was missing now holds what loading any value would have put there. */
class FKeptPreferences
{
public:
	FKeptPreferences()
		: FontSize(UDanmakuSave::LoadFontSize())
		, SpeedScale(UDanmakuSave::LoadSpeedScale())
		, bIsOpened(UDanmakuSave::LoadIsOpend())
	{
	}
	~FKeptPreferences()
	{
		UDanmakuSave::SaveFontSize(FontSize);
		UDanmakuSave::SaveSpeedScale(SpeedScale);
		UDanmakuSave::SaveIsOpend(bIsOpened);
	}
	FKeptPreferences(const FKeptPreferences&) = delete;
	FKeptPreferences& operator=(const FKeptPreferences&) = delete;

private:
	int32 FontSize;
	float SpeedScale;
	bool bIsOpened;
};

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkPreferencesTest, "Flitmark.Preferences.KeepsWhatItIsGiven",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkPreferencesTest::RunTest(const FString&)
{
	const FlitmarkTests::FKeptPreferences Kept;
	for (const int32 Size : {30, -5, 0})
	{
		for (const float Scale : {2.5f, 0.1f, -1.5f})
		{
			for (const bool bOpened : {false, true})
			{
				UDanmakuSave::SaveFontSize(Size);
				UDanmakuSave::SaveSpeedScale(Scale);
				UDanmakuSave::SaveIsOpend(bOpened);
				TestEqual(TEXT("font size"), UDanmakuSave::LoadFontSize(), Size);
				TestTrue(TEXT("speed"), UDanmakuSave::LoadSpeedScale() == Scale);
				TestTrue(TEXT("switched on"), UDanmakuSave::LoadIsOpend() == bOpened);
			}
		}
	}
	return true;
}

#endif
