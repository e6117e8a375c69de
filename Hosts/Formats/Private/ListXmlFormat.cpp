#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "ListParameters.h"
#include "PaidText.h"
#include "XmlFormat.h"
#include "Formats/XmlTag.h"

#include <optional>

namespace Flitmark
{

namespace
{

bool IsListEntry(std::string_view InTag)
{
	return !FindXmlAttribute(InTag, "p").empty();
}

bool ReadListTag(std::string_view InTag, FXmlComment& OutEntry)
{
	std::optional<bool> Read;
	FXmlAttributes Attributes(InTag);
	std::string Storage;
	std::string_view Name;
	std::string_view Value;
	while (Attributes.Next(Name, Value))
	{
		if (Name == "p" && !Read)
		{
			Read = ReadListParameters(ResolveEntities(Value, Storage), OutEntry.Comment);
		}
		else if (Name == "user")
		{
			OutEntry.Comment.UserName = MakeCleanText(ResolveEntities(Value, Storage));
		}
	}
	return Read.value_or(false);
}

void FinishListEntry(FXmlComment& InOutEntry)
{
	FinishListText(InOutEntry.Comment);
}

/** Recordings of live shows write the sender's number as lists write the sender: what is hashed there is hashed here. */
bool ReadPaidTag(std::string_view InTag, FXmlComment& OutEntry)
{
	FServiceComment& Comment = OutEntry.Comment;
	Comment.Kind = ECommentKind::Paid;
	std::optional<int64> Ticks;
	FXmlAttributes Attributes(InTag);
	std::string Storage;
	std::string_view Name;
	std::string_view Written;
	while (Attributes.Next(Name, Written))
	{
		const std::string_view Value = ResolveEntities(Written, Storage);
		if (Name == "ts")
		{
			Ticks = ParseTicks(Value, ETimeUnit::Second);
		}
		else if (Name == "user")
		{
			Comment.UserName = MakeCleanText(Value);
		}
		else if (Name == "uid")
		{
			Comment.UserId = Value.empty() ? 0 : HashUser(Value);
		}
		else if (Name == "price")
		{
			OutEntry.Amount = MakeCleanText(Value);
		}
	}
	Comment.SpawnTicks = Ticks.value_or(0);
	return Ticks.has_value();
}

void FinishPaidText(FXmlComment& InOutEntry)
{
	FServiceComment& Comment = InOutEntry.Comment;
	CleanText(Comment.Text);
	Comment.Text = MakePaidText(Comment.UserName, InOutEntry.Amount, Comment.Text);
}

/** `<d p="...">text</d>`; in recordings of live shows also `<sc ts="..." user="..." price="...">text</sc>`. */
constexpr FXmlSchema Schema = {
	"i",
	IsListEntry,
	{"d", ReadListTag, "has no readable time at the start of its attribute \"p\"", FinishListEntry},
	{"sc", ReadPaidTag, "has no readable time in its attribute \"ts\"", FinishPaidText}};

} // namespace

extern const FCommentFormat ListXmlFormat = MakeXmlFormat<Schema>("list-xml", "XML list");

} // namespace Flitmark
