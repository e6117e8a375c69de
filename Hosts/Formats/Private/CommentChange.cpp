#include "Formats/CommentChange.h"

#include "CommentJson.h"
#include "JsonMembers.h"

namespace Flitmark
{

namespace
{

void Replace(FServiceComment& InOutComment, ECommentKey InKey, std::string_view InValue)
{
	std::string& Source = InOutComment.Source;
	if (!Source.starts_with('{'))
	{
		// Nothing that a comment could be written into; its own values count.
		Source.clear();
		return;
	}
	if (const auto Value = FindJsonMember(Source, ToText(InKey)))
	{
		Source.replace(static_cast<std::size_t>(Value->data() - Source.data()), Value->size(), InValue);
		return;
	}
	const std::size_t Last = Source.find_last_not_of(" \t\r\n", Source.size() - 2);
	const std::string Member = "\"" + std::string(ToText(InKey)) + "\":" + std::string(InValue);
	Source.insert(Last + 1, (Source[Last] == '{' ? "" : ",") + Member);
}

} // namespace

void SetText(FServiceComment& InOutComment, std::string InText)
{
	InOutComment.Text = std::move(InText);
	Replace(InOutComment, ECommentKey::Content, QuoteJson(InOutComment.Text));
}

void SetSpawnTicks(FServiceComment& InOutComment, int64 InTicks)
{
	InOutComment.SpawnTicks = InTicks;
	Replace(InOutComment, ECommentKey::SpawnTime, std::to_string(InTicks));
}

} // namespace Flitmark
