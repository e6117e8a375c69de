#include "JsonFormat.h"

#include "JsonEntries.h"

namespace Flitmark
{

void ReadJson(IByteSource& InSource, IJsonSchema& InSchema, FImportSink& OutSink)
{
	FJsonEntries(InSource, InSchema, OutSink).ReadAll();
}

} // namespace Flitmark
