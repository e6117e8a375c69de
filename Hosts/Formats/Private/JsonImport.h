#pragma once

#include "Files/ByteSource.h"
#include "ImportSink.h"

namespace Flitmark
{

/** Reads one of the JSON formats of services from UTF-8. */
void ImportJson(IByteSource& InSource, ECommentFormat InFormat, FImportSink& OutSink);

} // namespace Flitmark
