#include "HeaderToolTestKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

namespace fs = std::filesystem;

std::string ReadText(const fs::path& Path)
{
	std::ifstream Stream(Path, std::ios::binary);
	std::ostringstream Text;
	Text << Stream.rdbuf();
	return Text.str();
}

void WriteText(const fs::path& Path, const std::string& Text)
{
	fs::create_directories(Path.parent_path());
	std::ofstream(Path, std::ios::binary) << Text;
}

class HeaderToolProgram : public testing::Test
{
protected:
	void SetUp() override
	{
		fs::remove_all(Folder);
		fs::create_directories(Folder / "Out");
	}
	void TearDown() override { fs::remove_all(Folder); }

	/** The tool's exit status; its standard error is kept. */
	int Run(const std::string& Arguments)
	{
		const std::string Command = "\"" TOOL_PATH "\" " + Arguments + " >\"" + (Folder / "Output").string() +
									"\" 2>\"" + (Folder / "Errors").string() + "\"";
		const int Status = std::system(Command.c_str());
		Errors = ReadText(Folder / "Errors");
		return WEXITSTATUS(Status);
	}

	int RunOn(const fs::path& Header)
	{
		return Run("--module Sample --package /Script/Sample --api SAMPLE_API --output \"" + (Folder / "Out").string() +
				   "\" \"" + Header.string() + "\"");
	}

	std::string Errors;
	fs::path Folder = fs::temp_directory_path() / ("HeaderToolTest" + std::to_string(::getpid()));
};

TEST_F(HeaderToolProgram, WritesTheGoldenFiles)
{
	WriteText(Folder / "Public/Sample.h", ReadText(GOLDEN_FOLDER "/Sample.h"));
	ASSERT_EQ(RunOn(Folder / "Public/Sample.h"), 0) << Errors;
	EXPECT_EQ(ReadText(Folder / "Out/Sample.generated.h"), ReadText(GOLDEN_FOLDER "/Sample.generated.h"));
	EXPECT_EQ(ReadText(Folder / "Out/Sample.gen.cpp"), ReadText(GOLDEN_FOLDER "/Sample.gen.cpp"));
}

TEST_F(HeaderToolProgram, WritesOnlyWhatChanged)
{
	WriteText(Folder / "Public/Sample.h", WithMembers("UPROPERTY() int32 A;"));
	ASSERT_EQ(RunOn(Folder / "Public/Sample.h"), 0) << Errors;
	const fs::file_time_type Old = fs::file_time_type::clock::now() - std::chrono::hours(1);
	fs::last_write_time(Folder / "Out/Sample.generated.h", Old);
	fs::last_write_time(Folder / "Out/Sample.gen.cpp", Old);
	WriteText(Folder / "Public/Sample.h", WithMembers("UPROPERTY() int32 B;"));
	ASSERT_EQ(RunOn(Folder / "Public/Sample.h"), 0) << Errors;
	EXPECT_EQ(fs::last_write_time(Folder / "Out/Sample.generated.h"), Old);
	EXPECT_GT(fs::last_write_time(Folder / "Out/Sample.gen.cpp"), Old);
}

TEST_F(HeaderToolProgram, WritesNothingForAFaultyHeader)
{
	WriteText(Folder / "Public/Sample.h", WithMembers("UPROPERTY() FWrong A;"));
	EXPECT_EQ(RunOn(Folder / "Public/Sample.h"), 1);
	EXPECT_THAT(Errors, testing::StartsWith((Folder / "Public/Sample.h").string() +
											":7: type `FWrong` of `A` cannot be reflected"));
	EXPECT_TRUE(fs::is_empty(Folder / "Out"));
}

TEST_F(HeaderToolProgram, TellsFilesThatCannotBeUsed)
{
	EXPECT_EQ(RunOn(Folder / "Missing.h"), 1);
	EXPECT_THAT(Errors, testing::HasSubstr("Missing.h:1: cannot be read"));
	EXPECT_EQ(RunOn(Folder), 1);
	fs::remove_all(Folder / "Out");
	EXPECT_EQ(RunOn(GOLDEN_FOLDER "/Sample.h"), 1);
	EXPECT_THAT(Errors, testing::HasSubstr("Sample.generated.h: cannot be written"));
}

TEST_F(HeaderToolProgram, RefusesWrongUse)
{
	EXPECT_EQ(Run("--module M --package P --output ."), 2);
	EXPECT_EQ(Run("--wrong"), 2);
	EXPECT_EQ(Run("--module"), 2);
	EXPECT_THAT(Errors, testing::HasSubstr("`--module` is not an option or lacks its value"));
	EXPECT_EQ(Run("--help"), 0);
}

/** However a header is damaged, it is either read or refused with one of its line numbers. */
TEST(DamagedHeaders, AreReadOrRefused)
{
	const std::string Fine = ReadText(GOLDEN_FOLDER "/Sample.h");
	const char* Inserted[] = {"{",	"}", "(",  ")", "<", ">",	 "\"",			"'",   "/*",
							  "\\", "#", "\n", ",", ";", "R\"(", "UPROPERTY()", "\xFF"};
	std::vector<std::string> Damaged{std::string("\0{", 2)};
	for (std::size_t At = 0; At < Fine.size(); ++At)
	{
		const std::string Before = Fine.substr(0, At);
		Damaged.push_back(Before);
		Damaged.push_back(Before + Fine.substr(At + 1));
		Damaged.push_back(Before + Inserted[At % std::size(Inserted)] + Fine.substr(At));
	}
	std::string Deep = "UPROPERTY() ";
	for (int Index = 0; Index < 100000; ++Index)
	{
		Deep += "TArray<";
	}
	Damaged.push_back(WithMembers(Deep + " A;"));
	for (const std::string& Text : Damaged)
	{
		const FGenerated Generated = Generate(Text);
		ASSERT_NE(Generated.Errors.empty(), Generated.Files.empty()) << Text;
		for (const std::string& Error : Generated.Errors)
		{
			const int Line = std::atoi(Error.substr(std::string("Sample/Public/Sample.h:").size()).c_str());
			ASSERT_GE(Line, 1) << Error;
			ASSERT_LE(Line, std::count(Text.begin(), Text.end(), '\n') + 1) << Error;
		}
	}
}

} // namespace
