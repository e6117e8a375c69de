#include "Formats/CommentFormat.h"
#include "Playback/CommentReading.h"
#include "Viewer/FieldMirror.h"
#include "Viewer/SystemLanguage.h"
#include "ViewerTestKit.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <ostream>

namespace Flitmark
{

namespace
{

struct FLanguageCase
{
	QStringList Wanted;
	const char* Chosen;
};

void PrintTo(const FLanguageCase& Case, std::ostream* Out)
{
	*Out << Case.Wanted.join(", ").toStdString();
}

class LanguageChoiceTest : public testing::TestWithParam<FLanguageCase>
{
};

TEST_P(LanguageChoiceTest, TheFirstThatIsSpoken)
{
	EXPECT_EQ(ChooseLanguage(GetParam().Wanted), GetParam().Chosen);
}

INSTANTIATE_TEST_SUITE_P(Translations, LanguageChoiceTest,
						 testing::Values(FLanguageCase{{}, "en"}, FLanguageCase{{"C"}, "en"},
										 FLanguageCase{{"en-GB", "ja-JP"}, "en"}, FLanguageCase{{"ja"}, "ja"},
										 FLanguageCase{{"zh-Hans-CN", "zh-CN", "zh"}, "zh_CN"},
										 FLanguageCase{{"zh_SG"}, "zh_CN"}, FLanguageCase{{"zh-Hant-TW"}, "zh_CN"},
										 FLanguageCase{{"fr-FR", "ja-JP", "zh-CN"}, "ja"},
										 FLanguageCase{{"de-AT"}, "en"}));

/** The numbers of a text's "%1" and so on, sorted. */
QStringList FindMarks(const QString& Text)
{
	static const QRegularExpression Mark("%L?[0-9n]+");
	QStringList Marks;
	for (auto Match = Mark.globalMatch(Text); Match.hasNext();)
	{
		Marks.append(Match.next().captured());
	}
	Marks.sort();
	return Marks;
}

class TranslatedTest : public testing::TestWithParam<const char*>
{
protected:
	int ArgumentCount = 1;
	char Name[5] = "test";
	char* Arguments[2] = {Name, nullptr};
	QCoreApplication Application{ArgumentCount, Arguments};
};

/** One text in a file of translations. */
struct FMessage
{
	QString Source;
	/** One, or one a number. */
	QStringList Translations;
	QString Kind;
};

FMessage ReadMessage(QXmlStreamReader& Reader)
{
	FMessage Message;
	while (Reader.readNextStartElement())
	{
		if (Reader.name() == u"source")
		{
			Message.Source = Reader.readElementText();
		}
		else if (Reader.name() == u"translation")
		{
			Message.Kind = Reader.attributes().value("type").toString();
			const QString Text = Reader.readElementText(QXmlStreamReader::IncludeChildElements);
			Message.Translations.append(Text.trimmed());
		}
		else
		{
			Reader.skipCurrentElement();
		}
	}
	return Message;
}

TEST_P(TranslatedTest, NoTextIsLeftOut)
{
	const QString Committed = QStringLiteral(FLITMARK_PLAYER_DIR "/Translations/flitmark-player_") + GetParam() + ".ts";
	const QTemporaryDir Folder;
	const QString Copy = Folder.filePath("copy.ts");
	ASSERT_TRUE(QFile::copy(Committed, Copy));
	ASSERT_TRUE(QFile::setPermissions(Copy, QFile::ReadOwner | QFile::WriteOwner));
	// From the current sources: new texts are added as unfinished, removed ones are marked.
	ASSERT_EQ(QProcess::execute(FLITMARK_LUPDATE, {"-silent", "-locations", "none", FLITMARK_PLAYER_DIR "/Private",
												   FLITMARK_PLAYER_DIR "/Qml", "-ts", Copy}),
			  0);
	QFile File(Copy);
	ASSERT_TRUE(File.open(QFile::ReadOnly));
	QXmlStreamReader Reader(&File);
	int NumMessages = 0;
	while (!Reader.atEnd())
	{
		if (Reader.readNext() != QXmlStreamReader::StartElement || Reader.name() != u"message")
		{
			continue;
		}
		const FMessage Message = ReadMessage(Reader);
		++NumMessages;
		EXPECT_EQ(Message.Kind, "") << Message.Source.toStdString();
		EXPECT_FALSE(Message.Translations.join("").isEmpty()) << Message.Source.toStdString();
		for (const QString& Translation : Message.Translations)
		{
			EXPECT_EQ(FindMarks(Translation), FindMarks(Message.Source)) << Message.Source.toStdString();
		}
	}
	EXPECT_FALSE(Reader.hasError()) << Reader.errorString().toStdString();
	EXPECT_GT(NumMessages, 20);
}

TEST_P(TranslatedTest, PlayerAndModuleSpeakIt)
{
	ASSERT_TRUE(UseLanguage(Application, GetParam()));
	const bool bChinese = QString(GetParam()) == "zh_CN";
	EXPECT_EQ(QCoreApplication::translate("CommentBar", "Send"), bChinese ? "发送" : "送信");
	FViewerStage Stage;
	Stage.Bar().GetOpen()->Toggle(false);
	const QString Closed = Stage.Bar().GetField()->GetText();
	ASSERT_TRUE(UseLanguage(Application, "en"));
	Stage.Bridge->Update();
	EXPECT_NE(Closed, Stage.Bar().GetField()->GetText());
	EXPECT_EQ(Stage.Bar().GetField()->GetText(), "Comments are off");
}

/** What is said of a file with these bytes. */
QStringList ReadOf(const QByteArray& Bytes)
{
	const QTemporaryDir Folder;
	const QString Path = Folder.filePath("file");
	QFile File(Path);
	EXPECT_TRUE(File.open(QFile::WriteOnly));
	File.write(Bytes);
	File.close();
	FLoadedComments Comments;
	QString Reason;
	const std::atomic<bool> bCancel = false;
	return ReadComments(Path, bCancel, Comments, Reason) ? Comments.Notes : QStringList(Reason);
}

TEST_P(TranslatedTest, WhatIsWrongWithAFileIsToldInIt)
{
	ASSERT_TRUE(UseLanguage(Application, GetParam()));
	const QByteArray Cases[] = {
		"",
		"   ",
		QByteArray(64, '\0'),
		"\x89PNG\r\n",
		"no comments at all",
		"{\"datas\": 3}",
		"{\"datas\": [",
		"{\"list\": []}",
		"<i><d p=\"1,6,25,255,0,0,0,1\">reverse</d><d p=\"2,7,25,255,0,0,0,2\">[0,0]</d></i>",
		"<i><d p=\"1,1,25,255,0,0,0,1\">good</d><d p=\"bad\">worse</d><d p=\"2,1,25,255,0,0,0,2\">open",
	};
	// English is left only where things are named.
	static const QRegularExpression English("[a-z]{2,} [a-z]{2,} [a-z]{2,}");
	for (const QByteArray& Case : Cases)
	{
		const QStringList Told = ReadOf(Case);
		EXPECT_FALSE(Told.isEmpty()) << Case.constData();
		for (QString Line : Told)
		{
			for (const FCommentFormat* const Format : GetCommentFormats())
			{
				Line.remove(QString::fromUtf8(Format->Title.data(), static_cast<qsizetype>(Format->Title.size())));
			}
			EXPECT_FALSE(Line.contains(English)) << Case.constData() << ": " << Line.toStdString();
		}
	}
	ASSERT_TRUE(UseLanguage(Application, "en"));
}

INSTANTIATE_TEST_SUITE_P(Translations, TranslatedTest, testing::Values("ja", "zh_CN"));

} // namespace

} // namespace Flitmark
