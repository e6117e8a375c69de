#include "Viewer/ViewSettings.h"

#include "ViewerTestKit.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Flitmark
{

namespace
{

class ViewSettingsTest : public testing::Test
{
protected:
	const FOverlaySettings& Get() const { return Stage.Overlay->GetSettings(); }

	int ArgumentCount = 1;
	char Name[5] = "test";
	char* Arguments[2] = {Name, nullptr};
	QCoreApplication Application{ArgumentCount, Arguments};
	QTemporaryDir Folder;
	QString Path = Folder.filePath("player.ini");
	FViewerStage Stage;
};

TEST_F(ViewSettingsTest, WhatIsStoredIsCheckedAndApplied)
{
	struct FCase
	{
		const char* Stored;
		double Opacity;
		double Area;
		double FontScale;
		bool bShowsTop;
	};
	const FCase Cases[] = {
		{"", 1.0, 0.75, 1.0, true},
		{"opacity=0.5\narea=0.25\nfontScale=1.5\ntop=false\n", 0.5, 0.25, 1.5, false},
		{"opacity=0\narea=0\nfontScale=0\ntop=true\n", 0.1, 0.25, 0.5, true},
		{"opacity=7\narea=1e9\nfontScale=inf\n", 1.0, 1.0, 2.0, true},
		{"opacity=nan\narea=nan\nfontScale=nan\n", 1.0, 0.75, 1.0, true},
		{"opacity=half\narea=\nfontScale=1,5\n", 1.0, 0.75, 1.0, true},
		{"area=0.6\n", 1.0, 0.5, 1.0, true},
	};
	for (const FCase& Case : Cases)
	{
		QFile File(Path);
		ASSERT_TRUE(File.open(QIODevice::WriteOnly));
		File.write(QByteArray("[view]\n") + Case.Stored);
		File.close();
		QSettings Settings(Path, QSettings::IniFormat);
		const FViewSettings View(*Stage.Overlay, Settings);
		EXPECT_EQ(Get().Opacity, Case.Opacity) << Case.Stored;
		EXPECT_EQ(Get().Area, Case.Area) << Case.Stored;
		EXPECT_EQ(Get().FontScale, Case.FontScale) << Case.Stored;
		EXPECT_EQ(Get().bShowsTop, Case.bShowsTop) << Case.Stored;
		EXPECT_TRUE(Get().bShowsScrolling && Get().bShowsBottom) << Case.Stored;
	}
}

TEST_F(ViewSettingsTest, AreStoredAndRestoredButTheOffset)
{
	{
		QSettings Settings(Path, QSettings::IniFormat);
		FViewSettings View(*Stage.Overlay, Settings);
		int NumChanges = 0;
		QObject::connect(&View, &FViewSettings::Changed, [&NumChanges] { ++NumChanges; });
		View.SetOpacity(0.4);
		View.SetArea(1.0);
		View.SetFontScale(1.25);
		View.SetShowsScrolling(false);
		View.SetShowsBottom(false);
		View.SetOffset(-1.5);
		View.SetOffset(-1.5);
		EXPECT_EQ(NumChanges, 6) << "of the same value nobody hears";
		EXPECT_EQ(Get().Offset, -15'000'000);
		View.SetOffset(std::numeric_limits<double>::infinity());
		EXPECT_EQ(View.GetOffset(), FViewSettings::LongestOffset);
		View.SetOffset(std::nan(""));
		EXPECT_EQ(View.GetOffset(), 0.0);
		View.SetOffset(3.0);
	}
	FViewerStage Next;
	QSettings Settings(Path, QSettings::IniFormat);
	FViewSettings View(*Next.Overlay, Settings);
	EXPECT_EQ(View.GetOpacity(), 0.4);
	EXPECT_EQ(View.GetArea(), 1.0);
	EXPECT_EQ(View.GetFontScale(), 1.25);
	EXPECT_FALSE(View.ShowsScrolling());
	EXPECT_TRUE(View.ShowsTop());
	EXPECT_FALSE(View.ShowsBottom());
	EXPECT_EQ(View.GetOffset(), 0.0);

	View.Restore();
	EXPECT_EQ(View.GetOpacity(), 1.0);
	EXPECT_EQ(View.GetArea(), 0.75);
	EXPECT_EQ(View.GetFontScale(), 1.0);
	EXPECT_TRUE(View.ShowsScrolling() && View.ShowsBottom());
}

} // namespace

} // namespace Flitmark
