#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "PaidText.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** `time_in_seconds`, `message`, and `author` as an object. */
class FMessageListSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode)
	{
		return InNode.HasScalar({"time_in_seconds"}) && (InNode.HasScalar({"message"}) || InNode.HasObject("author"));
	}

	void OnField(const FField&) override {}
	bool WantsTree() const override { return true; }

	void OnTree(FJsonView InEntry) override
	{
		SetTime(InEntry["time_in_seconds"].GetText(), ETimeUnit::Second);
		Comment.Id = ParseInteger(InEntry["message_id"].GetText()).value_or(0);
		Comment.PostDate = ReadDate(InEntry["timestamp"].GetText());
		Comment.Text = InEntry["message"].GetText();
		Comment.Color = ReadColor(FirstOf(InEntry, {"colour", "color"})).value_or(Comment.Color);
		ReadSender(InEntry["author"]);
		CountEmotes(InEntry["emotes"]);
		if (const FJsonView Money = InEntry["money"]; Money.IsObject())
		{
			ReadPaid(InEntry, Money);
		}
		else if (Comment.Text.empty())
		{
			// Memberships, deletions and other notices, each by the name that the file has for it.
			bNotice = FirstOf(InEntry, {"message_type", "action_type"}) != "text_message" &&
					  !FirstOf(InEntry, {"message_type", "action_type"}).empty();
		}
	}

	const char* Finish() override
	{
		Skipped = bNotice ? "notices without a message" : Skipped;
		return bNotice ? nullptr : FinishText();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && InKey == "time_in_seconds";
	}

protected:
	void Restart() override { bNotice = false; }

private:
	static std::string_view FirstOf(FJsonView InObject, std::initializer_list<std::string_view> InNames)
	{
		for (const std::string_view Name : InNames)
		{
			if (const std::string_view Text = InObject[Name].GetText(); !Text.empty())
			{
				return Text;
			}
		}
		return {};
	}

	/** Microseconds, or what ParseAnyDate knows. */
	static int64 ReadDate(std::string_view InText)
	{
		// In milliseconds this is the year 5138.
		constexpr int64 FirstInMicroseconds = 100'000'000'000'000;
		const int64 Date = ParseInteger(InText).value_or(0);
		return Date >= FirstInMicroseconds ? Date / 1'000'000 : ParseAnyDate(InText);
	}

	/** Also with the opacity behind the color. */
	static std::optional<uint32> ReadColor(std::string_view InText)
	{
		constexpr std::size_t WithOpacity = 9;
		return ParseColor(InText.size() == WithOpacity ? InText.substr(0, WithOpacity - 2) : InText);
	}

	void ReadSender(FJsonView InAuthor)
	{
		const std::string_view Name = FirstOf(InAuthor, {"display_name", "name"});
		Comment.UserName = MakeCleanText(Name.empty() ? InAuthor.GetText() : Name);
		Comment.UserId = MakeUserId(FirstOf(InAuthor, {"id", "name"}));
	}

	void ReadPaid(FJsonView InEntry, FJsonView InMoney)
	{
		std::string Amount(InMoney["text"].GetText());
		if (Amount.empty())
		{
			Amount.append(InMoney["amount"].GetText()).append(" ").append(InMoney["currency"].GetText());
		}
		Comment.Kind = ECommentKind::Paid;
		Comment.Text = MakePaidText(Comment.UserName, Amount, Comment.Text);
		Comment.Color =
			ReadColor(FirstOf(InEntry, {"body_background_colour", "background_colour"})).value_or(Comment.Color);
	}

	/** Their names stand in the text already. Common ones stand there as characters. */
	void CountEmotes(FJsonView InEmotes)
	{
		for (std::size_t Index = 0; Index < InEmotes.Num(); ++Index)
		{
			const FJsonView Emote = InEmotes.At(Index);
			const FJsonView Custom = Emote["is_custom_emoji"];
			const bool bPicture = !Custom.IsThere() || Custom.IsTrue();
			NumEmotes += bPicture ? std::max<std::size_t>(1, Emote["locations"].Num()) : 0;
		}
	}

	bool bNotice = false;
};

} // namespace

extern const FCommentFormat MessageListJsonFormat =
	MakeJsonFormat<FMessageListSchema>("message-list-json", "JSON messages");

} // namespace Flitmark
