#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * Text from outside (a file's name, a tag, a library's message) as a terminal may show it: characters that it would act on
 * as "\u001b", and bytes that are not UTF-8 as "\xff". A text without them stays as it is.
 */
std::string MakeVisible(std::string_view InText);

/** Whether terminals act on a character: controls, line ends, and marks that turn the direction of what follows. */
bool IsActedOn(char32_t InCharacter);

} // namespace Flitmark
