#include "Values/TimeText.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace Flitmark
{

namespace
{

TEST(TimeText, IsWrittenAsPeopleWriteIt)
{
	const std::pair<double, const char*> Cases[] = {{0.0, "0:00"},
													{59.999, "0:59"},
													{65.0, "1:05"},
													{3600.0 + 65.0, "1:01:05"},
													{100.0 * 3600.0, "100:00:00"},
													{-1.0, "0:00"},
													{std::numeric_limits<double>::quiet_NaN(), "0:00"},
													{std::numeric_limits<double>::infinity(), "0:00"},
													{1e300, "0:00"}};
	for (const auto& [Seconds, Text] : Cases)
	{
		EXPECT_EQ(FormatTime(Seconds), Text) << Seconds;
	}
	EXPECT_EQ(FormatTime(FTimespan(-5)), "0:00");
	EXPECT_EQ(FormatTime(FTimespan(65 * ETimespan::TicksPerSecond + 9'999'999)), "1:05") << "a tick before 1:06";
	EXPECT_EQ(FormatTime(FTimespan(ETimespan::TicksPerDay - 1)), "23:59:59");
}

TEST(TimeText, IsReadOrRefused)
{
	const std::pair<const char*, double> Good[] = {{"0", 0.0},	   {"90", 90.0},		  {"90.5", 90.5},
												   {"1:30", 90.0}, {"0:01:30.25", 90.25}, {"100:00", 6000.0},
												   {".5", 0.5}};
	for (const auto& [Text, Seconds] : Good)
	{
		EXPECT_EQ(ParseTime(Text), Seconds) << Text;
	}
	for (const char* Text : {"", ":", "1:", ":1", "1:60", "1:2:3:4", "-1", "+1", "1e3", "nan", "inf", "1.5:00", "1,5",
							 " 1", "0x10", "1000000000", "99999999999999999999"})
	{
		EXPECT_EQ(ParseTime(Text), std::nullopt) << Text;
	}
}

} // namespace

} // namespace Flitmark
