#include "Formats/CommentTraits.h"

#include "Formats/Utf8.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace Flitmark
{

namespace
{

/** Negative for bytes that are no character, which show as U+FFFD. */
bool IsInvisible(UChar32 InCharacter)
{
	return InCharacter >= 0 && (u_isUWhiteSpace(InCharacter) || u_iscntrl(InCharacter) ||
								u_hasBinaryProperty(InCharacter, UCHAR_DEFAULT_IGNORABLE_CODE_POINT));
}

} // namespace

bool HasText(std::string_view InText)
{
	std::size_t Place = 0;
	while (Place < InText.size())
	{
		if (!IsInvisible(TakeCharacter(InText, Place)))
		{
			return true;
		}
	}
	return false;
}

bool HasText(std::u16string_view InText)
{
	const auto Length = static_cast<int32>(InText.size());
	for (int32 Place = 0; Place < Length;)
	{
		UChar32 Character = 0;
		U16_NEXT(InText.data(), Place, Length, Character);
		if (!IsInvisible(Character))
		{
			return true;
		}
	}
	return false;
}

bool IsVisible(const FServiceComment& InComment)
{
	return IsServed(InComment.Kind) && IsReached(InComment) && HasSize(InComment.FontSize) &&
		   HasColor(InComment.Color) && HasText(InComment.Text);
}

std::string NormalizeSpace(std::string_view InText)
{
	std::string Text;
	Text.reserve(InText.size());
	bool bSpace = false;
	std::size_t Place = 0;
	while (Place < InText.size())
	{
		const std::size_t Begin = Place;
		const UChar32 Character = TakeCharacter(InText, Place);
		if (Character >= 0 && u_isUWhiteSpace(Character))
		{
			bSpace = !Text.empty();
			continue;
		}
		Text.append(bSpace ? " " : "").append(InText, Begin, Place - Begin);
		bSpace = false;
	}
	return Text;
}

} // namespace Flitmark
