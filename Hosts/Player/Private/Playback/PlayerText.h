#pragma once

#include <QString>

namespace Flitmark
{

/** "1.25×". */
QString FormatSpeed(double InSpeed);

/** libmpv's reason for not playing something, as the end of a sentence that a person understands. */
QString DescribePlaybackFault(const QString& InReason, bool bInAddress);

} // namespace Flitmark
