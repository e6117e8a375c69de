#pragma once

#include "Formats/ByteSource.h"
#include "ImportSink.h"

#include <string_view>

namespace Flitmark
{

/** Whether a file that begins so can be nothing but the binary form of a list. */
bool IsListProtobuf(std::string_view InHead);

/** Reads the binary form of a list, one or more segments one after the other. */
void ImportListProtobuf(IByteSource& InSource, FImportSink& OutSink);

} // namespace Flitmark
