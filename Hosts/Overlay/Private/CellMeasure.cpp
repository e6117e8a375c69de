#include "Overlay/CellMeasure.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr double LineHeight = 1.2;

bool IsWide(UChar32 InCodePoint)
{
	const int32 Width = u_getIntPropertyValue(InCodePoint, UCHAR_EAST_ASIAN_WIDTH);
	return Width == U_EA_WIDE || Width == U_EA_FULLWIDTH || (InCodePoint >= 0x1F1E6 && InCodePoint <= 0x1F1FF) ||
		   (InCodePoint >= 0x1F300 && InCodePoint <= 0x1FAFF);
}

int64 CountHalfCells(UChar32 InCodePoint)
{
	if (InCodePoint < 0x300)
	{
		return 1;
	}
	if (IsWide(InCodePoint))
	{
		return 2;
	}
	return (U_MASK(u_charType(InCodePoint)) & U_GC_M_MASK) != 0 ? 0 : 1;
}

} // namespace

FVector2D FCellMeasure::Measure(const FString& InText, const FSlateFontInfo& InFontInfo)
{
	const std::u16string& Units = InText.GetStd();
	int64 Lines = 1;
	int64 Longest = 0;
	int64 Current = 0;
	for (std::size_t Index = 0; Index < Units.size();)
	{
		UChar32 CodePoint = 0;
		U16_NEXT(Units.data(), Index, Units.size(), CodePoint);
		if (CodePoint != u'\n' && CodePoint != u'\r')
		{
			Current += CountHalfCells(CodePoint);
			Longest = std::max(Longest, Current);
			continue;
		}
		if (CodePoint == u'\r' && Index < Units.size() && Units[Index] == u'\n')
		{
			++Index;
		}
		++Lines;
		Current = 0;
	}
	const double Em = static_cast<double>(std::max(InFontInfo.Size, 0.f)) * 96.0 / 72.0;
	return FVector2D(Em * (static_cast<double>(Longest) / 2.0), Em * LineHeight * static_cast<double>(Lines));
}

} // namespace Flitmark
