#include "TextLines.h"

#include "Text/TextLimits.h"

namespace Flitmark
{

namespace
{

bool IsHigh(char16_t InUnit)
{
	return (InUnit & 0xfc00U) == 0xd800U;
}

bool IsLow(char16_t InUnit)
{
	return (InUnit & 0xfc00U) == 0xdc00U;
}

/** Control characters, separators that do not end lines here, byte order marks, annotation marks. */
bool IsDropped(uint32 InPoint)
{
	return InPoint < 0x20 || (InPoint >= 0x7f && InPoint <= 0x9f) || InPoint == 0x2028 || InPoint == 0x2029 ||
		   InPoint == 0xfeff || (InPoint >= 0xfff9 && InPoint <= 0xfffb);
}

void Decode(std::u16string_view InLine, std::vector<uint32>& OutPoints)
{
	constexpr uint32 Replacement = 0xfffd;
	constexpr uint32 EmSpace = 0x2003;
	OutPoints.clear();
	for (std::size_t Index = 0; Index < InLine.size(); ++Index)
	{
		uint32 Point = InLine[Index];
		if (IsHigh(InLine[Index]) && Index + 1 < InLine.size() && IsLow(InLine[Index + 1]))
		{
			Point = 0x10000U + ((Point & 0x3ffU) << 10U) + (InLine[++Index] & 0x3ffU);
		}
		else if (IsHigh(InLine[Index]) || IsLow(InLine[Index]))
		{
			Point = Replacement;
		}
		if (Point == u'\t')
		{
			OutPoints.push_back(EmSpace);
		}
		else if (!IsDropped(Point))
		{
			OutPoints.push_back(Point);
		}
	}
}

} // namespace

std::u16string_view LimitText(std::u16string_view InText)
{
	if (InText.size() <= FTextLimits::MaxCodeUnits)
	{
		return InText;
	}
	const std::size_t Count = FTextLimits::MaxCodeUnits;
	const bool bWithinPair = IsHigh(InText[Count - 1]) && IsLow(InText[Count]);
	return InText.substr(0, bWithinPair ? Count - 1 : Count);
}

bool FTextLines::Next(std::vector<uint32>& OutPoints)
{
	if (bDone)
	{
		return false;
	}
	std::size_t End = 0;
	while (End < Rest.size() && Rest[End] != u'\n' && Rest[End] != u'\r')
	{
		++End;
	}
	Decode(Rest.substr(0, End), OutPoints);
	bDone = End == Rest.size();
	if (!bDone)
	{
		const bool bPair = Rest[End] == u'\r' && End + 1 < Rest.size() && Rest[End + 1] == u'\n';
		Rest.remove_prefix(End + (bPair ? 2 : 1));
	}
	return true;
}

} // namespace Flitmark
