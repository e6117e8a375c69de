#include "Stage/Files.h"

#include "Containers/StringConv.h"
#include "Misc/FileHelper.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>

namespace Flitmark
{

namespace
{

/** The most that the layer's strings count. */
constexpr std::size_t MaxFileSize = std::numeric_limits<int32>::max();

/** Why the last call failed. */
std::string Reason()
{
	return std::strerror(errno);
}

} // namespace

std::optional<std::string> LoadBytes(const std::filesystem::path& InFile, std::string& OutError)
{
	std::error_code Ignored;
	if (std::filesystem::is_directory(InFile, Ignored))
	{
		OutError = InFile.string() + ": is a folder, not a file";
		return std::nullopt;
	}
	const std::unique_ptr<std::FILE, int (*)(std::FILE*)> File(std::fopen(InFile.c_str(), "rb"), &std::fclose);
	if (File == nullptr)
	{
		OutError = InFile.string() + ": cannot be opened: " + Reason();
		return std::nullopt;
	}
	std::string Bytes;
	const std::uintmax_t Expected = std::filesystem::file_size(InFile, Ignored);
	// One byte more, so that the end is seen without growing; a pipe has no size.
	std::size_t Room = Ignored || Expected > MaxFileSize ? 65536 : static_cast<std::size_t>(Expected) + 1;
	std::size_t Filled = 0;
	while (true)
	{
		Bytes.resize(Filled + Room);
		const std::size_t Read = std::fread(Bytes.data() + Filled, 1, Room, File.get());
		Filled += Read;
		if (Filled > MaxFileSize)
		{
			OutError = InFile.string() + ": is larger than 2 GiB, which is more than can be read";
			return std::nullopt;
		}
		if (Read < Room)
		{
			break;
		}
		Room = Filled;
	}
	if (std::ferror(File.get()) != 0)
	{
		OutError = InFile.string() + ": cannot be read: " + Reason();
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
