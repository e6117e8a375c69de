#include "ChatCommands.h"
#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "XmlFormat.h"
#include "Formats/XmlTag.h"

#include <optional>

namespace Flitmark
{

namespace
{

bool IsChatEntry(std::string_view InTag)
{
	return !InTag.empty();
}

/** An attribute of a chat entry that is about anything but its time. */
void ReadChatAttribute(std::string_view InName, std::string_view InValue, FServiceComment& OutComment)
{
	if (InName == "date")
	{
		OutComment.PostDate = ParseUnixDate(InValue);
	}
	else if (InName == "user_id")
	{
		OutComment.UserId = MakeUserId(InValue);
	}
	else if (InName == "name")
	{
		OutComment.UserName = MakeCleanText(InValue);
	}
	else if (InName == "no")
	{
		OutComment.Id = ParseInteger(InValue).value_or(0);
	}
	else if (InName == "thread")
	{
		OutComment.PostId = ParseInteger(InValue).value_or(0);
	}
}

bool ReadChatTag(std::string_view InTag, FXmlComment& OutEntry)
{
	FChatCommands Commands;
	bool bDeleted = false;
	std::optional<int64> Ticks;
	FXmlAttributes Attributes(InTag);
	std::string Storage;
	std::string_view Name;
	std::string_view Value;
	while (Attributes.Next(Name, Value))
	{
		if (Name == "vpos")
		{
			Ticks = ParseTicks(Value, ETimeUnit::Hundredth);
		}
		else if (Name == "mail")
		{
			Commands.Apply(ResolveEntities(Value, Storage), OutEntry.Comment);
		}
		else if (Name == "deleted")
		{
			bDeleted = Value != "0";
		}
		else
		{
			ReadChatAttribute(Name, ResolveEntities(Value, Storage), OutEntry.Comment);
		}
	}
	OutEntry.Skipped = FindChatSkip({}, Commands, bDeleted);
	OutEntry.Comment.SpawnTicks = Ticks.value_or(0);
	return Ticks.has_value();
}

void FinishChatText(FXmlComment& InOutEntry)
{
	CleanText(InOutEntry.Comment.Text);
	if (InOutEntry.Skipped.empty())
	{
		InOutEntry.Skipped = FindChatSkip(InOutEntry.Comment.Text, {}, false);
	}
}

/** `<chat vpos="..." mail="...">text</chat>` */
constexpr FXmlSchema Schema = {
	"packet", IsChatEntry, {"chat", ReadChatTag, "has no readable \"vpos\"", FinishChatText}, {}};

} // namespace

extern const FCommentFormat ChatXmlFormat = MakeXmlFormat<Schema>("chat-xml", "XML chat");

} // namespace Flitmark
