#pragma once

#include "Values/VisibleText.h"

#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

namespace Flitmark
{

// What the program says, made visible (see MakeVisible), since names and tags in it come from anywhere: text from outside
// reaches the terminal only through these functions. Documents, traces and listings are data.

/** "flitmark: what, where, what to do" on standard error; gives the exit status of a failure. */
int PrintError(const std::string& InMessage);

/** The same for what is worth knowing but not a failure. */
void PrintNote(const std::string& InMessage);
void PrintNotes(const std::vector<std::string>& InMessages);

/** One line on standard error without the program's name. */
void PrintPlainError(const std::string& InLine);

/** A part of a report on standard output, as std::printf writes it; its texts are std::string. */
template <class... FParts>
void PrintReport(const char* InFormat, const FParts&... InParts)
{
	const auto ToArgument = []<class FPart>(const FPart& InPart)
	{
		if constexpr (std::is_same_v<FPart, std::string>)
		{
			return InPart.c_str();
		}
		else
		{
			static_assert(std::is_arithmetic_v<FPart>, "texts are std::string");
			return InPart;
		}
	};
	const auto ToVisible = []<class FPart>(const FPart& InPart)
	{
		if constexpr (std::is_same_v<FPart, std::string>)
		{
			return MakeVisible(InPart);
		}
		else
		{
			return InPart;
		}
	};
	[&](const auto&... InVisible)
	{
		std::printf(InFormat, ToArgument(InVisible)...);
	}(ToVisible(InParts)...);
}

} // namespace Flitmark
