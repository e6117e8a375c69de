#include "TimeUnit.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr int64 TicksPerSecond = static_cast<int64>(ETimeUnit::Second);
constexpr int64 MillisecondsPerSecond = TicksPerSecond / static_cast<int64>(ETimeUnit::Millisecond);

/** Videos are hardly longer, and read as milliseconds it is less than a minute. */
constexpr int64 LongestVideo = 12 * 3600 * TicksPerSecond;

/** All times of a file as milliseconds would be within one second. */
constexpr int64 LeastMilliseconds = MillisecondsPerSecond * TicksPerSecond;

/** More comments a second, all the time, than anyone writes. */
constexpr int64 MaxDensity = 20;

ETimeUnit FindUnit(std::span<const FServiceComment> InComments, ETimeUnit InUsual)
{
	std::size_t NumLong = 0;
	std::size_t NumFractions = 0;
	int64 Longest = 0;
	for (const FServiceComment& Comment : InComments)
	{
		NumLong += Comment.SpawnTicks > LongestVideo ? 1 : 0;
		NumFractions += Comment.SpawnTicks % TicksPerSecond != 0 ? 1 : 0;
		Longest = std::max(Longest, Comment.SpawnTicks);
	}
	// A few wrong times do not make all others wrong.
	if (NumLong * 10 > InComments.size())
	{
		return ETimeUnit::Millisecond;
	}
	const auto Num = static_cast<int64>(InComments.size());
	const bool bDense = Num > Longest / LeastMilliseconds * MaxDensity;
	const bool bSeconds = NumFractions * 10 > InComments.size() || Longest < LeastMilliseconds || bDense;
	return bSeconds ? ETimeUnit::Second : InUsual;
}

} // namespace

void SettleTimeUnit(std::span<FServiceComment> InOutComments, ETimeUnit InUsual)
{
	if (FindUnit(InOutComments, InUsual) == ETimeUnit::Millisecond)
	{
		for (FServiceComment& Comment : InOutComments)
		{
			Comment.SpawnTicks /= MillisecondsPerSecond;
		}
	}
}

} // namespace Flitmark
