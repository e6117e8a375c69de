#include "ChatCommands.h"
#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"

namespace Flitmark
{

namespace
{

/** `vpos` or `vposMs`, with commands; also inside a member `chat`. */
class FChatSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode)
	{
		return InNode.HasScalar({"vpos", "vposMs"}) || InNode.HasObject("chat");
	}

	void OnField(const FField& InField) override
	{
		if (!InField.IsText())
		{
			return;
		}
		const std::string_view Key = InField.Key;
		if (Key == "vposMs")
		{
			SetTime(InField.Text, ETimeUnit::Millisecond);
		}
		else if (Key == "vpos")
		{
			SetTime(InField.Text, ETimeUnit::Hundredth);
		}
		else if (Key == "content" || Key == "body")
		{
			Comment.Text = InField.Text;
		}
		else if (Key == "mail" || Key == "commands")
		{
			Commands.Apply(InField.Text, Comment);
		}
		else if (Key == "deleted")
		{
			bDeleted = ParseInteger(InField.Text).value_or(0) != 0;
		}
		else if (Key == "date" || Key == "postedAt")
		{
			Comment.PostDate = ParseAnyDate(InField.Text);
		}
		else
		{
			OnIdentity(Key, InField.Text);
		}
	}

	const char* Finish() override
	{
		Comment.Id = Comment.Id != 0 ? Comment.Id : Id;
		const char* const Fault = FinishText();
		Skipped = FindChatSkip(Comment.Text, Commands, bDeleted);
		return Fault;
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return (InKey == "chat" && InValueStart == '{') ||
			   (IsScalar(InValueStart) && IsOneOf(InKey, {"vpos", "vposMs", "content", "body", "mail"}));
	}

	/** Pings and counters come in the same list. */
	bool StandsAlone() const override { return false; }

protected:
	void Restart() override
	{
		Id = 0;
		Commands = {};
		bDeleted = false;
	}

private:
	void OnIdentity(std::string_view InKey, std::string_view InText)
	{
		if (InKey == "user_id" || InKey == "userId")
		{
			Comment.UserId = MakeUserId(InText);
		}
		else if (InKey == "name")
		{
			Comment.UserName = MakeCleanText(InText);
		}
		else if (InKey == "no")
		{
			Comment.Id = ParseInteger(InText).value_or(0);
		}
		else if (InKey == "id")
		{
			Id = ParseInteger(InText).value_or(0);
		}
		else if (InKey == "thread")
		{
			Comment.PostId = ParseInteger(InText).value_or(0);
		}
	}

	/** Second to "no". */
	int64 Id = 0;
	FChatCommands Commands;
	bool bDeleted = false;
};

} // namespace

extern const FCommentFormat ChatJsonFormat = MakeJsonFormat<FChatSchema>("chat-json", "JSON chat");

} // namespace Flitmark
