#pragma once

#include "CoreTypes.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** What is blocked by a file: one that a person wrote, or a list that a service exported. */
struct FBlockList
{
	/** Parts of texts, in any case. */
	std::vector<std::string> Words;

	/** Regular expressions that match parts of texts; RE2's syntax. */
	std::vector<std::string> Patterns;

	/** As FFilterOptions::BlockUsers. */
	std::vector<std::string> Users;

	/** Entries of a service's list that are switched off. */
	int64 NumDisabled = 0;

	/** Entries of a service's list that cannot be applied, for people, such as `entry 3: ...`. */
	std::vector<std::string> Unusable;

	/**
	 * Reads a list: a person's, one entry a line, or a service's, XML or JSON, with a type (0 or `t` text, 1 or `r`
	 * regular expression, 2 or `u` user) and a filter each. Empty with OutError, such as `line 3: ...`, if it is none.
	 */
	static std::optional<FBlockList> Parse(std::string_view InText, std::string& OutError);
};

} // namespace Flitmark
