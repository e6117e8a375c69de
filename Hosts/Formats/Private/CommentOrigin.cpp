#include "Formats/CommentOrigin.h"

#include "Formats/FieldValues.h"
#include "JsonMembers.h"

namespace Flitmark
{

void ReadOrigin(FServiceComment& InOutComment)
{
	const std::string_view Source = InOutComment.Source;
	if (Source.empty())
	{
		return;
	}
	InOutComment.Id = ReadJsonId(Source, ToText(ECommentKey::DanmakuID));
	InOutComment.PostId = ReadJsonId(Source, ToText(ECommentKey::PostID));
	const std::string_view Date = FindJsonMember(Source, ToText(ECommentKey::PostDate)).value_or(std::string_view());
	InOutComment.PostDate = Date.starts_with('"') ? ParseDate(UnquoteJson(Date)) : 0;
}

} // namespace Flitmark
