#include "Containers/UnrealString.h"

#include <algorithm>

namespace
{

constexpr TCHAR ToUpperAscii(TCHAR Character)
{
	return Character >= u'a' && Character <= u'z' ? static_cast<TCHAR>(Character - u'a' + u'A') : Character;
}

constexpr bool IsDigit(TCHAR Character)
{
	return Character >= u'0' && Character <= u'9';
}

} // namespace

bool FStringView::Equals(FStringView Other, ESearchCase::Type SearchCase) const
{
	if (SearchCase == ESearchCase::CaseSensitive)
	{
		return static_cast<const std::u16string_view&>(*this) == static_cast<const std::u16string_view&>(Other);
	}
	return std::ranges::equal(*this, Other, [](TCHAR A, TCHAR B) { return ToUpperAscii(A) == ToUpperAscii(B); });
}

FString FString::Mid(int32 Start, int32 Count) const
{
	const int32 First = std::clamp(Start, 0, Len());
	const int32 Length = std::clamp(Count, 0, Len() - First);
	return FString(Data.substr(static_cast<std::size_t>(First), static_cast<std::size_t>(Length)));
}

FString FString::ToUpper() const
{
	FString Result(*this);
	std::ranges::transform(Result.Data, Result.Data.begin(), ToUpperAscii);
	return Result;
}

FString FString::FromInt(int32 Number)
{
	const std::string Digits = std::to_string(Number);
	return FString(std::u16string(Digits.begin(), Digits.end()));
}

bool FString::IsNumeric() const
{
	std::u16string_view Rest = Data;
	if (Rest.empty())
	{
		return false;
	}
	if (Rest.front() == u'-' || Rest.front() == u'+')
	{
		Rest.remove_prefix(1);
	}
	return std::ranges::count(Rest, u'.') <= 1 &&
		   std::ranges::all_of(Rest, [](TCHAR Character) { return Character == u'.' || IsDigit(Character); });
}
