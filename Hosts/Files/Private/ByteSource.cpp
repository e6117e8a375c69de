#include "Files/ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace Flitmark
{

std::string IByteSource::ReadUpTo(std::size_t InSize)
{
	std::string Bytes(InSize, '\0');
	std::size_t Filled = 0;
	while (Filled < InSize)
	{
		const std::size_t Count = Read(Bytes.data() + Filled, InSize - Filled);
		if (Count == 0)
		{
			break;
		}
		Filled += Count;
	}
	Bytes.resize(Filled);
	return Bytes;
}

FMemorySource::FMemorySource(std::string_view InBytes, std::size_t InPieceSize)
	: Rest(InBytes)
	, Size(InBytes.size())
	, PieceSize(InPieceSize)
{
}

std::size_t FMemorySource::Read(char* OutData, std::size_t InSize)
{
	const std::size_t Count = Rest.copy(OutData, std::min(InSize, PieceSize));
	Rest.remove_prefix(Count);
	return Count;
}

std::unique_ptr<FFileSource> FFileSource::Open(const std::filesystem::path& InFile, std::string& OutError)
{
	std::error_code Ignored;
	if (std::filesystem::is_directory(InFile, Ignored))
	{
		OutError = InFile.string() + ": is a folder, not a file";
		return nullptr;
	}
	std::FILE* const Opened = std::fopen(InFile.c_str(), "rb");
	if (Opened == nullptr)
	{
		OutError = InFile.string() + ": cannot be opened: " + std::strerror(errno);
		return nullptr;
	}
	std::unique_ptr<FFileSource> Source(new FFileSource(Opened));
	// A pipe has no size.
	const std::uintmax_t Known = std::filesystem::file_size(InFile, Ignored);
	Source->Size = Ignored ? 0 : Known;
	return Source;
}

std::size_t FFileSource::Read(char* OutData, std::size_t InSize)
{
	const std::size_t Count = std::fread(OutData, 1, InSize, File.get());
	if (std::ferror(File.get()) != 0)
	{
		Error = std::string("cannot be read: ") + std::strerror(errno);
	}
	return Count;
}

} // namespace Flitmark
