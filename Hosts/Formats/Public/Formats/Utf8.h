#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unicode/utf8.h>

namespace Flitmark
{

/** The character at an offset, which moves past it; negative if the bytes there are not UTF-8. */
inline UChar32 TakeCharacter(std::string_view InText, std::size_t& InOutOffset)
{
	UChar32 Character = 0;
	// What ICU's macro narrows.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
	U8_NEXT(InText.data(), InOutOffset, InText.size(), Character);
#pragma GCC diagnostic pop
	return Character;
}

/** U+FFFD for a surrogate or a number that is not a character. */
inline void AppendCharacter(std::string& OutText, uint32 InCharacter)
{
	char Bytes[U8_MAX_LENGTH];
	int32 Length = 0;
	const bool bScalar = InCharacter <= 0x10FFFF && !U_IS_SURROGATE(InCharacter);
	U8_APPEND_UNSAFE(Bytes, Length, bScalar ? InCharacter : 0xFFFDU);
	OutText.append(Bytes, static_cast<std::size_t>(Length));
}

} // namespace Flitmark
