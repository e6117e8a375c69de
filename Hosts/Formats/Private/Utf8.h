#pragma once

#include <cstddef>
#include <string_view>
#include <unicode/utf8.h>

namespace Flitmark
{

/** The character at a place, which moves behind it; negative where the bytes there are none. */
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

} // namespace Flitmark
