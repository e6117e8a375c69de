#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

namespace Flitmark::Testing
{
namespace
{

class TraceSettings : public testing::Test
{
protected:
	static std::string MakeText(int32_t InSize)
	{
		std::vector<std::string> Comments;
		for (const char* Change : {R"("danmaku_mode":0)", R"("danmaku_mode":1)", R"("danmaku_mode":2)",
								   R"("danmaku_spawn_time":30000000)", R"("danmaku_spawn_time":31000000)"})
		{
			Comments.push_back(MakeComment(Change + (R"(,"danmaku_font_size":)" + std::to_string(InSize))));
		}
		return MakeDocument(Comments);
	}

	std::string Trace(const std::vector<std::string>& InOptions) const
	{
		std::vector<std::string> Arguments = {"trace", Comments};
		Arguments.insert(Arguments.end(), InOptions.begin(), InOptions.end());
		const FProgramResult Result = RunProgram(Arguments);
		EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
		EXPECT_THAT(Result.Out, testing::HasSubstr("placed"));
		return Result.Out;
	}

	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", MakeText(24));
};

TEST_F(TraceSettings, LeaveTheTraceAloneAtTheirUsualValues)
{
	EXPECT_EQ(Trace({"--area", "0.75", "--speed", "1", "--font-scale", "1", "--offset", "0"}), Trace({}));
}

TEST_F(TraceSettings, AnAreaIsACanvasOfThatHeight)
{
	EXPECT_EQ(Trace({"--area", "0.5"}), Trace({"--size", "1920x720"}));
	EXPECT_EQ(Trace({"--area", "1", "--size", "800x600"}), Trace({"--size", "800x800"}));
}

TEST_F(TraceSettings, AFontScaleIsALargerSizeInEveryComment)
{
	const auto WithoutSize = [](const std::string& InTrace)
	{
		return std::regex_replace(InTrace, std::regex(R"("font_size":\d+)"), "");
	};
	const std::string Scaled = Trace({"--font-scale", "1.5"});
	const FProgramResult Larger = RunProgram({"trace", Folder.Write("larger.json", MakeText(36))});
	EXPECT_EQ(WithoutSize(Scaled), WithoutSize(Larger.Out));
	EXPECT_NE(Scaled, Larger.Out) << "the document's own size is what is told";
}

/** Frames and media times of the events that match InPattern. */
std::vector<std::string> FindAll(const std::string& InTrace, const std::string& InPattern)
{
	std::vector<std::string> Found;
	const std::regex Pattern(InPattern);
	for (std::sregex_iterator It(InTrace.begin(), InTrace.end(), Pattern); It != std::sregex_iterator(); ++It)
	{
		Found.push_back((*It)[1]);
	}
	return Found;
}

TEST_F(TraceSettings, AnOffsetMovesEveryCommentInTime)
{
	const std::string Placed = R"("frame":(\d+),"media":\d+,"event":"placed")";
	struct FCase
	{
		const char* Offset;
		std::vector<std::string> Frames;
	};
	const FCase Cases[] = {
		{"0", {"0", "0", "0", "30", "30"}},
		{"+5", {"50", "50", "50", "80", "80"}},
		{"1:00.5", {"605", "605", "605", "635", "635"}},
		{"-1", {"20", "20"}},
		{"-2.5", {"5", "5"}},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(FindAll(Trace({"--fps", "10", "--offset", Case.Offset}), Placed), Case.Frames) << Case.Offset;
	}
}

TEST_F(TraceSettings, SpeedShortensTheTimeOnScreen)
{
	const auto Last = [this](const char* InSpeed)
	{
		return std::stoi(FindAll(Trace({"--speed", InSpeed}), R"("frame":(\d+),"media":\d+,"event":"ended")").front());
	};
	EXPECT_NEAR(Last("1"), 2 * Last("2"), 4);
	EXPECT_NEAR(Last("1"), Last("0.5") / 2, 4);
}

} // namespace
} // namespace Flitmark::Testing
