#include "Formats/CommentImport.h"

#include "Formats/CommentSource.h"
#include "Formats/ForeignFile.h"
#include "ImportSink.h"
#include "TextDecoding.h"

namespace Flitmark
{

namespace
{

bool Import(FCommentSource& InSource, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	const FCommentFormat* const Format = InSource.GetFormat();
	const std::string_view Head = InSource.GetHead();
	OutResult.Report.Format = Format;
	if (Format == nullptr)
	{
		OutError = InSource.GetError();
		OutError = OutError.empty() ? DescribeForeign(Head) : OutError;
		return false;
	}
	FImportSink Sink(OutResult, InSource.GetSize());
	const FTextEncoding Encoding = Format->Syntax == EFormatSyntax::Protobuf ? FTextEncoding() : FindEncoding(Head);
	if (!Encoding.Warning.empty())
	{
		Sink.AddWarning(Encoding.Warning);
	}
	FDecodedSource Source(InSource, InSource.ReadUpTo(Encoding.MarkSize), Encoding);
	const bool bRead = Format->Read(Source, Sink, OutError);
	if (std::string Error = InSource.GetError(); !Error.empty())
	{
		OutError = std::move(Error);
		return false;
	}
	if (!InSource.GetDamage().empty())
	{
		Sink.AddWarning(InSource.GetDamage());
	}
	return bRead;
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
	FCommentSource Source(InSource);
	return Import(Source, OutResult, OutError);
}

bool ImportComments(const std::filesystem::path& InPath, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	const std::unique_ptr<FCommentSource> Source = FCommentSource::Open(InPath, OutError);
	if (!Source)
	{
		return false;
	}
	if (Import(*Source, OutResult, OutError))
	{
		return true;
	}
	OutError = InPath.string() + ": " + OutError;
	return false;
}

} // namespace Flitmark
