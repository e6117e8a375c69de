#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

/** A date and time of day: ticks of 100 nanoseconds since 1 January of year 1, 00:00, in no particular time zone. */
struct FDateTime
{
	constexpr FDateTime() = default;
	explicit constexpr FDateTime(int64 InTicks)
		: Ticks(InTicks)
	{
	}
	/** The parts must pass Validate. */
	ENGINELAYER_API FDateTime(int32 Year, int32 Month, int32 Day, int32 Hour = 0, int32 Minute = 0, int32 Second = 0,
							  int32 Millisecond = 0);

	constexpr auto operator<=>(const FDateTime&) const = default;
	constexpr int64 GetTicks() const { return Ticks; }

	/** Days of the month (1 to 12) in the Gregorian calendar. */
	static ENGINELAYER_API int32 DaysInMonth(int32 Year, int32 Month);
	static ENGINELAYER_API bool IsLeapYear(int32 Year);
	/** Years 1 to 9999, milliseconds 0 to 999; no leap seconds. */
	static ENGINELAYER_API bool Validate(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second,
										 int32 Millisecond);

	/**
	 * Reads "year.month.day-hour.minute.second[.millisecond]": six or seven numbers separated by any run of '-', ':',
	 * '.' and spaces. A number is read as far as its digits go. Returns false, with OutDateTime untouched, for any
	 * other count of numbers and for parts that do not form a date.
	 */
	static ENGINELAYER_API bool Parse(const FString& DateTimeString, FDateTime& OutDateTime);

private:
	int64 Ticks = 0;
};
