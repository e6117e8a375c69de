#include "JsonNumbers.h"

#include <charconv>
#include <limits>
#include <string>
#include <string_view>

namespace
{
/** A double may be unable to hold more digits exactly. */
constexpr int32 MaxExactDigits = 15;

bool IsDigit(TCHAR Character)
{
	return Character >= u'0' && Character <= u'9';
}

bool IsNumberCharacter(TCHAR Character)
{
	return IsDigit(Character) || Character == u'-' || Character == u'+' || Character == u'.' || Character == u'e' ||
		   Character == u'E';
}

/** For a number out of a double's range: whether it is too large; otherwise it's too small. */
bool IsLarge(std::string_view Number)
{
	const std::size_t MantissaEnd = std::min(Number.find_first_of("eE"), Number.size());
	const std::size_t First = Number.find_first_of("123456789");
	const std::size_t Dot = std::min(Number.find('.'), MantissaEnd);
	// The decimal exponent of the first significant digit.
	int64 Exponent = static_cast<int64>(Dot) - static_cast<int64>(First);
	if (MantissaEnd != Number.size())
	{
		const bool bNegative = Number[MantissaEnd + 1] == '-';
		const bool bSigned = bNegative || Number[MantissaEnd + 1] == '+';
		int64 Written = 0;
		for (const char Digit : Number.substr(MantissaEnd + (bSigned ? 2 : 1)))
		{
			// No text is long enough to make up for 10^12.
			Written = std::min<int64>(Written * 10 + (Digit - '0'), 1'000'000'000'000);
		}
		Exponent += bNegative ? -Written : Written;
	}
	return Exponent > 0;
}

double ParseSlowly(const TCHAR* Begin, const TCHAR* End)
{
	const TCHAR* NumberEnd = Begin;
	while (NumberEnd != End && IsNumberCharacter(*NumberEnd))
	{
		++NumberEnd;
	}
	std::string Narrow;
	Narrow.reserve(static_cast<std::size_t>(NumberEnd - Begin));
	for (const TCHAR* At = Begin; At != NumberEnd; ++At)
	{
		Narrow.push_back(static_cast<char>(*At));
	}
	double Number = 0.0;
	const auto [Stop, Error] = std::from_chars(Narrow.data(), Narrow.data() + Narrow.size(), Number);
	if (Error == std::errc::result_out_of_range)
	{
		Number = IsLarge(std::string_view(Narrow.data(), Stop)) ? std::numeric_limits<double>::infinity() : 0.0;
		return Narrow[0] == '-' ? -Number : Number;
	}
	return Number;
}
} // namespace

double ParseDecimal(const TCHAR* Begin, const TCHAR* End)
{
	const bool bNegative = Begin != End && *Begin == u'-';
	const TCHAR* const Digits = Begin + (bNegative ? 1 : 0);
	const TCHAR* At = Digits;
	int64 Integer = 0;
	while (At != End && IsDigit(*At) && At - Digits <= MaxExactDigits)
	{
		Integer = Integer * 10 + (*At++ - u'0');
	}
	const bool bWhole = At == End || !IsNumberCharacter(*At);
	if (!bWhole || At - Digits > MaxExactDigits)
	{
		return ParseSlowly(Begin, End);
	}
	const double Number = static_cast<double>(Integer);
	return bNegative ? -Number : Number;
}

FString FormatDecimal(double Number)
{
	// The largest double has 309 digits before the decimal point.
	char Buffer[336];
	const auto Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Number, std::chars_format::fixed, 6);
	std::string_view Digits(Buffer, Result.ptr);
	if (Digits.find('.') != std::string_view::npos)
	{
		Digits = Digits.substr(0, Digits.find_last_not_of('0') + 1);
		Digits = Digits.substr(0, Digits.find_last_not_of('.') + 1);
	}
	if (Number == 0.0)
	{
		Digits = "0";
	}
	return FString(std::u16string(Digits.begin(), Digits.end()));
}
