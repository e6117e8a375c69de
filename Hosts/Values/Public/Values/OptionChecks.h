#pragma once

#include <CLI/CLI.hpp>

#include <cstdio>
#include <limits>
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

/** The check of every numeric option: a number of that range, which NaN and infinities are not. */
inline CLI::Validator MakeNumberCheck(double InMin, double InMax = std::numeric_limits<double>::max())
{
	char Range[64];
	const bool bOpen = InMax == std::numeric_limits<double>::max();
	std::snprintf(Range, sizeof(Range), bOpen ? "of %g or more" : "from %g to %g", InMin, InMax);
	return CLI::Validator(
		[InMin, InMax, Refusal = "is not a number " + std::string(Range)](const std::string& InText)
		{
			double Number = 0.0;
			const bool bFits = CLI::detail::lexical_cast(InText, Number) && Number >= InMin && Number <= InMax;
			return bFits ? std::string() : "\"" + InText + "\" " + Refusal;
		},
		"");
}

} // namespace Flitmark
