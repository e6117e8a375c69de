#include "JsonImport.h"

#include "JsonEntries.h"

namespace Flitmark
{

namespace
{

std::unique_ptr<IJsonForm> MakeForm(ECommentFormat InFormat)
{
	switch (InFormat)
	{
	case ECommentFormat::ParametersJson:
		return MakeParametersForm();
	case ECommentFormat::RowsJson:
		return MakeRowsForm();
	case ECommentFormat::ChatJson:
		return MakeChatForm();
	default:
		return MakeObjectsForm();
	}
}

} // namespace

void ImportJson(IByteSource& InSource, ECommentFormat InFormat, FImportSink& OutSink)
{
	const std::unique_ptr<IJsonForm> Form = MakeForm(InFormat);
	FJsonEntries Entries(InSource, *Form, OutSink);
	Entries.ReadAll();
}

} // namespace Flitmark
