#pragma once

#include "Files/ByteSource.h"
#include "ImportSink.h"

namespace Flitmark
{

/**
 * Reads our own document from UTF-8, whole or not at all: of one that is broken the overlay shows nothing. False with the
 * reason.
 */
bool ImportDocument(IByteSource& InSource, FImportSink& OutSink, std::string& OutError);

} // namespace Flitmark
