#include "Misc/FileHelper.h"
#include "Utf8.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

namespace
{
std::u16string DecodeUtf16(const uint8* Bytes, std::size_t Size, bool bBigEndian)
{
	std::u16string Units(Size / 2, u'\0');
	for (std::size_t Index = 0; Index < Units.size(); ++Index)
	{
		const uint8 Low = Bytes[2 * Index + (bBigEndian ? 1 : 0)];
		const uint8 High = Bytes[2 * Index + (bBigEndian ? 0 : 1)];
		Units[Index] = static_cast<TCHAR>(High << 8 | Low);
	}
	return Units;
}
} // namespace

void FFileHelper::BufferToString(FString& Result, const uint8* Buffer, int32 Size)
{
	const std::size_t Bytes = static_cast<std::size_t>(Size);
	const auto StartsWith = [Buffer, Bytes](std::string_view Mark)
	{
		return Bytes >= Mark.size() && std::memcmp(Buffer, Mark.data(), Mark.size()) == 0;
	};
	if (StartsWith("\xFF\xFE") || StartsWith("\xFE\xFF"))
	{
		Result = FString(DecodeUtf16(Buffer + 2, Bytes - 2, Buffer[0] == 0xFE));
		return;
	}
	const std::size_t MarkSize = StartsWith("\xEF\xBB\xBF") ? 3 : 0;
	Result = FString(DecodeUtf8(Buffer + MarkSize, Bytes - MarkSize));
}

bool FFileHelper::LoadFileToString(FString& Result, const TCHAR* Filename)
{
	const std::filesystem::path Path(Filename);
	std::error_code Error;
	std::ifstream Stream(Path, std::ios::binary);
	if (!Stream || std::filesystem::is_directory(Path, Error))
	{
		return false;
	}
	const std::string Bytes{std::istreambuf_iterator<char>(Stream), {}};
	// The engine's strings can't hold more either.
	if (Stream.bad() || Bytes.size() > static_cast<std::size_t>(MAX_int32))
	{
		return false;
	}
	BufferToString(Result, reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return true;
}
