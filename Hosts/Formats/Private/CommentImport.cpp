#include "Formats/CommentImport.h"

#include "ImportSink.h"
#include "TextDecoding.h"

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

std::string ListFormats()
{
	std::string Titles;
	for (const FCommentFormat* const Format : GetCommentFormats())
	{
		Titles.append(Titles.empty() ? "these are known: " : ", ").append(Format->Title);
	}
	return Titles;
}

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

} // namespace

bool ImportComments(IByteSource& InSource, FImportResult& OutResult, std::string& OutError)
{
	OutResult = FImportResult();
	std::string Head = ReadHead(InSource);
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
