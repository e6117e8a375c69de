#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <optional>
#include <string_view>

namespace Flitmark
{

/** A number as people and programs write it, also with blanks around it or a plus sign. */
std::optional<double> ParseNumber(std::string_view InText);

/** A whole number; a fraction is cut off, a number that is too large becomes the nearest that fits. */
std::optional<int64> ParseInteger(std::string_view InText);

/** Units in which services write media times, as ticks of 100 ns. */
enum class ETimeUnit : int32
{
	Millisecond = 10'000,
	Hundredth = 100'000,
	Second = 10'000'000
};

/** A media time as ticks; nothing if it is not a number or beyond 10,000 years. */
std::optional<int64> ParseTicks(std::string_view InText, ETimeUnit InUnit);

/** `16711680`, `#FF0000` or `#F00` as 0xRRGGBBAA, opaque. */
std::optional<uint32> ParseColor(std::string_view InText);

/** Seconds or milliseconds since 1970, whichever the size suggests, as seconds; 0 if unreadable. */
int64 ParseUnixDate(std::string_view InText);

/** `2026-01-31T20:15:00+09:00`, and with dots and dashes between the parts; as Unix seconds, 0 if unreadable. */
int64 ParseDate(std::string_view InText);

/** Either of the two. */
int64 ParseAnyDate(std::string_view InText);

/** FNV-1a. */
uint32 HashUser(std::string_view InText);

/** A number as it is, a text's hash, 0 for nothing. */
int64 MakeUserId(std::string_view InText);

/** Points from a size of a service whose normal size is given; the normal one if it is missing or unreadable. */
int32 ScaleSize(std::string_view InSize, double InNormal);

/** Splits a list into its parts, one by one. */
class FFieldSplitter
{
public:
	FFieldSplitter(std::string_view InText, char InSeparator)
		: Rest(InText)
		, Separator(InSeparator)
	{
	}

	/** Empty after the last. */
	std::string_view Next()
	{
		const std::size_t End = Rest.find(Separator);
		const std::string_view Field = Rest.substr(0, End);
		Rest = End == std::string_view::npos ? std::string_view() : Rest.substr(End + 1);
		return Field;
	}

private:
	std::string_view Rest;
	char Separator;
};

} // namespace Flitmark
