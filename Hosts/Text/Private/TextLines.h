#pragma once

#include "CoreTypes.h"

#include <string_view>
#include <vector>

namespace Flitmark
{

/** The part of a text that is laid out: up to FTextLimits::MaxCodeUnits, without splitting a surrogate pair. */
std::u16string_view LimitText(std::u16string_view InText);

/** Splits a text at LF, CR LF, and CR: one line more than there are line ends. */
class FTextLines
{
public:
	explicit FTextLines(std::u16string_view InText)
		: Rest(InText)
	{
	}

	/**
	 * The next line's characters; false after the last. Lone surrogates become U+FFFD, tabs an em space; control
	 * characters and other non-text characters are dropped.
	 */
	bool Next(std::vector<uint32>& OutPoints);

private:
	std::u16string_view Rest;
	bool bDone = false;
};

} // namespace Flitmark
