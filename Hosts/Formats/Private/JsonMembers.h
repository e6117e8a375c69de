#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/* Where values stand in a text that a JSON reader has taken already, so that what is not changed can stay as it is. */

/** An object's member as the engine's JSON looks it up: the key in any case, the last of several. */
std::optional<std::string_view> FindJsonMember(std::string_view InObject, std::string_view InKey);

/** What a string in its quotes says. */
std::string UnquoteJson(std::string_view InQuoted);

/** A member that is a whole number of any size, which the layer's JSON only knows as the nearest double; 0 if it is none. */
int64 ReadJsonId(std::string_view InObject, std::string_view InKey);

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
