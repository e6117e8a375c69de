#include "Formats/CommentTraits.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** Length in bytes of the white space character (Unicode's White_Space) that the text begins with; 0 for any other. */
std::size_t GetSpaceLength(std::string_view InText)
{
	constexpr std::string_view Others[] = {
		"\u0085", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
		"\u2007", "\u2008", "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000",
	};
	const char First = InText.front();
	if (static_cast<unsigned char>(First) < 0x80)
	{
		return First == ' ' || (First >= '\t' && First <= '\r') ? 1 : 0;
	}
	const auto* const Found =
		std::ranges::find_if(Others, [InText](std::string_view InSpace) { return InText.starts_with(InSpace); });
	return Found != std::end(Others) ? Found->size() : 0;
}

} // namespace

int64 GetSecond(const FServiceComment& InComment)
{
	return InComment.SpawnTicks / TicksPerSecond;
}

bool IsReached(const FServiceComment& InComment)
{
	const int64 Second = GetSecond(InComment);
	return Second >= 0 && Second < SecondsPerDay;
}

bool IsVisible(const FServiceComment& InComment)
{
	const bool bServed = InComment.Kind == ECommentKind::Scroll || InComment.Kind == ECommentKind::Top ||
						 InComment.Kind == ECommentKind::Bottom;
	return bServed && IsReached(InComment) && InComment.FontSize > 0 && (InComment.Color & 0xFF) != 0 &&
		   !NormaliseSpace(InComment.Text).empty();
}

std::string NormaliseSpace(std::string_view InText)
{
	std::string Text;
	Text.reserve(InText.size());
	bool bSpace = false;
	while (!InText.empty())
	{
		const std::size_t SpaceLength = GetSpaceLength(InText);
		if (SpaceLength > 0)
		{
			bSpace = !Text.empty();
			InText.remove_prefix(SpaceLength);
			continue;
		}
		if (bSpace)
		{
			Text += ' ';
			bSpace = false;
		}
		Text += InText.front();
		InText.remove_prefix(1);
	}
	return Text;
}

} // namespace Flitmark
