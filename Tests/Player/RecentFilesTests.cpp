#include "Playback/RecentFiles.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace Flitmark
{

namespace
{

class RecentFilesTest : public testing::Test
{
protected:
	QString SettingsPath() const { return Folder.filePath("player.ini"); }

	QVariant Tell(const FRecentFiles& InFiles, int InRow, const char* InRole) const
	{
		const int Role = InFiles.roleNames().key(InRole, -1);
		return InFiles.data(InFiles.index(InRow), Role);
	}

	QStringList Videos(const FRecentFiles& InFiles) const
	{
		QStringList Found;
		for (int Row = 0; Row < InFiles.rowCount(); ++Row)
		{
			Found.append(Tell(InFiles, Row, "video").toString());
		}
		return Found;
	}

	QTemporaryDir Folder;
};

TEST_F(RecentFilesTest, KeepsTheLastTenNewestFirstAndEachOnce)
{
	QSettings Settings(SettingsPath(), QSettings::IniFormat);
	FRecentFiles Files(Settings);
	for (int Index = 0; Index < 12; ++Index)
	{
		Files.Add({QString("/v/%1.mkv").arg(Index), {}, {}, 0.0});
	}
	Files.Add({"/v/5.mkv", {}, {}, 0.0});
	const QStringList Found = Videos(Files);
	ASSERT_EQ(Found.size(), 10);
	EXPECT_EQ(Found.mid(0, 3), QStringList({"/v/5.mkv", "/v/11.mkv", "/v/10.mkv"}));
	EXPECT_EQ(Found.count("/v/5.mkv"), 1);
	EXPECT_FALSE(Found.contains("/v/1.mkv"));
	EXPECT_EQ(Files.Find("/v/1.mkv"), nullptr);
}

TEST_F(RecentFilesTest, IsTheSameAfterARestart)
{
	{
		QSettings Settings(SettingsPath(), QSettings::IniFormat);
		FRecentFiles Files(Settings);
		Files.Add({"/v/film, the; 2nd=\"x\".mkv", "電影 100 %", {}, 0.0});
		Files.Add({"https://example.org/a?b=c&d", "Stream", {}, 0.0});
		Files.SetComments("/v/film, the; 2nd=\"x\".mkv", "/c/コメント.xml");
		Files.SetPosition("/v/film, the; 2nd=\"x\".mkv", 61.5);
		Files.SetPosition("/v/unknown.mkv", 3.0);
		Files.Add({"/v/removed.mkv", {}, {}, 0.0});
		Files.Remove(0);
		Files.Remove(7);
	}
	QSettings Settings(SettingsPath(), QSettings::IniFormat);
	const FRecentFiles Files(Settings);
	EXPECT_EQ(Videos(Files), QStringList({"https://example.org/a?b=c&d", "/v/film, the; 2nd=\"x\".mkv"}));
	const FRecentFile* const Film = Files.Find("/v/film, the; 2nd=\"x\".mkv");
	ASSERT_NE(Film, nullptr);
	EXPECT_EQ(Film->Title, "電影 100 %");
	EXPECT_EQ(Film->Comments, "/c/コメント.xml");
	EXPECT_EQ(Film->Position, 61.5);
}

TEST_F(RecentFilesTest, PassesOverWhatIsDamagedInTheSettings)
{
	QFile File(SettingsPath());
	ASSERT_TRUE(File.open(QIODevice::WriteOnly));
	File.write("[recent]\n1\\video=/v/a.mkv\n1\\position=nonsense\n2\\title=no video\n3\\video=/v/a.mkv\n"
			   "4\\video=@Invalid()\nsize=900000000\n");
	File.close();
	QSettings Settings(SettingsPath(), QSettings::IniFormat);
	const FRecentFiles Files(Settings);
	EXPECT_EQ(Videos(Files), QStringList({"/v/a.mkv"}));
	EXPECT_EQ(Files.Find("/v/a.mkv")->Position, 0.0);
}

TEST_F(RecentFilesTest, TellsWhatIsGoneAndWhatThingsAreCalled)
{
	const QString Present = Folder.filePath("present.mkv");
	QFile File(Present);
	ASSERT_TRUE(File.open(QIODevice::WriteOnly));
	File.close();
	QSettings Settings(SettingsPath(), QSettings::IniFormat);
	FRecentFiles Files(Settings);
	Files.Add({"https://example.org/stream/live.m3u8", {}, {}, 0.0});
	Files.Add({QDir::homePath() + "/gone.mkv", {}, "/c/gone.xml", 0.0});
	Files.Add({Present, "A title", {}, 0.0});
	EXPECT_FALSE(Tell(Files, 0, "missing").toBool());
	EXPECT_TRUE(Tell(Files, 1, "missing").toBool());
	EXPECT_FALSE(Tell(Files, 2, "missing").toBool());
	EXPECT_EQ(Tell(Files, 0, "videoTitle"), "A title");
	EXPECT_EQ(Tell(Files, 1, "videoTitle"), "gone.mkv");
	EXPECT_EQ(Tell(Files, 2, "videoTitle"), "live.m3u8");
	EXPECT_EQ(Tell(Files, 1, "place"), "~");
	EXPECT_EQ(Tell(Files, 1, "comments"), "gone.xml");
	EXPECT_EQ(Tell(Files, 0, "comments"), "");
}

} // namespace

} // namespace Flitmark
