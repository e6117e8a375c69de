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
	const std::pair<double, double> LeftAndStart[] = {{19.0, 0.0}, {50.0, 50.0}, {75.0, 0.0}};
	for (const auto& [Left, Start] : LeftAndStart)
	{
		Media.Open("/v/film.mkv", 0.0);
		Media.Remember("Film", {});
		Media.KeepPosition(Left, 100.0);
		Media.Open("/v/film.mkv", 0.0);
		EXPECT_EQ(Media.GetStart(), Start) << Left;
		Media.Open("/v/film.mkv", 7.0);
		EXPECT_EQ(Media.GetStart(), 7.0);
		Media.Open("/v/other.mkv", 0.0);
		EXPECT_EQ(Media.GetStart(), 0.0);
	}
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
