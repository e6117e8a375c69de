#include "Files/FileText.h"

#include "Containers/StringConv.h"
#include "Misc/FileHelper.h"

#include <limits>

namespace Flitmark
{

namespace
{

/** The most that the layer's strings count. */
constexpr std::size_t MaxFileSize = std::numeric_limits<int32>::max();

} // namespace

std::optional<std::string> LoadBytes(const std::filesystem::path& InFile, std::string& OutError)
{
	const std::unique_ptr<FFileSource> Source = FFileSource::Open(InFile, OutError);
	return Source ? LoadBytes(*Source, InFile.string(), OutError) : std::nullopt;
}

std::optional<std::string> LoadBytes(IByteSource& InSource, const std::string& InName, std::string& OutError)
{
	const uint64 Expected = InSource.GetSize();
	// One byte more, so that the end is seen without growing.
	std::size_t Room = Expected == 0 || Expected > MaxFileSize ? 65536 : static_cast<std::size_t>(Expected) + 1;
	std::string Bytes;
	std::size_t Filled = 0;
	while (true)
	{
		Bytes.resize(Filled + Room);
		std::size_t Read = 0;
		std::size_t Piece = 1;
		while (Read < Room && Piece > 0)
		{
			Piece = InSource.Read(Bytes.data() + Filled + Read, Room - Read);
			Read += Piece;
		}
		Filled += Read;
		if (Filled > MaxFileSize)
		{
			OutError = InName + ": is larger than 2 GiB, which is more than can be read";
			return std::nullopt;
		}
		if (Read < Room)
		{
			break;
		}
		Room = Filled;
	}
	if (!InSource.GetError().empty())
	{
		OutError = InName + ": " + InSource.GetError();
		return std::nullopt;
	}
	Bytes.resize(Filled);
	return Bytes;
}

std::optional<FString> LoadText(const std::filesystem::path& InFile, std::string& OutError)
{
	const std::optional<std::string> Bytes = LoadBytes(InFile, OutError);
	return Bytes ? std::optional(FromUtf8(*Bytes)) : std::nullopt;
}

FString FromUtf8(std::string_view InText)
{
	FString Result;
	FFileHelper::BufferToString(Result, reinterpret_cast<const uint8*>(InText.data()),
								static_cast<int32>(InText.size()));
	return Result;
}

std::string ToUtf8(const FString& InText)
{
	const FTCHARToUTF8 Converted(*InText, InText.Len());
	return std::string(Converted.Get(), static_cast<std::size_t>(Converted.Length()));
}

} // namespace Flitmark
