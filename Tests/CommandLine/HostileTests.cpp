#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark::Testing
{
namespace
{

std::string Repeat(const std::string& InText, int InCount)
{
	std::string Text;
	for (int Count = 0; Count < InCount; ++Count)
	{
		Text += InText;
	}
	return Text;
}

std::string Content(const std::string& InText)
{
	return MakeDocument({MakeComment("\"danmaku_content\":\"" + InText + "\"")});
}

std::string Number(const std::string& InKey, const std::string& InValue)
{
	return MakeDocument({MakeComment("\"" + InKey + "\":" + InValue), MakeComment()});
}

struct FHostileCase
{
	const char* Name;
	std::string (*Make)();
	/** check's exit status: 0 if everything is seen, else 1. */
	int CheckCode;
	bool bIsDocument = true;
};

class Hostile : public testing::TestWithParam<FHostileCase>
{
};

/** A clear message or a sane picture, in bounded memory. */
TEST_P(Hostile, DocumentsEndangerNothing)
{
	constexpr long MaxPeakMiB = 600;
	const FTestFolder Folder;
	const std::string Path = Folder.Write("c.json", GetParam().Make());
	const FProgramResult Check = RunProgram({"check", Path});
	EXPECT_EQ(Check.ExitCode, GetParam().CheckCode) << Check.Error;
	EXPECT_LT(Check.Out.size() + Check.Error.size(), 2000u);
	EXPECT_LT(Check.PeakMiB, MaxPeakMiB);
	const FProgramResult Shot =
		RunProgram({"shot", BlackVideo(), Path, "--at", "1.9", "-o", Folder.File("p.png"), "--scale", "1"});
	EXPECT_EQ(Shot.ExitCode, GetParam().bIsDocument ? 0 : 1) << Shot.Error;
	EXPECT_LT(Shot.Error.size(), 2000u);
	EXPECT_LT(Shot.PeakMiB, MaxPeakMiB);
}

INSTANTIATE_TEST_SUITE_P(
	All, Hostile,
	testing::Values(
		FHostileCase{"DeepLists", [] { return "{\"datas\":[" + Repeat("[", 10'000) + Repeat("]", 10'000) + "]}"; }, 1},
		FHostileCase{"DeepObjects", [] { return Number("x", Repeat("{\"a\":", 10'000) + "1" + Repeat("}", 10'000)); },
					 0},
		FHostileCase{"OpenLists", [] { return Repeat("[", 100'000); }, 1, false},
		FHostileCase{"LongText", [] { return Content(std::string(5'000'000, 'w')); }, 0},
		FHostileCase{"LongLargeText",
					 []
					 {
						 return MakeDocument(std::vector<std::string>(
							 40, MakeComment("\"danmaku_font_size\":100,\"danmaku_content\":\"" +
											 std::string(5'000, 'w') + "\"")));
					 },
					 0},
		FHostileCase{"ManyLines", [] { return Content(Repeat("x\\n", 1'000'000)); }, 1},
		FHostileCase{"LargestSize", [] { return Number("danmaku_font_size", "2147483647"); }, 1},
		FHostileCase{"NegativeSize", [] { return Number("danmaku_font_size", "-1"); }, 1},
		FHostileCase{"InfiniteSize", [] { return Number("danmaku_font_size", "1e999"); }, 1},
		FHostileCase{"InfiniteTime", [] { return Number("danmaku_spawn_time", "-1e999"); }, 0},
		FHostileCase{"InfiniteMode", [] { return Number("danmaku_mode", "-1e999"); }, 1},
		FHostileCase{"LongNumber", [] { return Number("danmaku_id", std::string(1'000'000, '9')); }, 0},
		FHostileCase{"LongColor",
					 [] { return Number("danmaku_font_color", "\"#" + std::string(1'000'000, 'F') + "\""); }, 1},
		FHostileCase{"HalfPairs", [] { return Content(R"(\uD83D x \uDC4B\uD83D)"); }, 0},
		FHostileCase{"RawHalfPairs", [] { return Content("\xED\xA0\xBD x \xFF\xC3"); }, 0},
		FHostileCase{"EscapedNul", [] { return Content(R"(a\u0000b)"); }, 0},
		FHostileCase{"RawNul", [] { return Content(std::string("a\0b", 3)); }, 1, false},
		FHostileCase{"Controls",
					 [] { return Content(R"(\u0001\u202E\u2066\uFEFF\u200D\u0301)" + Repeat(R"(\u0300)", 3000)); }, 0},
		FHostileCase{"DenseSecond", [] { return MakeDocument(std::vector<std::string>(20'000, MakeComment())); }, 0},
		FHostileCase{"CrowdedSecond", [] { return MakeDocument(std::vector<std::string>(50'000, MakeComment())); }, 1},
		FHostileCase{"ManyNumbers", [] { return "{\"datas\":[" + Repeat("0,", 1'000'000) + "0]}"; }, 1}),
	[](const auto& InCase) { return InCase.param.Name; });

/** Files without comments are recognized by how they begin, however long they are. */
TEST(HostileFiles, OfOtherKindsAreNotReadWhole)
{
	constexpr std::uintmax_t Size = std::uintmax_t{2} << 30;
	constexpr long MaxPeakMiB = 100;
	const FTestFolder Folder;
	for (const std::string Beginning : {"", "{\"a\":1,", "no comments"})
	{
		const std::string Path = Folder.Write("c", Beginning);
		std::filesystem::resize_file(Path, Size);
		for (const char* Command : {"check", "stats"})
		{
			const FProgramResult Result = RunProgram({Command, Path});
			EXPECT_EQ(Result.ExitCode, 1) << Result.Error;
			EXPECT_LT(Result.PeakMiB, MaxPeakMiB) << Beginning;
		}
	}
}

} // namespace
} // namespace Flitmark::Testing
