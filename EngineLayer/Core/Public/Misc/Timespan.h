#pragma once

#include "CoreTypes.h"
#include "Math/UnrealMathUtility.h"

/** Ticks in each unit of a time span; a tick is 100 nanoseconds. */
namespace ETimespan
{
inline constexpr int64 TicksPerMillisecond = 10'000;
inline constexpr int64 TicksPerSecond = 10'000'000;
inline constexpr int64 TicksPerMinute = 60 * TicksPerSecond;
inline constexpr int64 TicksPerHour = 60 * TicksPerMinute;
inline constexpr int64 TicksPerDay = 24 * TicksPerHour;
} // namespace ETimespan

/** The difference between two times: a signed count of 100-nanosecond ticks. */
struct FTimespan
{
	constexpr FTimespan() = default;
	explicit constexpr FTimespan(int64 InTicks)
		: Ticks(InTicks)
	{
	}
	constexpr FTimespan(int32 Hours, int32 Minutes, int32 Seconds) { Assign(0, Hours, Minutes, Seconds, 0); }
	constexpr FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds)
	{
		Assign(Days, Hours, Minutes, Seconds, 0);
	}

	constexpr auto operator<=>(const FTimespan&) const = default;
	constexpr FTimespan operator+(const FTimespan& Other) const { return FTimespan(Ticks + Other.Ticks); }
	constexpr FTimespan operator-(const FTimespan& Other) const { return FTimespan(Ticks - Other.Ticks); }
	constexpr FTimespan operator-() const { return FTimespan(-Ticks); }
	constexpr FTimespan& operator+=(const FTimespan& Other) { return *this = *this + Other; }
	constexpr FTimespan& operator-=(const FTimespan& Other) { return *this = *this - Other; }

	constexpr int64 GetTicks() const { return Ticks; }
	/** Whole days; truncated toward zero, like all of these. */
	constexpr int32 GetDays() const { return static_cast<int32>(Ticks / ETimespan::TicksPerDay); }
	/** The hours part, -23 to 23. */
	constexpr int32 GetHours() const { return static_cast<int32>(Ticks / ETimespan::TicksPerHour % 24); }
	/** The minutes part, -59 to 59. */
	constexpr int32 GetMinutes() const { return static_cast<int32>(Ticks / ETimespan::TicksPerMinute % 60); }
	/** The seconds part, -59 to 59. */
	constexpr int32 GetSeconds() const { return static_cast<int32>(Ticks / ETimespan::TicksPerSecond % 60); }
	constexpr double GetTotalSeconds() const
	{
		return static_cast<double>(Ticks) / static_cast<double>(ETimespan::TicksPerSecond);
	}
	constexpr bool IsZero() const { return Ticks == 0; }

	/** Rounded to the nearest tick, halves up; clamped to int64's range. */
	static FTimespan FromSeconds(double Seconds)
	{
		return FTimespan(FMath::FloorToInt64(Seconds * static_cast<double>(ETimespan::TicksPerSecond) + 0.5));
	}
	static constexpr FTimespan Zero() { return FTimespan(); }
	static constexpr FTimespan MinValue() { return FTimespan(MIN_int64); }
	static constexpr FTimespan MaxValue() { return FTimespan(MAX_int64); }

	friend constexpr uint32 GetTypeHash(const FTimespan& Timespan)
	{
		// Ticks are often whole seconds, so their low bits carry little information: mix before folding.
		const uint64 Mixed = static_cast<uint64>(Timespan.Ticks) * 0x9E3779B97F4A7C15ull;
		return static_cast<uint32>(Mixed >> 32);
	}

protected:
	constexpr void Assign(int32 Days, int32 Hours, int32 Minutes, int32 Seconds, int32 FractionNano)
	{
		Ticks = Days * ETimespan::TicksPerDay + Hours * ETimespan::TicksPerHour + Minutes * ETimespan::TicksPerMinute +
				Seconds * ETimespan::TicksPerSecond + FractionNano / 100;
	}

private:
	int64 Ticks = 0;
};
