#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/* Where values stand in a text that a JSON reader has taken already, so that what is not changed can stay as it is. */

/** An object's member as the engine's JSON looks it up: the key in any case, the last of several. */
std::optional<std::string_view> FindJsonMember(std::string_view InObject, std::string_view InKey);

/** What a string's value says, quotes and escapes resolved; the text must be a JSON string. */
std::string UnquoteJson(std::string_view InQuoted);

/** Goes through the elements of a list. */
class FJsonElements
{
public:
	explicit FJsonElements(std::string_view InList)
		: List(InList)
	{
	}

	/** Empty after the last. */
	std::string_view Next();

private:
	std::string_view List;
	/** The bracket or comma before the next one. */
	std::size_t Place = 0;
};

} // namespace Flitmark
