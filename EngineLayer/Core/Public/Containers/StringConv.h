#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

#include <cstring>
#include <string>

namespace StringConv
{
constexpr bool IsHighSurrogate(const uint32 Codepoint)
{
	return Codepoint >= 0xD800 && Codepoint <= 0xDBFF;
}
constexpr bool IsLowSurrogate(const uint32 Codepoint)
{
	return Codepoint >= 0xDC00 && Codepoint <= 0xDFFF;
}
} // namespace StringConv

/** UTF-8 bytes as UTF-16. Each maximal invalid subpart becomes one U+FFFD, as Unicode recommends. */
class FUTF8ToTCHAR
{
public:
	/** Up to the NUL. */
	explicit FUTF8ToTCHAR(const char* Source)
		: FUTF8ToTCHAR(Source, static_cast<int32>(std::strlen(Source)))
	{
	}
	ENGINELAYER_API FUTF8ToTCHAR(const char* Source, int32 SourceLen);

	/** Ends in a NUL, which Length doesn't count. */
	const TCHAR* Get() const { return Converted.c_str(); }
	int32 Length() const { return static_cast<int32>(Converted.size()); }

private:
	std::u16string Converted;
};

/** UTF-16 as UTF-8 bytes; half a surrogate pair becomes U+FFFD. */
class FTCHARToUTF8
{
public:
	/** Up to the NUL. */
	explicit FTCHARToUTF8(const TCHAR* Source)
		: FTCHARToUTF8(Source, FStringView(Source).Len())
	{
	}
	ENGINELAYER_API FTCHARToUTF8(const TCHAR* Source, int32 SourceLen);

	/** Ends in a NUL, which Length doesn't count. */
	const char* Get() const { return Converted.c_str(); }
	int32 Length() const { return static_cast<int32>(Converted.size()); }

private:
	std::string Converted;
};

// Valid only until the end of the full expression.
#define TCHAR_TO_UTF8(Text) (FTCHARToUTF8(Text).Get())
#define UTF8_TO_TCHAR(Text) (FUTF8ToTCHAR(Text).Get())
