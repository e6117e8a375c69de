#include "Math/Color.h"
#include "Math/UnrealMathUtility.h"
#include "Misc/DateTime.h"
#include "Misc/Timespan.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
TEST(Values, TimespansSplitTowardZero)
{
	const FTimespan Long(int32(1), int32(26), int32(3), int32(4));
	EXPECT_EQ(Long.GetTicks(), (50 * 3600 + 3 * 60 + 4) * ETimespan::TicksPerSecond);
	EXPECT_EQ(Long.GetDays(), 2);
	EXPECT_EQ(Long.GetHours(), 2);
	EXPECT_EQ(Long.GetMinutes(), 3);
	EXPECT_EQ(Long.GetSeconds(), 4);
	const FTimespan Negative(-15'000'000);
	EXPECT_EQ(Negative.GetSeconds(), -1);
	EXPECT_EQ(Negative.GetMinutes(), 0);
	EXPECT_LT(Negative, FTimespan::Zero());
	EXPECT_EQ(FTimespan(0, 1, 5), FTimespan(650'000'000));
	EXPECT_EQ(FTimespan(5) - FTimespan(7), FTimespan(-2));
}

TEST(Values, SecondsBecomeTicksRoundedHalvesUp)
{
	const struct
	{
		double Seconds;
		int64 Ticks;
	} Cases[] = {
		{0.0, 0},		  {7'200.0, 72'000'000'000}, {-3.0, -30'000'000}, {0.00000005, 1},
		{-0.00000005, 0}, {0.00000004, 0},			 {1e30, MAX_int64},	  {-1e30, MIN_int64},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FTimespan::FromSeconds(Case.Seconds).GetTicks(), Case.Ticks) << Case.Seconds;
	}
}

TEST(Values, DatesAreParsedOrLeftAlone)
{
	constexpr int64 Untouched = -1;
	const struct
	{
		const TCHAR* Text;
		int64 Ticks;
	} Cases[] = {
		{TEXT("0001.01.01-00.00.00"), 0},
		{TEXT("1970.01.01-00.00.00"), 621'355'968'000'000'000},
		{TEXT("2024.02.29-12.34.56"), 638'448'068'960'000'000},
		{TEXT("2024-02-29 12:34:56.789"), 638'448'068'967'890'000},
		{TEXT("  2024..2.29 - 12:34:56."), 638'448'068'960'000'000},
		{TEXT("9999.12.31-23.59.59.999"), 3'155'378'975'999'990'000},
		{TEXT("2000.02.29-00.00.00"), 630'873'792'000'000'000},
		{TEXT("2024.2.29-12.34.56abc"), 638'448'068'960'000'000},
		{TEXT("+2024.2.29-12.34.56"), 638'448'068'960'000'000},
		{TEXT(""), Untouched},
		{TEXT("2024.02.29"), Untouched},
		{TEXT("2024.02.29T12.34.56"), Untouched},
		{TEXT("2024.02.29-12.34.56.7.8"), Untouched},
		{TEXT("2023.02.29-12.34.56"), Untouched},
		{TEXT("1900.02.29-12.34.56"), Untouched},
		{TEXT("2024.13.01-12.34.56"), Untouched},
		{TEXT("2024.00.01-12.34.56"), Untouched},
		{TEXT("2024.04.31-12.34.56"), Untouched},
		{TEXT("2024.04.00-12.34.56"), Untouched},
		{TEXT("2024.04.01-24.00.00"), Untouched},
		{TEXT("2024.04.01-23.60.00"), Untouched},
		{TEXT("2024.04.01-23.59.60"), Untouched},
		{TEXT("2024.04.01-23.59.59.1000"), Untouched},
		{TEXT("0.04.01-23.59.59"), Untouched},
		{TEXT("10000.04.01-23.59.59"), Untouched},
		{TEXT("99999999999999999999.04.01-23.59.59"), Untouched},
		{TEXT("4294969320.04.01-23.59.59"), Untouched},
		{TEXT("one two three four five six"), Untouched},
	};
	for (const auto& Case : Cases)
	{
		FDateTime Date(Untouched);
		EXPECT_EQ(FDateTime::Parse(Case.Text, Date), Case.Ticks != Untouched) << testing::PrintToString(Case.Text);
		EXPECT_EQ(Date.GetTicks(), Case.Ticks) << testing::PrintToString(Case.Text);
	}
}

TEST(Values, ColorsAreReadFromHex)
{
	const struct
	{
		const TCHAR* Text;
		FColor Expected;
	} Cases[] = {
		{TEXT("#FE0302"), FColor(0xFE, 0x03, 0x02)},
		{TEXT("fe0302"), FColor(0xFE, 0x03, 0x02)},
		{TEXT("#12345678"), FColor(0x12, 0x34, 0x56, 0x78)},
		{TEXT("#abC"), FColor(0xAA, 0xBB, 0xCC)},
		{TEXT("000000"), FColor(0, 0, 0, 255)},
		{TEXT("#G1Z2 3"), FColor(0x01, 0x02, 0x03)},
		{TEXT("\uFF11\uFF12\uFF13"), FColor(0, 0, 0, 255)},
		{TEXT(""), FColor(0, 0, 0, 0)},
		{TEXT("#"), FColor(0, 0, 0, 0)},
		{TEXT("#1234"), FColor(0, 0, 0, 0)},
		{TEXT("##ABCDE"), FColor(0x0A, 0xBC, 0xDE)},
		{TEXT("#1234567"), FColor(0, 0, 0, 0)},
		{TEXT("#123456789"), FColor(0, 0, 0, 0)},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FColor::FromHex(Case.Text), Case.Expected) << testing::PrintToString(Case.Text);
	}
	EXPECT_EQ(FColor(0x0A, 0xBC, 0x00, 0xEF).ToHex().GetStd(), u"0ABC00EF");
}

TEST(Values, LinearColorsKeepEveryByte)
{
	for (int32 Value = 0; Value < 256; ++Value)
	{
		const uint8 Byte = static_cast<uint8>(Value);
		const FColor Color(Byte, static_cast<uint8>(255 - Value), static_cast<uint8>(Value ^ 0x55), Byte);
		EXPECT_EQ(FLinearColor(Color).ToFColorSRGB(), Color) << Value;
		const double Encoded = Value / 255.0;
		const double Linear = Encoded <= 0.04045 ? Encoded / 12.92 : std::pow((Encoded + 0.055) / 1.055, 2.4);
		EXPECT_EQ(FLinearColor::sRGBToLinearTable[Value], static_cast<float>(Linear)) << Value;
	}
	EXPECT_EQ(FLinearColor(2.0f, -1.0f, NAN, 7.0f).ToFColorSRGB(), FColor(255, 0, 0, 255));
	EXPECT_EQ(FLinearColor(INFINITY, -INFINITY, 1.0f, NAN).ToFColorSRGB(), FColor(255, 0, 255, 0));
}

TEST(Values, IntegersHoldAtTheirEnds)
{
	const struct
	{
		double Number;
		int32 Truncated;
		int32 Ceiling;
		int32 Floor;
	} Cases[] = {
		{1.9, 1, 2, 1},
		{-1.9, -1, -1, -2},
		{2147483646.5, 2147483646, 2147483647, 2147483646},
		{2147483647.5, MAX_int32, MAX_int32, MAX_int32},
		{-2147483648.0, MIN_int32, MIN_int32, MIN_int32},
		{-2147483648.5, MIN_int32, MIN_int32, MIN_int32},
		{std::numeric_limits<double>::infinity(), MAX_int32, MAX_int32, MAX_int32},
		{-std::numeric_limits<double>::infinity(), MIN_int32, MIN_int32, MIN_int32},
		{std::numeric_limits<double>::quiet_NaN(), 0, 0, 0},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FMath::TruncToInt32(Case.Number), Case.Truncated) << Case.Number;
		EXPECT_EQ(FMath::CeilToInt32(Case.Number), Case.Ceiling) << Case.Number;
		EXPECT_EQ(FMath::FloorToInt32(Case.Number), Case.Floor) << Case.Number;
	}
}
} // namespace
