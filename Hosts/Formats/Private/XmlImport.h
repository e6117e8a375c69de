#pragma once

#include "Formats/ByteSource.h"
#include "ImportSink.h"

namespace Flitmark
{

/** Reads `<d p="...">text</d>` from UTF-8. */
void ImportListXml(IByteSource& InSource, FImportSink& OutSink);

/** Reads `<chat vpos="..." mail="...">text</chat>` from UTF-8. */
void ImportChatXml(IByteSource& InSource, FImportSink& OutSink);

} // namespace Flitmark
