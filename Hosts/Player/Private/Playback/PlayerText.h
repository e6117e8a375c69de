#pragma once

#include <QString>

#include <optional>

namespace Flitmark
{

/** "1:05", or "1:01:05" from an hour on; fractions are left out, and what is no time at all is "0:00". */
QString FormatTime(double InSeconds);

/** "90", "90.5", "1:30" or "0:01:30.25" as seconds; empty for anything else. */
std::optional<double> ParseTime(const QString& InText);

/** "1.25×". */
QString FormatSpeed(double InSpeed);

/** libmpv's reason for not playing something, as the end of a sentence that a person understands. */
QString DescribePlaybackFault(const QString& InReason, bool bInAddress);

} // namespace Flitmark
