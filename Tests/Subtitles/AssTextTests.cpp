#include "AssText.h"

#include <gtest/gtest.h>

#include <limits>

namespace Flitmark::Testing
{
namespace
{

TEST(AssText, KeepsWhatARendererWouldTakeForItsOwn)
{
	const struct
	{
		std::u32string Text;
		bool bStart;
		bool bEnd;
		std::string Expected;
	} Cases[] = {
		{U"plain, with: commas", true, true, "plain, with: commas"},
		{U"{\\b1}", true, true, "\\{\\\u2060b1\\}"},
		{U"a\\N\\h\\", true, true, "a\\\u2060N\\\u2060h\\\u2060"},
		{U"  a  b  ", true, true, "\\h\\ha  b\\h\\h"},
		{U"  a  ", false, false, "  a  "},
		{U" a ", false, true, " a\\h"},
		{U"   ", true, true, "\\h\\h\\h"},
		{U"   ", true, false, "\\h\\h\\h"},
		{U"\u3000字\U0001F600", true, true, "\u3000字\U0001F600"},
		{U"", true, true, ""},
	};
	for (const auto& Case : Cases)
	{
		std::string Text;
		AppendLiteral(Text, Case.Text, Case.bStart, Case.bEnd);
		EXPECT_EQ(Text, Case.Expected);
	}
}

TEST(AssText, WritesNumbersAndTimes)
{
	const auto Number = [](double InNumber)
	{
		std::string Text;
		AppendNumber(Text, InNumber);
		return Text;
	};
	EXPECT_EQ(Number(1920.0), "1920");
	EXPECT_EQ(Number(-3.25), "-3.25");
	EXPECT_EQ(Number(0.0006), "0.001");
	EXPECT_EQ(Number(-0.0001), "0");
	EXPECT_EQ(Number(100.0), "100");
	EXPECT_EQ(Number(std::numeric_limits<double>::max()).size(), 309U);
	const auto Time = [](int64 InHundredths)
	{
		std::string Text;
		AppendTime(Text, InHundredths);
		return Text;
	};
	EXPECT_EQ(Time(0), "0:00:00.00");
	EXPECT_EQ(Time(372'345), "1:02:03.45");
	EXPECT_EQ(Time(8'640'000), "24:00:00.00");
}

TEST(AssText, WritesColorsBackward)
{
	std::string Text;
	AppendColor(Text, {0x12, 0xAB, 0xF0, 0});
	AppendTransparency(Text, 204);
	EXPECT_EQ(Text, "F0AB1233");
}

} // namespace
} // namespace Flitmark::Testing
