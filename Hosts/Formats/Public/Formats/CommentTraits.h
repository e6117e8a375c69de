#pragma once

#include "CoreTypes.h"
#include "Misc/Timespan.h"
#include "Formats/ServiceComment.h"

#include <string>
#include <string_view>

namespace Flitmark
{

using ETimespan::TicksPerSecond;

/** The overlay looks comments up by whole seconds of a day. */
constexpr int64 SecondsPerDay = 86'400;

/** The whole second under which the overlay files a comment of that media time: cut off toward 0. */
constexpr int64 GetSecond(int64 InSpawnTicks)
{
	return InSpawnTicks / TicksPerSecond;
}
inline int64 GetSecond(const FServiceComment& InComment)
{
	return GetSecond(InComment.SpawnTicks);
}

/*
 * What it takes for a viewer to see a comment. Whoever reports, filters or counts asks here, so that all agree. Sizes
 * that are too large for a canvas are not known here: they depend on it.
 */

/** Whether the overlay ever looks its second up. */
constexpr bool IsReached(int64 InSpawnTicks)
{
	return GetSecond(InSpawnTicks) >= 0 && GetSecond(InSpawnTicks) < SecondsPerDay;
}
inline bool IsReached(const FServiceComment& InComment)
{
	return IsReached(InComment.SpawnTicks);
}

/** Whether the overlay has lanes for its kind. */
constexpr bool IsServed(ECommentKind InKind)
{
	return InKind == ECommentKind::Scroll || InKind == ECommentKind::Top || InKind == ECommentKind::Bottom;
}

constexpr bool HasSize(int32 InFontSize)
{
	return InFontSize > 0;
}

/** InColor: 0xRRGGBBAA. */
constexpr bool HasColor(uint32 InColor)
{
	return (InColor & 0xFF) != 0;
}

/** Whether there is more to it than white space, control characters and those that Unicode wants ignored. */
bool HasText(std::string_view InText);
bool HasText(std::u16string_view InText);

/** All of these. */
bool IsVisible(const FServiceComment& InComment);

/** The text without white space at its ends, and with one space for each run of it within. */
std::string NormalizeSpace(std::string_view InText);

} // namespace Flitmark
