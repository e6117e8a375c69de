#include "Formats/CommentDocumentWriter.h"
#include "FormatsKit.h"
#include "Filtering/KindPolicy.h"

/** Any bytes through detection and decoding; what comes of them is written as our document and read again. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	using namespace Flitmark;
	const std::string_view Bytes = ToBytes(Data, Size);
	FImportResult Result;
	std::string Error;
	FMemorySource Source(Bytes, Size + 1);
	const bool bRead = ImportComments(Source, Result, Error);
	Require(bRead == Error.empty(), "there is an error message if, and only if, it failed");
	CheckResult(Result);

	FMemorySource Slow(Bytes, 3);
	FImportResult Again;
	ImportComments(Slow, Again, Error);
	Require(WriteCommentDocument(Again.Comments) == WriteCommentDocument(Result.Comments), "pieces make no difference");

	ApplyKindPolicy(Result.Comments, {});
	const std::string Written = WriteCommentDocument(Result.Comments);
	FMemorySource WrittenSource(Written, Written.size());
	Require(ImportComments(WrittenSource, Again, Error), "what was written can be read");
	Require(Again.Report.NumBroken == 0 && Again.Report.NumRepaired == 0, "what was written is whole");
	Require(WriteCommentDocument(Again.Comments) == Written, "what was written comes back to the byte");
	return 0;
}
