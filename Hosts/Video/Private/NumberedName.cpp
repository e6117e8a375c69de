#include "NumberedName.h"

#include <cctype>
#include <charconv>

namespace Flitmark
{

namespace
{

/** Takes "%d", "%5d" or "%05d" off the text's beginning; the number of digits, empty if it is none of these. */
std::optional<size_t> TakePlace(std::string_view& InOutText)
{
	constexpr size_t MostDigits = 18;
	size_t Digits = 0;
	const char* const End = InOutText.data() + InOutText.size();
	const char* Here = InOutText.data() + 1;
	if (Here != End && std::isdigit(static_cast<unsigned char>(*Here)) != 0)
	{
		const auto [Rest, Error] = std::from_chars(Here, End, Digits);
		Digits = Error == std::errc() ? Digits : MostDigits + 1;
		Here = Rest;
	}
	if (Here == End || *Here != 'd' || Digits > MostDigits)
	{
		return std::nullopt;
	}
	InOutText.remove_prefix(static_cast<size_t>(Here + 1 - InOutText.data()));
	return Digits;
}

} // namespace

std::optional<FNumberedName> FNumberedName::Parse(std::string_view InPattern)
{
	FNumberedName Name;
	bool bPlaced = false;
	while (!InPattern.empty())
	{
		std::string& Side = bPlaced ? Name.After : Name.Before;
		if (InPattern.starts_with("%%"))
		{
			Side += '%';
			InPattern.remove_prefix(2);
		}
		else if (InPattern[0] != '%')
		{
			Side += InPattern[0];
			InPattern.remove_prefix(1);
		}
		else
		{
			const std::optional<size_t> Digits = TakePlace(InPattern);
			if (!Digits || bPlaced)
			{
				return std::nullopt;
			}
			Name.Digits = *Digits;
			bPlaced = true;
		}
	}
	return bPlaced ? std::optional(Name) : std::nullopt;
}

std::string FNumberedName::Name(int64 InNumber) const
{
	const std::string Number = std::to_string(InNumber);
	return Before + (Number.size() < Digits ? std::string(Digits - Number.size(), '0') : std::string()) + Number +
		   After;
}

} // namespace Flitmark
