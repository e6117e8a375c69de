#include "DensityPictureText.h"

#include "CoreTypes.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

namespace Flitmark
{

namespace
{

double GuessCharacterWidth(UChar32 InCharacter)
{
	const auto Width = static_cast<UEastAsianWidth>(u_getIntPropertyValue(InCharacter, UCHAR_EAST_ASIAN_WIDTH));
	if (Width == U_EA_WIDE || Width == U_EA_FULLWIDTH)
	{
		return 1.0;
	}
	if ((U_GET_GC_MASK(InCharacter) & (U_GC_M_MASK | U_GC_CF_MASK)) != 0)
	{
		return 0.0;
	}
	constexpr double Narrow = 0.3;
	constexpr double Usual = 0.56;
	constexpr double Capital = 0.68;
	const std::u16string_view NarrowOnes = u"iljtfI.,:;!'| ";
	if (InCharacter < 0x80 && NarrowOnes.find(static_cast<char16_t>(InCharacter)) != std::u16string_view::npos)
	{
		return Narrow;
	}
	return InCharacter == U'm' || InCharacter == U'w' || InCharacter == U'W' || InCharacter == U'M' ? 0.86
		   : u_isupper(InCharacter)																	? Capital
																									: Usual;
}

bool IsAllowed(UChar32 InCharacter)
{
	return InCharacter == '\t' || InCharacter == '\n' || InCharacter == '\r' ||
		   (InCharacter >= 0x20 && !U_IS_UNICODE_NONCHAR(InCharacter) && !U_IS_SURROGATE(InCharacter) &&
			!(InCharacter >= 0x7F && InCharacter < 0xA0));
}

template <class FVisitor>
void ForEachCharacter(const icu::UnicodeString& InText, FVisitor InVisitor)
{
	for (int32 Index = 0; Index < InText.length(); Index = InText.moveIndex32(Index, 1))
	{
		InVisitor(InText.char32At(Index));
	}
}

icu::UnicodeString FromUtf8(std::string_view InText)
{
	return icu::UnicodeString::fromUTF8(icu::StringPiece(InText.data(), static_cast<int32>(InText.size())));
}

} // namespace

std::string EscapeXml(std::string_view InText)
{
	icu::UnicodeString Escaped;
	ForEachCharacter(FromUtf8(InText),
					 [&Escaped](UChar32 InCharacter)
					 {
						 switch (InCharacter)
						 {
						 case '&':
							 Escaped += u"&amp;";
							 break;
						 case '<':
							 Escaped += u"&lt;";
							 break;
						 case '>':
							 Escaped += u"&gt;";
							 break;
						 case '"':
							 Escaped += u"&quot;";
							 break;
						 default:
							 if (IsAllowed(InCharacter))
							 {
								 Escaped += InCharacter;
							 }
						 }
					 });
	std::string Result;
	Escaped.toUTF8String(Result);
	return Result;
}

double GuessWidth(std::string_view InText)
{
	double Width = 0.0;
	ForEachCharacter(FromUtf8(InText), [&Width](UChar32 InCharacter) { Width += GuessCharacterWidth(InCharacter); });
	return Width;
}

std::string CutToWidth(std::string_view InText, double InWidth)
{
	if (GuessWidth(InText) <= InWidth)
	{
		return std::string(InText);
	}
	double Left = InWidth - 1.0;
	icu::UnicodeString Cut;
	ForEachCharacter(FromUtf8(InText),
					 [&](UChar32 InCharacter)
					 {
						 Left -= GuessCharacterWidth(InCharacter);
						 if (Left >= 0.0)
						 {
							 Cut += InCharacter;
						 }
					 });
	std::string Result;
	Cut.trim().toUTF8String(Result);
	return Result + "…";
}

} // namespace Flitmark
