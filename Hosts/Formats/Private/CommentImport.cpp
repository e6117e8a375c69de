#include "Formats/CommentImport.h"

#include "ImportSink.h"
#include "JsonImport.h"
#include "ProtobufImport.h"
#include "TextDecoding.h"
#include "XmlImport.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace Flitmark
{

namespace
{

constexpr std::size_t HeadSize = std::size_t{64} << 10;

class FFileSource final : public IByteSource
{
public:
	explicit FFileSource(const std::filesystem::path& InPath)
		: File(std::fopen(InPath.c_str(), "rb"), &std::fclose)
	{
		NoteError(File == nullptr, "cannot be opened");
		std::error_code Ignored;
		const std::uintmax_t Known = std::filesystem::file_size(InPath, Ignored);
		Size = Ignored ? 0 : Known;
	}

	std::size_t Read(char* OutData, std::size_t InSize) override
	{
		if (File == nullptr)
		{
			return 0;
		}
		const std::size_t Read = std::fread(OutData, 1, InSize, File.get());
		NoteError(std::ferror(File.get()) != 0, "cannot be read");
		return Read;
	}

	uint64 GetSize() const override { return Size; }
	std::string GetError() const override { return Error; }

private:
	void NoteError(bool bInFailed, const char* InWhat)
	{
		if (bInFailed)
		{
			Error = std::string(InWhat) + ": " + std::strerror(errno);
		}
	}

	std::unique_ptr<std::FILE, int (*)(std::FILE*)> File;
	uint64 Size = 0;
	std::string Error;
};

std::string ReadHead(IByteSource& InSource)
{
	std::string Head(HeadSize, '\0');
	std::size_t Size = 0;
	while (Size < Head.size())
	{
		const std::size_t Read = InSource.Read(Head.data() + Size, Head.size() - Size);
		if (Read == 0)
		{
			break;
		}
		Size += Read;
	}
	Head.resize(Size);
	return Head;
}

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
	default:
		return ImportJson(InSource, InFormat, OutSink, OutError);
	}
}

} // namespace

bool ImportComments(IByteSource& InSource, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	std::string Head = ReadHead(InSource);
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
	std::error_code Ignored;
	if (std::filesystem::is_directory(InPath, Ignored))
	{
		OutResult = FImportResult();
		OutError = InPath.string() + ": is a folder, not a file";
		return false;
	}
	FFileSource Source(InPath);
	if (ImportComments(Source, OutResult, OutError))
	{
		return true;
	}
	OutError = InPath.string() + ": " + OutError;
	return false;
}

} // namespace Flitmark
