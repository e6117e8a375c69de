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
	case ECommentFormat::ObjectsJson:
		return MakeObjectsForm();
	default:
		return MakeOwnForm();
	}
}

} // namespace

bool ImportJson(IByteSource& InSource, ECommentFormat InFormat, FImportSink& OutSink, std::string& OutError)
{
	const std::unique_ptr<IJsonForm> Form = MakeForm(InFormat);
	FJsonEntries Entries(InSource, *Form, OutSink);
	Entries.ReadAll();
	if (InFormat == ECommentFormat::Own && !Entries.HasFoundList())
	{
		OutError = "holds no list of comments named \"datas\", nor comments of a form that is known";
		return false;
	}
	return true;
}

} // namespace Flitmark
