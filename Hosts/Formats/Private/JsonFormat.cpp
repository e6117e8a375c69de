#include "JsonFormat.h"

#include "JsonEntries.h"

namespace Flitmark
{

bool ReadJson(IByteSource& InSource, IJsonSchema& InSchema, FImportSink& OutSink, std::string& OutError)
{
	FJsonEntries Entries(InSource, InSchema, OutSink);
	Entries.ReadAll();
	const std::string_view List = InSchema.GetListName();
	if (!List.empty() && !Entries.HasFoundList())
	{
		OutError = "holds no list of comments named \"" + std::string(List) + "\", nor comments in any known format";
		return false;
	}
	return true;
}

} // namespace Flitmark
