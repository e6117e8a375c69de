#include "Playback/CommentLoader.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace Flitmark
{

namespace
{

constexpr int Patience = 20'000;

QByteArray MakeList(int InNum)
{
	QByteArray Text = "<?xml version=\"1.0\"?><i>";
	for (int Index = 0; Index < InNum; ++Index)
	{
		Text += "<d p=\"" + QByteArray::number(Index % 600) + ",1,25,16777215,1500000000,0,abc," +
				QByteArray::number(Index) + "\">comment</d>";
	}
	return Text + "</i>";
}

class PlayerCommentsTest : public testing::Test
{
protected:
	PlayerCommentsTest()
	{
		static int NumArguments = 1;
		static char Name[] = "test";
		static char* Arguments[] = {Name, nullptr};
		if (QCoreApplication::instance() == nullptr)
		{
			static const QCoreApplication Application(NumArguments, Arguments);
		}
		QObject::connect(&*Loader, &FCommentLoader::Finished,
						 [this](const FLoadOutcome& InOutcome) { Outcomes.push_back(InOutcome); });
	}

	QString Write(const QString& InName, const QByteArray& InBytes) const
	{
		const QString Path = Folder.filePath(InName);
		QFile File(Path);
		EXPECT_TRUE(File.open(QIODevice::WriteOnly));
		File.write(InBytes);
		return Path;
	}

	/** Until the load that counts has finished. */
	void Wait()
	{
		QElapsedTimer Timer;
		Timer.start();
		while (Loader->IsBusy() && Timer.elapsed() < Patience)
		{
			QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
		}
		ASSERT_FALSE(Loader->IsBusy());
	}

	QTemporaryDir Folder;
	std::unique_ptr<FCommentLoader> Loader = std::make_unique<FCommentLoader>();
	std::vector<FLoadOutcome> Outcomes;
};

TEST_F(PlayerCommentsTest, GivesTextDocumentAndNotes)
{
	Loader->Load(Write("a.txt", MakeList(3).replace("</i>", "<d p=\"1,8,25,1,1,0,a,9\">draw()</d></i>")));
	Wait();
	ASSERT_EQ(Outcomes.size(), 1u);
	ASSERT_TRUE(Outcomes[0].Comments);
	EXPECT_TRUE(Outcomes[0].Reason.isEmpty());
	EXPECT_EQ(Outcomes[0].Comments->Document.GetEntries().size(), 3u);
	EXPECT_EQ(FCommentDocument::Read(Outcomes[0].Comments->Text).GetEntries().size(), 3u);
	ASSERT_FALSE(Outcomes[0].Comments->Notes.isEmpty());
	EXPECT_FALSE(Outcomes[0].Comments->Notes.join(' ').contains(Folder.path()));
}

TEST_F(PlayerCommentsTest, TellsWhyAFileCannotBeRead)
{
	struct FCase
	{
		QString Path;
		const char* Expected;
	};
	const FCase Cases[] = {{Folder.filePath("missing.json"), "No such file"},
						   {Write("bad.json", "{\"datas\": [\n{,}]}"), "line 2, column"},
						   {Write("noise.xml", "noise"), ""}};
	for (const FCase& Case : Cases)
	{
		Loader->Load(Case.Path);
		Wait();
		ASSERT_FALSE(Outcomes.empty());
		EXPECT_FALSE(Outcomes.back().Comments);
		EXPECT_EQ(Outcomes.back().FailedPath, Case.Path);
		EXPECT_TRUE(Outcomes.back().Reason.contains(Case.Expected)) << Outcomes.back().Reason.toStdString();
		EXPECT_TRUE(Outcomes.back().Reason.endsWith('.')) << Outcomes.back().Reason.toStdString();
		EXPECT_FALSE(Outcomes.back().Reason.contains(Folder.path())) << Outcomes.back().Reason.toStdString();
	}
}

TEST_F(PlayerCommentsTest, OfThoseBesideTheFirstWithCommentsCounts)
{
	const QString Noise = Write("film.json", "[1, 2");
	const QString Unrelated = Write("film.info.json", "{\"title\": \"Film\"}");
	const QString Good = Write("film.xml", MakeList(2));
	Loader->LoadFirst({Noise, Unrelated, Good, Write("film.ja.xml", MakeList(5))});
	Wait();
	ASSERT_EQ(Outcomes.size(), 1u);
	ASSERT_TRUE(Outcomes[0].Comments);
	EXPECT_EQ(Outcomes[0].Comments->Path, Good);
	EXPECT_TRUE(Outcomes[0].Reason.isEmpty());
}

TEST_F(PlayerCommentsTest, WhatIsAskedForLastCounts)
{
	const QString Large = Write("large.xml", MakeList(50'000));
	const QString Small = Write("small.xml", MakeList(1));
	Loader->Load(Large);
	Loader->Load(Large);
	Loader->Load(Small);
	Wait();
	Loader->Load(Large);
	Loader->Cancel();
	EXPECT_FALSE(Loader->IsBusy());
	Loader->Load(Small);
	Wait();
	QCoreApplication::processEvents();
	ASSERT_EQ(Outcomes.size(), 2u);
	for (const FLoadOutcome& Outcome : Outcomes)
	{
		ASSERT_TRUE(Outcome.Comments);
		EXPECT_EQ(Outcome.Comments->Path, Small);
	}
}

TEST_F(PlayerCommentsTest, EndsWhileItLoads)
{
	Loader->Load(Write("large.xml", MakeList(50'000)));
	Loader.reset();
	QCoreApplication::processEvents();
	EXPECT_TRUE(Outcomes.empty());
}

} // namespace

} // namespace Flitmark
