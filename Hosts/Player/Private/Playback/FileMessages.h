#pragma once

#include <QString>

namespace Flitmark
{

/**
 * A message of the readers of files in the viewer's language, as far as its pattern is known; the rest stays as it is.
 * From any thread.
 */
QString TranslateFileMessage(const QString& InEnglish);

} // namespace Flitmark
