#include "Formats/CommentOrigin.h"

#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonMembers.h"

namespace Flitmark
{

namespace
{

/** A text member; empty for anything else. */
std::string ReadText(std::string_view InObject, ECommentKey InKey)
{
	const std::string_view Value = FindJsonMember(InObject, ToText(InKey)).value_or(std::string_view());
	return Value.starts_with('"') ? MakeCleanText(UnquoteJson(Value)) : std::string();
}

} // namespace

void ReadOrigin(FServiceComment& InOutComment)
{
	const std::string_view Source = InOutComment.Source;
	if (Source.empty())
	{
		return;
	}
	InOutComment.Id = ReadJsonId(Source, ToText(ECommentKey::DanmakuID));
	InOutComment.PostId = ReadJsonId(Source, ToText(ECommentKey::PostID));
	InOutComment.UserName = ReadText(Source, ECommentKey::UserDisplayName);
	InOutComment.PostDate = ParseDate(ReadText(Source, ECommentKey::PostDate));
}

} // namespace Flitmark
