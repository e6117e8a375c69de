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

/** The whole second under which the overlay files the comment: cut off toward 0. */
int64 GetSecond(const FServiceComment& InComment);

/** Whether any media time looks that second up. */
bool IsReached(const FServiceComment& InComment);

/** Whether a viewer can see it: of a kind that is served, reached, and with text, size and colour. */
bool IsVisible(const FServiceComment& InComment);

/** The text without white space at its ends, and with one space for each run of it within. */
std::string NormaliseSpace(std::string_view InText);

} // namespace Flitmark
