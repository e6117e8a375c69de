#include "Playback/MediaSession.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace Flitmark
{

namespace
{

class MediaSessionTest : public testing::Test
{
protected:
	QString Write(const QString& InName) const
	{
		QFile File(Folder.filePath(InName));
		EXPECT_TRUE(File.open(QIODevice::WriteOnly));
		return File.fileName();
	}

	QTemporaryDir Folder;
	QSettings Settings{Folder.filePath("player.ini"), QSettings::IniFormat};
	FMediaSession Media{Settings};
};

TEST_F(MediaSessionTest, BeginsWhereItWasLeftUnlessTold)
{
	struct FCase
	{
		double Left;
		double Duration;
		double Start;
	};
	const FCase Cases[] = {{19.0, 100.0, 0.0}, {50.0, 100.0, 50.0}, {75.0, 100.0, 0.0}, {4.0, 30.0, 0.0},
						   {7.0, 30.0, 7.0},   {20.5, 30.0, 20.5},	{22.0, 30.0, 0.0},	{40.0, 0.0, 0.0}};
	for (const auto& [Left, Duration, Start] : Cases)
	{
		Media.Open("/v/film.mkv", 0.0);
		Media.Remember("Film", {});
		Media.KeepPosition(Left, Duration);
		Media.Open("/v/film.mkv", 0.0);
		EXPECT_EQ(Media.GetStart(), Start) << Left;
		Media.Open("/v/film.mkv", 7.0);
		EXPECT_EQ(Media.GetStart(), 7.0);
		Media.Open("/v/other.mkv", 0.0);
		EXPECT_EQ(Media.GetStart(), 0.0);
	}
}

TEST_F(MediaSessionTest, KeepsThePositionEveryTenSeconds)
{
	Media.Open("/v/film.mkv", 0.0);
	Media.Remember("Film", {});
	const auto Keeps = [this](double InPosition)
	{
		Media.Follow(InPosition, 1000.0);
		return FRecentFiles(Settings).Find("/v/film.mkv")->Position;
	};
	EXPECT_EQ(Keeps(25.0), 25.0);
	EXPECT_EQ(Keeps(34.9), 25.0);
	EXPECT_EQ(Keeps(35.0), 35.0);
	EXPECT_EQ(Keeps(600.0), 600.0);
	EXPECT_EQ(Keeps(5.0), 0.0);
}

TEST_F(MediaSessionTest, CommentsLastUsedComeBeforeThoseBeside)
{
	const QString Beside = Write("film.json");
	const QString AlsoBeside = Write("film.xml");
	const QString Elsewhere = Write("elsewhere.xml");
	Media.Open(Write("film.mkv"), 0.0);
	EXPECT_EQ(Media.FindComments(), QStringList({Beside, AlsoBeside}));
	Media.Remember("Film", AlsoBeside);
	EXPECT_EQ(Media.FindComments(), QStringList({AlsoBeside, Beside}));
	Media.Remember("Film", Elsewhere);
	// None now: those last used are still remembered.
	Media.Remember("Film", {});
	EXPECT_EQ(Media.FindComments(), QStringList({Elsewhere, Beside, AlsoBeside}));
	QFile::remove(Elsewhere);
	EXPECT_EQ(Media.FindComments(), QStringList({Beside, AlsoBeside}));
}

TEST_F(MediaSessionTest, LooksForFilesWhereTheLastVideoWas)
{
	Media.Open(Write("film.mkv"), 0.0);
	EXPECT_EQ(Media.GetFolder(), QUrl::fromLocalFile(Folder.path()));
	Media.Remember("Film", {});
	Media.Close();
	EXPECT_EQ(Media.GetFolder(), QUrl::fromLocalFile(Folder.path()));
	Media.Open("https://example.org/film.mkv", 0.0);
	EXPECT_NE(Media.GetFolder(), QUrl::fromLocalFile(Folder.path()));
}

} // namespace

} // namespace Flitmark
