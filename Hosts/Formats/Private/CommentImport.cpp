#include "Formats/CommentImport.h"

#include "DocumentImport.h"
#include "ImportSink.h"
#include "JsonImport.h"
#include "ProtobufImport.h"
#include "TextDecoding.h"
#include "XmlImport.h"

namespace Flitmark
{

namespace
{

bool ImportAs(ECommentFormat InFormat, IByteSource& InSource, FImportSink& OutSink, std::string& OutError)
{
	switch (InFormat)
	{
	case ECommentFormat::ListXml:
		ImportListXml(InSource, OutSink);
		return true;
	case ECommentFormat::ChatXml:
		ImportChatXml(InSource, OutSink);
		return true;
	case ECommentFormat::ListProtobuf:
		ImportListProtobuf(InSource, OutSink);
		return true;
	case ECommentFormat::Unknown:
		OutError =
			"is no comment file of a form that is known; it should be a comment document like {\"datas\": [...]}, "
			"or XML, JSON or binary messages as comment services have them";
		return false;
	case ECommentFormat::Own:
		return ImportDocument(InSource, OutSink, OutError);
	default:
		ImportJson(InSource, InFormat, OutSink);
		return true;
	}
}

} // namespace

bool ImportComments(IByteSource& InSource, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	std::string Head = InSource.ReadUpTo(DetectionSize);
	const ECommentFormat Format = DetectFormat(Head);
	OutResult.Report.Format = Format;
	FImportSink Sink(OutResult, InSource.GetSize());
	const bool bText = Format != ECommentFormat::ListProtobuf;
	const FTextEncoding Encoding = bText ? FindEncoding(Head) : FTextEncoding();
	if (!Encoding.Warning.empty())
	{
		Sink.AddWarning(Encoding.Warning);
	}
	const bool bEmpty = Head.empty();
	FDecodedSource Source(InSource, std::move(Head), Encoding);
	const bool bKnown = ImportAs(Format, Source, Sink, OutError);
	if (const std::string Error = InSource.GetError(); !Error.empty())
	{
		OutError = Error;
		return false;
	}
	if (bEmpty)
	{
		OutError = "is empty";
	}
	return bKnown;
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

ECommentFormat DetectFile(const std::filesystem::path& InPath)
{
	std::error_code Ignored;
	std::string Error;
	const std::unique_ptr<FFileSource> Source =
		std::filesystem::is_regular_file(InPath, Ignored) ? FFileSource::Open(InPath, Error) : nullptr;
	return Source ? DetectFormat(Source->ReadUpTo(DetectionSize)) : ECommentFormat::Unknown;
}

} // namespace Flitmark
