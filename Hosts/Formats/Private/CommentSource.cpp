#include "Formats/CommentSource.h"

namespace Flitmark
{

namespace
{

/** Deflate without a header passes for nothing else, so it is tried last: if comments come of it, it was that. */
bool IsBareDeflate(std::string_view InHead)
{
	return DetectFormat(InHead) == nullptr &&
		   DetectFormat(UnpackHead(InHead, ECompression::Deflate, DetectionSize)) != nullptr;
}

} // namespace

std::unique_ptr<FCommentSource> FCommentSource::Open(const std::filesystem::path& InFile, std::string& OutError)
{
	std::unique_ptr<FFileSource> File = FFileSource::Open(InFile, OutError);
	return File ? std::unique_ptr<FCommentSource>(new FCommentSource(std::move(File))) : nullptr;
}

FCommentSource::FCommentSource(IByteSource& InSource)
{
	Begin(InSource);
}

FCommentSource::FCommentSource(std::unique_ptr<FFileSource> InFile)
	: File(std::move(InFile))
{
	Begin(*File);
}

void FCommentSource::Begin(IByteSource& InSource)
{
	std::string First = InSource.ReadUpTo(DetectionSize);
	ECompression Compression = FindCompression(First);
	if (Compression == ECompression::None && IsBareDeflate(First))
	{
		Compression = ECompression::Deflate;
	}
	Unpacked = std::make_unique<FUnpackedSource>(InSource, std::move(First), Compression);
	Head = Unpacked->ReadUpTo(DetectionSize);
	Format = DetectFormat(Head);
}

std::size_t FCommentSource::Read(char* OutData, std::size_t InSize)
{
	if (HeadPlace < Head.size())
	{
		const std::size_t Count = Head.copy(OutData, InSize, HeadPlace);
		HeadPlace += Count;
		return Count;
	}
	return Unpacked->Read(OutData, InSize);
}

} // namespace Flitmark
