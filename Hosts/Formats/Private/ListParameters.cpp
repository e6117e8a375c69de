#include "ListParameters.h"

#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"

namespace Flitmark
{

namespace
{

/** No time in seconds is as large without a fraction: it would be 115 days. */
bool IsIdFirst(std::string_view InField)
{
	constexpr int64 SmallestId = 10'000'000;
	return InField.find_first_not_of("0123456789 ") == std::string_view::npos &&
		   ParseInteger(InField).value_or(0) >= SmallestId;
}

} // namespace

ECommentKind ToListKind(std::string_view InMode)
{
	const std::optional<int64> Mode = ParseInteger(InMode);
	if (!Mode)
	{
		return ECommentKind::Scroll;
	}
	switch (*Mode)
	{
	case 1:
	case 2:
	case 3:
		return ECommentKind::Scroll;
	case 4:
		return ECommentKind::Bottom;
	case 5:
		return ECommentKind::Top;
	case 6:
		return ECommentKind::Reverse;
	case 7:
		return ECommentKind::Positioned;
	case 8:
	case 9:
		return ECommentKind::Script;
	default:
		return ECommentKind::Unknown;
	}
}

bool ReadListParameters(std::string_view InParameters, FServiceComment& OutComment)
{
	FFieldSplitter Fields(InParameters, ',');
	std::string_view Time = Fields.Next();
	const bool bIdFirst = IsIdFirst(Time);
	if (bIdFirst)
	{
		OutComment.Id = ParseInteger(Time).value_or(0);
		Fields.Next();
		Time = Fields.Next();
	}
	const std::optional<int64> Ticks = ParseTicks(Time, bIdFirst ? ETimeUnit::Millisecond : ETimeUnit::Second);
	if (!Ticks)
	{
		return false;
	}
	OutComment.SpawnTicks = *Ticks;
	OutComment.Kind = ToListKind(Fields.Next());
	OutComment.FontSize = ScaleSize(Fields.Next(), ListNormalSize);
	OutComment.Color = ParseColor(Fields.Next()).value_or(OutComment.Color);
	OutComment.PostDate = ParseUnixDate(Fields.Next());
	OutComment.PostId = ParseInteger(Fields.Next()).value_or(0);
	const std::string_view Sender = Fields.Next();
	OutComment.UserId = Sender.empty() ? 0 : HashUser(Sender);
	if (!bIdFirst)
	{
		OutComment.Id = ParseInteger(Fields.Next()).value_or(0);
	}
	return true;
}

void FinishListText(FServiceComment& InOutComment)
{
	CleanText(InOutComment.Text);
	// A positioned comment's text is JSON, its lines are broken when its text is taken out; a script's is code.
	if (InOutComment.Kind != ECommentKind::Positioned && InOutComment.Kind != ECommentKind::Script)
	{
		BreakLines(InOutComment.Text);
	}
}

} // namespace Flitmark
