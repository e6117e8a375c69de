#pragma once

#include "CoreTypes.h"

namespace Flitmark
{

/**
 * Proportions of comment text, in ems. Shaping happens once, at a reference scale of UnitsPerEm; sizes only multiply.
 * Integer positions make sums independent of order, and so of threads and caches.
 */
namespace TextMetrics
{

/** Positions of shaped text per em, for every font alike; 4,096 characters stay far below 2^31. */
constexpr int32 UnitsPerEm = 65536;

/** Canvas units per point: points are 1/72 inch, canvas units 1/96. */
constexpr double CanvasUnitsPerPoint = 96.0 / 72.0;

/** Ink of ideographs reaches from 0.85 to -0.10, of Latin from 0.77 to -0.24; the outline comes on top of it. */
constexpr double LineHeight = 1.25;
constexpr double Baseline = 0.93;
constexpr double Outline = 1.0 / 16.0;

/** The outline is slightly translucent. */
constexpr uint8 OutlineAlpha = 204;

/** Advance of an emoji: an ideograph plus a little space. */
constexpr double EmojiAdvance = 1.0625;

constexpr double ToEms(int64 InUnits)
{
	return static_cast<double>(InUnits) / UnitsPerEm;
}

} // namespace TextMetrics

} // namespace Flitmark
