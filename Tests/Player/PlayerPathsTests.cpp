#include "Playback/MediaPaths.h"
#include "Playback/MessageList.h"
#include "Playback/PlayerText.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <limits>

namespace Flitmark
{

namespace
{

class PlayerPathsTest : public testing::Test
{
protected:
	QString Write(const QString& InName, const QByteArray& InBytes = "x") const
	{
		const QString Path = Folder.filePath(InName);
		QFile File(Path);
		EXPECT_TRUE(File.open(QIODevice::WriteOnly));
		File.write(InBytes);
		return Path;
	}

	QStringList FindBeside(const QString& InVideo, const QStringList& InLanguages = {}) const
	{
		QStringList Names;
		for (const QString& Path : FindCommentsBeside(Folder.filePath(InVideo), InLanguages))
		{
			Names.append(QFileInfo(Path).fileName());
		}
		return Names;
	}

	QTemporaryDir Folder;
};

TEST_F(PlayerPathsTest, FindsCommentsBesideTheLikeliestFirst)
{
	for (const char* Name : {"film.mkv", "film.xml", "film.JSON", "film.ja.xml", "film.zh_CN.json", "film.en.pb",
							 "film.srt", "film 2.xml", "film.a.b.xml", "film..xml", "filmx.json", "other.xml"})
	{
		Write(Name);
	}
	QDir(Folder.path()).mkdir("film.de.json");
	EXPECT_EQ(FindBeside("film.mkv"),
			  QStringList({"film.JSON", "film.xml", "film.zh_CN.json", "film.ja.xml", "film.en.pb"}));
	EXPECT_EQ(FindBeside("film.mkv", {"en", "ja"}),
			  QStringList({"film.JSON", "film.xml", "film.en.pb", "film.ja.xml", "film.zh_CN.json"}));
	EXPECT_EQ(FindBeside("film 2.mkv"), QStringList({"film 2.xml"}));
	EXPECT_EQ(FindBeside("none.mkv"), QStringList());
}

TEST_F(PlayerPathsTest, AVideoIsNotItsOwnCommentsAndAddressesHaveNone)
{
	Write("odd.json");
	EXPECT_EQ(FindBeside("odd.json"), QStringList());
	EXPECT_EQ(FindCommentsBeside("https://example.org/film.mkv", {}), QStringList());
	EXPECT_EQ(FindCommentsBeside("/no/such/folder/film.mkv", {}), QStringList());
}

TEST_F(PlayerPathsTest, KnowsSubtitlesByName)
{
	for (const char* Name : {"/v/film.srt", "/v/film.en.ASS", "film.vtt", "https://example.org/a%20b.vtt?key=x.mp4"})
	{
		EXPECT_TRUE(IsSubtitleFile(Name)) << Name;
	}
	for (const char* Name : {"/v/film.mkv", "/v/srt", "/v.srt/film", "https://example.org/film.mp4?sub=a.srt"})
	{
		EXPECT_FALSE(IsSubtitleFile(Name)) << Name;
	}
}

TEST_F(PlayerPathsTest, TellsCommentsFromVideosByContent)
{
	EXPECT_TRUE(IsCommentFile(Write("a.mkv", "{\"datas\": []}")));
	EXPECT_TRUE(IsCommentFile(Write("b", "<?xml version=\"1.0\"?><i><d p=\"1,1,25,16777215,0,0,a,1\">x</d></i>")));
	EXPECT_FALSE(IsCommentFile(Write("c.json", QByteArray("\x1a\x45\xdf\xa3\x9f\x42\x86\x81\x01\x42", 10))));
	EXPECT_FALSE(IsCommentFile(Write("d.xml", QByteArray("\0\0\0\x20"
														 "ftypisom",
														 12))));
	EXPECT_FALSE(IsCommentFile(Write("e.json", "")));
	EXPECT_FALSE(IsCommentFile(Folder.path()));
	EXPECT_FALSE(IsCommentFile(Folder.filePath("missing.json")));
	EXPECT_FALSE(IsCommentFile("https://example.org/a.json"));
}

TEST_F(PlayerPathsTest, SaysWhatIsWrongWithAFileBeforeItIsOpened)
{
	EXPECT_TRUE(FindFileFault(Write("film.mkv")).isEmpty());
	EXPECT_TRUE(FindFileFault("https://example.org/nothing").isEmpty());
	EXPECT_TRUE(FindFileFault("/dev/null").isEmpty());
	EXPECT_TRUE(FindFileFault(Folder.filePath("missing.mkv")).contains("no such file"));
	EXPECT_TRUE(FindFileFault(Folder.path()).contains("folder"));
	EXPECT_TRUE(FindFileFault(Write("empty.mkv", "")).contains("empty"));
}

TEST(PlayerAddressTest, PathsAndAddressesAreToldApart)
{
	EXPECT_EQ(ToPathOrAddress(QString("/a/../b.mkv")), "/b.mkv");
	EXPECT_EQ(ToPathOrAddress(QString("b.mkv")), QDir::currentPath() + "/b.mkv");
	EXPECT_EQ(ToPathOrAddress(QString("-b.mkv")), QDir::currentPath() + "/-b.mkv");
	EXPECT_EQ(ToPathOrAddress(QString("a: b://c.mkv")), QDir::currentPath() + "/a: b:/c.mkv");
	EXPECT_EQ(ToPathOrAddress(QString("file:///a%20b%23c.mkv")), "/a b#c.mkv");
	EXPECT_EQ(ToPathOrAddress(QUrl::fromLocalFile("/a b#c%.mkv")), "/a b#c%.mkv");
	EXPECT_EQ(ToPathOrAddress(QString("https://example.org/a%20b?c=d")), "https://example.org/a%20b?c=d");
	EXPECT_EQ(ToPathOrAddress(QString()), "");
	EXPECT_EQ(NameOf("/a/b.mkv"), "b.mkv");
	EXPECT_EQ(NameOf("https://example.org/dir/a%20b.webm?x=/y"), "a b.webm");
	EXPECT_EQ(NameOf("https://example.org/"), "example.org");
}

TEST(PlayerTextTest, SpeedsAreShort)
{
	EXPECT_EQ(FormatSpeed(1.0), QString::fromUtf8("1\u00d7"));
	EXPECT_EQ(FormatSpeed(1.25), QString::fromUtf8("1.25\u00d7"));
}

TEST(PlayerTextTest, FaultsOfPlaybackEndAsSentencesAndTellAddressesWhatToDo)
{
	EXPECT_EQ(DescribePlaybackFault("Connection refused", false), "Connection refused.");
	EXPECT_TRUE(DescribePlaybackFault("Connection refused", true).endsWith("Check the address and the connection."));
	EXPECT_TRUE(DescribePlaybackFault("Failed to recognize file format", false).contains("damaged"));
	EXPECT_EQ(DescribePlaybackFault("unrecognized file format", false),
			  DescribePlaybackFault("Failed to recognize file format", true));
}

TEST(PlayerMessagesTest, ThreeStayAndARepeatedOneIsNotDoubled)
{
	FMessageList List;
	const auto Tell = [&]
	{
		QStringList Texts;
		for (int Row = 0; Row < List.rowCount(); ++Row)
		{
			Texts.append(List.data(List.index(Row), Qt::DisplayRole).toString());
		}
		return Texts.join(',');
	};
	for (const char* Text : {"a", "b", "c", "d", "b"})
	{
		List.Add(Text);
	}
	EXPECT_EQ(Tell(), "c,d,b");
	List.Dismiss(1);
	List.Dismiss(-1);
	List.Dismiss(2);
	EXPECT_EQ(Tell(), "c,b");
	List.Clear();
	EXPECT_EQ(Tell(), "");
}

} // namespace

} // namespace Flitmark
