#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Flitmark
{

/** A check of an option's text by a function that gives an empty optional for what it can't read. */
template <class FParse>
CLI::Validator MakeCheck(FParse InParse, std::string InRefusal)
{
	return CLI::Validator([InParse, InRefusal](const std::string& InText)
						  { return InParse(InText) ? std::string() : "\"" + InText + "\" " + InRefusal; },
						  "");
}

} // namespace Flitmark
