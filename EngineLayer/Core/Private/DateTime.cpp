#include "Misc/DateTime.h"
#include "Misc/Timespan.h"

namespace
{
constexpr int32 MaxParts = 7;

bool IsSeparator(TCHAR Character)
{
	return Character == u'-' || Character == u':' || Character == u'.' || Character == u' ';
}

/** Like C's atoi (blanks, one sign, digits, the rest ignored), but clamped to int32's range. */
int32 ReadNumber(const TCHAR* Begin, const TCHAR* End)
{
	while (Begin != End && *Begin >= u'\t' && *Begin <= u'\r')
	{
		++Begin;
	}
	// The minus sign is a separator, so it never gets here.
	if (Begin != End && *Begin == u'+')
	{
		++Begin;
	}
	int64 Number = 0;
	for (; Begin != End && *Begin >= u'0' && *Begin <= u'9'; ++Begin)
	{
		Number = FMath::Min<int64>(Number * 10 + (*Begin - u'0'), MAX_int32);
	}
	return static_cast<int32>(Number);
}

/** Splits at the separators; returns how many numbers there are, or MaxParts + 1 if there are more than MaxParts. */
int32 SplitNumbers(const FString& Text, int32 (&OutParts)[MaxParts])
{
	const TCHAR* At = *Text;
	const TCHAR* const End = At + Text.Len();
	int32 Count = 0;
	for (;;)
	{
		while (At != End && IsSeparator(*At))
		{
			++At;
		}
		if (At == End || Count == MaxParts)
		{
			return At == End ? Count : MaxParts + 1;
		}
		const TCHAR* const Begin = At;
		while (At != End && !IsSeparator(*At))
		{
			++At;
		}
		OutParts[Count++] = ReadNumber(Begin, At);
	}
}
} // namespace

FDateTime::FDateTime(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond)
{
	const int64 YearsBefore = Year - 1;
	int64 Days = YearsBefore * 365 + YearsBefore / 4 - YearsBefore / 100 + YearsBefore / 400 + Day - 1;
	for (int32 MonthBefore = 1; MonthBefore < Month; ++MonthBefore)
	{
		Days += DaysInMonth(Year, MonthBefore);
	}
	Ticks = Days * ETimespan::TicksPerDay + Hour * ETimespan::TicksPerHour + Minute * ETimespan::TicksPerMinute +
			Second * ETimespan::TicksPerSecond + Millisecond * ETimespan::TicksPerMillisecond;
}

bool FDateTime::IsLeapYear(int32 Year)
{
	return Year % 4 == 0 && (Year % 100 != 0 || Year % 400 == 0);
}

int32 FDateTime::DaysInMonth(int32 Year, int32 Month)
{
	constexpr int32 Days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
	return Days[Month - 1] + (Month == 2 && IsLeapYear(Year) ? 1 : 0);
}

bool FDateTime::Validate(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond)
{
	return Year >= 1 && Year <= 9999 && Month >= 1 && Month <= 12 && Day >= 1 && Day <= DaysInMonth(Year, Month) &&
		   Hour >= 0 && Hour <= 23 && Minute >= 0 && Minute <= 59 && Second >= 0 && Second <= 59 && Millisecond >= 0 &&
		   Millisecond <= 999;
}

bool FDateTime::Parse(const FString& DateTimeString, FDateTime& OutDateTime)
{
	int32 Parts[MaxParts] = {};
	const int32 Count = SplitNumbers(DateTimeString, Parts);
	if (Count < 6 || Count > 7 || !Validate(Parts[0], Parts[1], Parts[2], Parts[3], Parts[4], Parts[5], Parts[6]))
	{
		return false;
	}
	OutDateTime = FDateTime(Parts[0], Parts[1], Parts[2], Parts[3], Parts[4], Parts[5], Parts[6]);
	return true;
}
