#pragma once

#include "Playback/CommentLoader.h"

#include <QString>

#include <atomic>

namespace Flitmark
{

/**
 * Reads a file of comments in any known form. False with the reason, as the end of a sentence, where it cannot be read
 * or is none, and where InCancel was set meanwhile.
 */
bool ReadComments(const QString& InPath, const std::atomic<bool>& InCancel, FLoadedComments& OutComments,
				  QString& OutReason);

} // namespace Flitmark
