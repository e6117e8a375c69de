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

/** Where the words of a positioned comment are: the fifth element of a list, or an object's member; null for nowhere. */
const rapidjson::Value* FindWords(const rapidjson::Document& InText)
{
	constexpr rapidjson::SizeType TextIndex = 4;
	if (InText.HasParseError())
	{
		return nullptr;
	}
	if (InText.IsArray())
	{
		return InText.Size() > TextIndex ? &InText[TextIndex] : nullptr;
	}
	const auto Member = InText.FindMember("n");
	return Member != InText.MemberEnd() ? &Member->value : nullptr;
}

/** The words of a positioned comment; empty where there are none. */
std::string TakePositionedText(std::string_view InText)
{
	const std::size_t Begin = InText.find_first_not_of(" \t\n");
	if (Begin == std::string_view::npos || (InText[Begin] != '[' && InText[Begin] != '{'))
	{
		// No list or object at all: what is there is all that a person could read.
		return std::string(InText);
	}
	rapidjson::Document Json;
	constexpr unsigned Flags =
		rapidjson::kParseIterativeFlag | rapidjson::kParseStopWhenDoneFlag | rapidjson::kParseTrailingCommasFlag;
	Json.Parse<Flags>(InText.data(), InText.size());
	const rapidjson::Value* const Words = FindWords(Json);
	if (Words == nullptr || !Words->IsString())
	{
		return {};
	}
	std::string Text(Words->GetString(), Words->GetStringLength());
	if (Json.IsArray())
	{
		BreakLines(Text);
	}
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
		case ECommentKind::Paid:
			++(Policy.bPaidAsText ? Counts.NumPaidTurned : Counts.NumPaidDropped);
			InOutComment.Kind = ECommentKind::Top;
			return !Policy.bPaidAsText;
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
