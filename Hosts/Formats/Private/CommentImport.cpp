#include "Formats/CommentImport.h"

#include "ImportSink.h"
#include "TextDecoding.h"

namespace Flitmark
{

namespace
{

std::string ListFormats()
{
	std::string Titles;
	for (const FCommentFormat* const Format : GetCommentFormats())
	{
		Titles.append(Titles.empty() ? "these are known: " : ", ").append(Format->Title);
	}
	return Titles;
}

} // namespace

uint64 FImportReport::CountSkipped() const
{
	uint64 Num = 0;
	for (const FSkippedEntries& Entries : Skipped)
	{
		Num += Entries.Num;
	}
	return Num;
}

bool ImportComments(IByteSource& InSource, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	std::string Head = InSource.ReadUpTo(DetectionSize);
	const FCommentFormat* const Format = DetectFormat(Head);
	OutResult.Report.Format = Format;
	if (Format == nullptr)
	{
		const std::string Error = InSource.GetError();
		OutError = !Error.empty() ? Error
				   : Head.empty() ? "is empty"
								  : "is not in any known format of comments; " + ListFormats();
		return false;
	}
	FImportSink Sink(OutResult, InSource.GetSize());
	const FTextEncoding Encoding = Format->Syntax == EFormatSyntax::Protobuf ? FTextEncoding() : FindEncoding(Head);
	if (!Encoding.Warning.empty())
	{
		Sink.AddWarning(Encoding.Warning);
	}
	FDecodedSource Source(InSource, std::move(Head), Encoding);
	const bool bRead = Format->Read(Source, Sink, OutError);
	if (std::string Error = InSource.GetError(); !Error.empty())
	{
		OutError = std::move(Error);
		return false;
	}
	return bRead;
}

bool ImportComments(const std::filesystem::path& InPath, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	const std::unique_ptr<FFileSource> Source = FFileSource::Open(InPath, OutError);
	if (!Source)
	{
		return false;
	}
	if (ImportComments(*Source, OutResult, OutError))
	{
		return true;
	}
	OutError = InPath.string() + ": " + OutError;
	return false;
}

} // namespace Flitmark
