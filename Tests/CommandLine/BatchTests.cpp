#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* ListText = R"(<i><d p="0.5,5,25,16777215,0,0,u,1">Hello</d></i>)";

/** A folder in a test's folder. */
std::string MakeFolder(const FTestFolder& InFolder, const std::string& InName)
{
	std::filesystem::create_directory(InFolder.File(InName));
	return InFolder.File(InName);
}

std::vector<std::string> NamesIn(const std::string& InFolder)
{
	std::vector<std::string> Names;
	for (const auto& Entry : std::filesystem::directory_iterator(InFolder))
	{
		Names.push_back(Entry.path().filename().string());
	}
	std::ranges::sort(Names);
	return Names;
}

TEST(Batch, BurnsEachVideoWithTheCommentsBesideIt)
{
	const FTestFolder Folder;
	const std::string In = MakeFolder(Folder, "in");
	const std::string Video = ReadFile(BlackVideo());
	for (const char* Name : {"a.mp4", "b.ja.mp4", "c.mp4", "d.MP4", "e.mp4", "f.mp4"})
	{
		Folder.Write(std::string("in/") + Name, Video);
	}
	Folder.Write("in/a.xml", ListText);
	Folder.Write("in/a.txt", "notes about the film");
	// Recognized by its content, and preferred over one for another language.
	Folder.Write("in/b.ja.comments", MakeDocument({MakeComment()}));
	Folder.Write("in/b.ja.zh.xml", ListText);
	Folder.Write("in/c.xml", ListText);
	Folder.Write("in/c.json", MakeDocument({MakeComment()}));
	Folder.Write("in/d.en.xml", ListText);
	Folder.Write("in/f.xml", ListText);
	Folder.Write("in/f.mp4", "no video");
	const std::string Out = Folder.File("made/out");
	const FProgramResult Result =
		RunProgram({"burn", "--batch", In, "-o", Out, "--to", "0.2", "--preset", "ultrafast"});
	EXPECT_EQ(Result.ExitCode, 1) << Result.Error;
	EXPECT_THAT(NamesIn(Out), ElementsAre("a.mp4", "b.ja.mp4", "d.MP4"));
	EXPECT_THAT(Result.Out, HasSubstr("done     a.mp4: 5 frames"));
	EXPECT_THAT(Result.Out, HasSubstr("done     b.ja.mp4: 5 frames"));
	EXPECT_THAT(Result.Out, HasSubstr("failed   c.mp4: several files of comments beside it: c.json, c.xml"));
	EXPECT_THAT(Result.Out, HasSubstr("done     d.MP4: 5 frames"));
	EXPECT_THAT(Result.Out, HasSubstr("skipped  e.mp4: no comments beside it"));
	EXPECT_THAT(Result.Out, HasSubstr("failed   f.mp4: " + In + "/f.mp4"));
	EXPECT_THAT(Result.Out, EndsWith("3 done, 2 failed, 1 skipped\n"));
	EXPECT_THAT(Result.Error, HasSubstr("[6/6] f.mp4"));
}

TEST(Batch, ConvertsEachFileOfComments)
{
	const FTestFolder Folder;
	const std::string In = MakeFolder(Folder, "in");
	Folder.Write("in/a.xml", ListText);
	Folder.Write("in/b.json", MakeDocument({MakeComment()}));
	Folder.Write("in/b.xml", ListText);
	Folder.Write("in/c.txt", "notes");
	const std::string Out = Folder.File("out");
	const FProgramResult Result = RunProgram({"convert", "--batch", In, "-o", Out, "--offset", "10"});
	EXPECT_EQ(Result.ExitCode, 1) << Result.Error;
	EXPECT_THAT(NamesIn(Out), ElementsAre("a.json", "b.json"));
	EXPECT_THAT(ReadFile(Out + "/a.json"), HasSubstr("\"danmaku_spawn_time\":105000000"));
	EXPECT_THAT(ReadFile(Out + "/b.json"), HasSubstr("\"danmaku_spawn_time\":105000000"));
	EXPECT_THAT(Result.Out, HasSubstr("failed   b.xml: b.json is made from b.json already"));
	EXPECT_THAT(Result.Out, EndsWith("2 done, 1 failed\n"));

	EXPECT_EQ(RunProgram({"convert", "--batch", In, "-o", Folder.File("lists"), "--to", "xml"}).ExitCode, 1);
	EXPECT_THAT(NamesIn(Folder.File("lists")), ElementsAre("a.xml", "b.xml"));
	EXPECT_THAT(ReadFile(Folder.File("lists/b.xml")), HasSubstr("<d p="));

	std::filesystem::remove(In + "/b.xml");
	EXPECT_EQ(RunProgram({"convert", "--batch", In, "-o", Out}).ExitCode, 0);
}

struct FBatchCase
{
	std::vector<std::string> Arguments;
	int ExitCode;
	const char* Said;
};

TEST(Batch, SaysWhatIsMissing)
{
	const FTestFolder Folder;
	const std::string Empty = MakeFolder(Folder, "empty");
	const std::string Bare = MakeFolder(Folder, "bare");
	Folder.Write("bare/a.mp4", "");
	const std::string File = Folder.Write("file", "");
	const std::string Out = Folder.File("out");
	const FBatchCase Cases[] = {
		{{"burn", "--batch", Empty, "-o", Out}, 1, "has no videos"},
		{{"burn", "--batch", Bare, "-o", Out}, 1, "[1/1] a.mp4"},
		{{"convert", "--batch", Empty, "-o", Out}, 1, "has no files of comments"},
		{{"burn", "--batch", Folder.File("none"), "-o", Out}, 1, "none: cannot be read as a folder"},
		{{"convert", "--batch", Bare, "-o", File}, 1, "file: cannot be made as a folder"},
		{{"burn", "v", "c", "--batch", Bare, "-o", Out}, 2, "--batch: takes the place of VIDEO and COMMENTS"},
		{{"convert", "c", "--batch", Bare, "-o", Out}, 2, "--batch: takes the place of IN"},
		{{"burn", "-o", Out}, 2, "VIDEO is required"},
		{{"burn", "v", "-o", Out}, 2, "COMMENTS is required"},
		{{"convert", "-o", Out}, 2, "IN is required"},
	};
	for (const FBatchCase& Case : Cases)
	{
		const FProgramResult Result = RunProgram(Case.Arguments);
		EXPECT_EQ(Result.ExitCode, Case.ExitCode) << Result.Error;
		EXPECT_THAT(Result.Error, HasSubstr(Case.Said));
	}
}

TEST(Batch, ASignalStopsAllOfIt)
{
	const FTestFolder Folder;
	const std::string In = MakeFolder(Folder, "in");
	const FTestFolder Out;
	const std::string Video =
		ReadFile(MakeVideo("slow.mp4", "-f lavfi -i testsrc2=s=640x360:r=25 -t 20 -pix_fmt yuv420p "
									   "-c:v libx264 -preset ultrafast"));
	for (const char* Name : {"a", "b"})
	{
		Folder.Write(std::string("in/") + Name + ".mp4", Video);
		Folder.Write(std::string("in/") + Name + ".xml", ListText);
	}
	FProgram Program({"burn", "--batch", In, "-o", Out.File(""), "--preset", "veryslow"});
	for (int Try = 0; Try < 3000 && !Program.HasOpen(Out); ++Try)
	{
		std::this_thread::sleep_for(std::chrono::milliseconds(10));
	}
	ASSERT_TRUE(Program.HasOpen(Out)) << "the burn did not begin";
	Program.Send(SIGINT);
	const FProgramResult Result = Program.Wait();
	EXPECT_EQ(Result.ExitCode, 128 + SIGINT);
	EXPECT_THAT(Result.Out, HasSubstr("stopped  a.mp4: "));
	EXPECT_THAT(Result.Out, HasSubstr("1 stopped, 1 not begun"));
	EXPECT_TRUE(Out.List().empty());
}

} // namespace
} // namespace Flitmark::Testing
