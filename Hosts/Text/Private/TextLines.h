#pragma once

#include "CoreTypes.h"

#include <string_view>
#include <vector>

namespace Flitmark
{

/** The part of a text that is set: the start of it, up to FTextLimits::MaxCodeUnits and not within a pair. */
std::u16string_view LimitText(std::u16string_view InText);

/** Takes a text apart at LF, CR LF and CR: one line more than there are line ends. */
class FTextLines
{
public:
	explicit FTextLines(std::u16string_view InText)
		: Rest(InText)
	{
	}

	/**
	 * The next line's characters; false after the last. Lone surrogates become U+FFFD, a tab an em space; control
	 * characters and others that are no text are left out.
	 */
	bool Next(std::vector<uint32>& OutPoints);

private:
	std::u16string_view Rest;
	bool bDone = false;
};

} // namespace Flitmark
