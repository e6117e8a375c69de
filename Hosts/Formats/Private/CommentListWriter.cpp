#include "Formats/CommentListWriter.h"

#include "Formats/CleanText.h"
#include "Formats/CommentTraits.h"
#include "Formats/FieldValues.h"
#include "ListParameters.h"

#include <cmath>
#include <cstdio>

namespace Flitmark
{

namespace
{

/** Bytes that are handed on at a time. */
constexpr std::size_t PieceSize = std::size_t{1} << 16;

int ToListMode(ECommentKind InKind)
{
	switch (InKind)
	{
	case ECommentKind::Top:
		return 5;
	case ECommentKind::Bottom:
		return 4;
	default:
		return 1;
	}
}

/** Seconds with as many decimals as it takes. */
void AppendSeconds(std::string& OutText, int64 InTicks)
{
	constexpr int64 PerSecond = static_cast<int64>(ETimeUnit::Second);
	OutText += InTicks < 0 ? "-" : "";
	OutText += std::to_string(std::abs(InTicks / PerSecond));
	if (const int64 Rest = std::abs(InTicks % PerSecond); Rest != 0)
	{
		char Decimals[16];
		std::snprintf(Decimals, sizeof(Decimals), ".%07lld", static_cast<long long>(Rest));
		OutText += Decimals;
		OutText.erase(OutText.find_last_not_of('0') + 1);
	}
}

/** Also keeps what a list would take for a line break. */
void AppendEscaped(std::string& OutText, std::string_view InText)
{
	constexpr std::string_view WordJoiner = "\xE2\x81\xA0";
	char Last = 0;
	for (const char Letter : MakeCleanText(InText))
	{
		switch (Letter)
		{
		case '&':
			OutText += "&amp;";
			break;
		case '<':
			OutText += "&lt;";
			break;
		case '>':
			OutText += "&gt;";
			break;
		case '"':
			OutText += "&quot;";
			break;
		default:
			OutText += Last == '/' && Letter == 'n' ? WordJoiner : std::string_view();
			OutText += Letter;
		}
		Last = Letter;
	}
}

void AppendComment(std::string& OutText, const FServiceComment& InComment)
{
	const double Size = InComment.FontSize * ListNormalSize / FServiceComment::NormalPoints;
	OutText += "<d p=\"";
	AppendSeconds(OutText, InComment.SpawnTicks);
	for (const int64 Field : {int64{ToListMode(InComment.Kind)}, int64{std::lround(Size)}, int64{InComment.Color >> 8},
							  InComment.PostDate, InComment.PostId, InComment.UserId, InComment.Id})
	{
		OutText += ',';
		OutText += std::to_string(Field);
	}
	OutText += '"';
	if (!InComment.UserName.empty())
	{
		OutText += " user=\"";
		AppendEscaped(OutText, InComment.UserName);
		OutText += '"';
	}
	OutText += '>';
	AppendEscaped(OutText, InComment.Text);
	OutText += "</d>\n";
}

} // namespace

bool CanBeListed(const FServiceComment& InComment)
{
	return IsServed(InComment.Kind) && HasSize(InComment.FontSize) && HasColor(InComment.Color);
}

bool WriteCommentList(std::span<const FServiceComment> InComments, const FTextOutput& InOutput)
{
	std::string Text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<i>\n";
	for (const FServiceComment& Comment : InComments)
	{
		if (CanBeListed(Comment))
		{
			AppendComment(Text, Comment);
		}
		if (Text.size() >= PieceSize)
		{
			if (!InOutput(Text))
			{
				return false;
			}
			Text.clear();
		}
	}
	return InOutput(Text + "</i>\n");
}

} // namespace Flitmark
