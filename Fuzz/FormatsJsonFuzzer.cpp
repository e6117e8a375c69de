#include "FormatsKit.h"
#include "JsonImport.h"

/** Any bytes as every form of JSON but our own document. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	using namespace Flitmark;
	using enum ECommentFormat;
	for (const ECommentFormat Format : {ParametersJson, RowsJson, ChatJson, ObjectsJson})
	{
		ImportChecked(ToBytes(Data, Size),
					  [Format](IByteSource& InSource, FImportSink& OutSink)
					  {
						  std::string Error;
						  ImportJson(InSource, Format, OutSink, Error);
					  });
	}
	return 0;
}
