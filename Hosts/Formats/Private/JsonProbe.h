#pragma once

#include "Formats/CommentFormat.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace Flitmark
{

/** An object or a list in a JSON text, with what it has shown of itself so far. */
struct FJsonNode
{
	bool bList = false;
	/** It is an element of a list. */
	bool bInList = false;
	bool bStartsWithNumber = false;
	std::size_t NumCommas = 0;

	/** 1 for what is inside nothing. */
	std::size_t Depth = 0;

	/** Names and the first character of each value; only the first few dozen, which is enough to recognize an entry. */
	std::vector<std::pair<std::string_view, char>> Members;

	/** Whether there is a member of one of these names with such a value. */
	bool HasString(std::initializer_list<std::string_view> InNames) const;
	bool HasObject(std::string_view InName) const;
	bool HasList(std::string_view InName) const;
	/** Anything but an object or a list. */
	bool HasScalar(std::initializer_list<std::string_view> InNames) const;
};

/**
 * Walks through a text that may be JSON, or a script that passes JSON to a function. Certain from the first node on that
 * InMatches: each is shown after each of its members, a list at each of its strings.
 */
FFormatProbe ProbeJson(std::string_view InText, bool (*InMatches)(const FJsonNode& InNode));

/** Whether such a text begins with an object. */
bool IsJsonObject(std::string_view InText);

} // namespace Flitmark
