#include "Filtering/KindPolicy.h"

#include "Formats/CleanText.h"
#include "Formats/Utf8.h"

#include <algorithm>
#include <rapidjson/document.h>
#include <unicode/uchar.h>

namespace Flitmark
{

namespace
{

/** The text of a positioned comment: the fifth element of its list. Empty where there is none. */
std::string TakePositionedText(std::string_view InList)
{
	constexpr rapidjson::SizeType TextIndex = 4;
	const std::size_t Begin = InList.find_first_not_of(" \t\n");
	if (Begin == std::string_view::npos || InList[Begin] != '[')
	{
		// No list at all: what is there is all that a person could read.
		return std::string(InList);
	}
	rapidjson::Document List;
	constexpr unsigned Flags =
		rapidjson::kParseIterativeFlag | rapidjson::kParseStopWhenDoneFlag | rapidjson::kParseTrailingCommasFlag;
	List.Parse<Flags>(InList.data(), InList.size());
	if (List.HasParseError() || !List.IsArray() || List.Size() <= TextIndex || !List[TextIndex].IsString())
	{
		return {};
	}
	std::string Text(List[TextIndex].GetString(), List[TextIndex].GetStringLength());
	BreakLines(Text);
	CleanText(Text);
	return Text;
}

/** Whether a person could read something in it, wherever it stands. */
bool HasWords(std::string_view InText)
{
	for (std::size_t Offset = 0; Offset < InText.size();)
	{
		const UChar32 Character = TakeCharacter(InText, Offset);
		if (Character >= 0 &&
			(u_isalnum(Character) != 0 || u_hasBinaryProperty(Character, UCHAR_EXTENDED_PICTOGRAPHIC) != 0))
		{
			return true;
		}
	}
	return false;
}

/** Converts kinds, and decides what is dropped. */
class FKindJudge
{
public:
	explicit FKindJudge(const FKindPolicy& InPolicy)
		: Policy(InPolicy)
	{
	}

	bool Drops(FServiceComment& InOutComment)
	{
		if (!InOutComment.Source.empty())
		{
			return false;
		}
		switch (InOutComment.Kind)
		{
		case ECommentKind::Reverse:
			return !TurnReverse(InOutComment);
		case ECommentKind::Positioned:
			return !TurnPositioned(InOutComment);
		case ECommentKind::Script:
			++Counts.NumScriptsDropped;
			return true;
		case ECommentKind::Unknown:
			++Counts.NumUnknownDropped;
			return true;
		default:
			return false;
		}
	}

	FKindCounts Counts;

private:
	bool TurnReverse(FServiceComment& InOutComment)
	{
		++(Policy.bReverseAsScroll ? Counts.NumReverseTurned : Counts.NumReverseDropped);
		InOutComment.Kind = ECommentKind::Scroll;
		return Policy.bReverseAsScroll;
	}

	bool TurnPositioned(FServiceComment& InOutComment)
	{
		std::string Text = Policy.bPositionedAsText ? TakePositionedText(InOutComment.Text) : std::string();
		const bool bTurned = HasWords(Text);
		++(bTurned		  ? Counts.NumPositionedTurned
		   : Text.empty() ? Counts.NumPositionedDropped
						  : Counts.NumDrawingsDropped);
		InOutComment.Text = std::move(Text);
		InOutComment.Kind = ECommentKind::Top;
		return bTurned;
	}

	FKindPolicy Policy;
};

} // namespace

FKindCounts ApplyKindPolicy(std::vector<FServiceComment>& InOutComments, const FKindPolicy& InPolicy)
{
	FKindJudge Judge(InPolicy);
	std::size_t NumKept = 0;
	for (std::size_t Index = 0; Index < InOutComments.size(); ++Index)
	{
		if (Judge.Drops(InOutComments[Index]))
		{
			continue;
		}
		if (NumKept != Index)
		{
			InOutComments[NumKept] = std::move(InOutComments[Index]);
		}
		++NumKept;
	}
	InOutComments.resize(NumKept);
	return Judge.Counts;
}

} // namespace Flitmark
