#pragma once

#include "Formats/ByteSource.h"
#include "ImportSink.h"

namespace Flitmark
{

/** Reads one of the JSON formats from UTF-8; false with the reason where it is none. */
bool ImportJson(IByteSource& InSource, ECommentFormat InFormat, FImportSink& OutSink, std::string& OutError);

} // namespace Flitmark
