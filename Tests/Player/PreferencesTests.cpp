#include "DanmakuSave.h"
#include "Files/FileCalls.h"
#include "Viewer/Preferences.h"
#include "UI_DanmakuNodeSetting.h"
#include "ViewerTestKit.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>

#include <cerrno>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace Flitmark
{

namespace
{

/** A disk that can be filled up. */
class FFullDisk final : public FFileCalls
{
public:
	ssize_t Write(int File, const void* Bytes, std::size_t Size) override
	{
		if (!bFull)
		{
			return FFileCalls::Write(File, Bytes, Size);
		}
		errno = ENOSPC;
		return -1;
	}

	bool bFull = false;
};

class PreferencesTest : public testing::Test
{
protected:
	std::unique_ptr<FPreferences> Make()
	{
		auto Made = std::make_unique<FPreferences>(*Stage.Overlay, *Stage.Bridge, Folder.path().toStdString(), Disk);
		QObject::connect(Made.get(), &FPreferences::Failed, [this](const QString& Text) { Failures.append(Text); });
		return Made;
	}

	/** In another process's store, so to speak. */
	void Store(int FontSize, float SpeedScale, bool bOpened)
	{
		FSaveSlots Slots(Folder.path().toStdString());
		ISaveGameSystem::Install(&Slots);
		UDanmakuSave::SaveFontSize(FontSize);
		UDanmakuSave::SaveSpeedScale(SpeedScale);
		UDanmakuSave::SaveIsOpend(bOpened);
		ISaveGameSystem::Install(nullptr);
	}

	int GetSentSize() { return Stage.Overlay->GetStage().GetPanel().GetFontSize(); }

	int ArgumentCount = 1;
	char Name[5] = "test";
	char* Arguments[2] = {Name, nullptr};
	QCoreApplication Application{ArgumentCount, Arguments};
	QTemporaryDir Folder;
	FFullDisk Disk;
	QStringList Failures;
	FViewerStage Stage;
};

TEST_F(PreferencesTest, AreReadAndApplied)
{
	Store(30, 1.5f, false);
	const auto Preferences = Make();
	Preferences->Load();
	EXPECT_EQ(Preferences->GetFontSize(), 30);
	EXPECT_EQ(GetSentSize(), 30);
	EXPECT_EQ(Preferences->GetSpeedScale(), 1.5);
	EXPECT_FALSE(Stage.Bar().GetOpen()->IsChecked());
	EXPECT_FALSE(Stage.Bar().GetField()->IsUsable());
	EXPECT_EQ(Failures, QStringList());
}

TEST_F(PreferencesTest, AreStoredWhenTheViewerChangesThem)
{
	{
		const auto Preferences = Make();
		Preferences->Load();
		Preferences->SetFontSize(36);
		Preferences->SetFontSize(37);
		Preferences->SetSpeedScale(0.75);
		EXPECT_EQ(GetSentSize(), 37);
		// At once; the others when the viewer pauses, or at the end.
		Stage.Bar().GetOpen()->Toggle(false);
		EXPECT_FALSE(UDanmakuSave::LoadIsOpend());
	}
	const auto Again = Make();
	Again->Load();
	EXPECT_EQ(Again->GetFontSize(), 37);
	EXPECT_EQ(Again->GetSpeedScale(), 0.75);
	EXPECT_FALSE(UDanmakuSave::LoadIsOpend());

	Again->Restore();
	EXPECT_EQ(GetSentSize(), 24);
	EXPECT_EQ(Again->GetSpeedScale(), 1);
	EXPECT_TRUE(Stage.Bar().GetOpen()->IsChecked());
	EXPECT_TRUE(UDanmakuSave::LoadIsOpend());
}

TEST_F(PreferencesTest, ComeToTheStoreOnceTheHandRests)
{
	const auto Preferences = Make();
	Preferences->Load();
	Preferences->SetFontSize(40);
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), 24);
	for (int Turn = 0; Turn < 1000 && UDanmakuSave::LoadFontSize() != 40; ++Turn)
	{
		QEventLoop Loop;
		QTimer::singleShot(20, &Loop, &QEventLoop::quit);
		Loop.exec();
	}
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), 40);
}

TEST_F(PreferencesTest, AFailedSaveIsTold)
{
	const auto Preferences = Make();
	Preferences->Load();
	Disk.bFull = true;
	Stage.Bar().GetOpen()->Toggle(false);
	ASSERT_EQ(Failures.size(), 1);
	EXPECT_TRUE(Failures[0].contains("No space left")) << Failures[0].toStdString();
	EXPECT_FALSE(Stage.Bar().GetOpen()->IsChecked());
	Disk.bFull = false;
	Stage.Bar().GetOpen()->Toggle(true);
	EXPECT_EQ(Failures.size(), 1);
}

struct FAbsurdCase
{
	int FontSize;
	float SpeedScale;
	int AppliedSize;
	double AppliedScale;
};

void PrintTo(const FAbsurdCase& Case, std::ostream* Out)
{
	*Out << Case.FontSize << ", " << Case.SpeedScale;
}

class AbsurdPreferencesTest : public PreferencesTest, public testing::WithParamInterface<FAbsurdCase>
{
};

TEST_P(AbsurdPreferencesTest, StayInTheStoreAndAreAppliedWithinBounds)
{
	Store(GetParam().FontSize, GetParam().SpeedScale, true);
	const auto Preferences = Make();
	Preferences->Load();
	EXPECT_EQ(GetSentSize(), GetParam().AppliedSize);
	EXPECT_EQ(Preferences->GetSpeedScale(), GetParam().AppliedScale);
	EXPECT_EQ(UDanmakuSave::LoadFontSize(), GetParam().FontSize);
	const float Kept = UDanmakuSave::LoadSpeedScale();
	EXPECT_TRUE(Kept == GetParam().SpeedScale || (std::isnan(Kept) && std::isnan(GetParam().SpeedScale)));
}

using FFloat = std::numeric_limits<float>;
INSTANTIATE_TEST_SUITE_P(Values, AbsurdPreferencesTest,
						 testing::Values(FAbsurdCase{0, 0.f, 12, 0.5}, FAbsurdCase{-5, -2.f, 12, 0.5},
										 FAbsurdCase{std::numeric_limits<int>::max(), FFloat::max(), 60, 2},
										 FAbsurdCase{std::numeric_limits<int>::min(), FFloat::infinity(), 12, 2},
										 FAbsurdCase{24, FFloat::quiet_NaN(), 24, 1}));

} // namespace

} // namespace Flitmark
