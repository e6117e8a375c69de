#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "PaidText.h"

namespace Flitmark
{

namespace
{

/** `content_offset_seconds`, with the sender and the message as objects. */
class FOffsetChatSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode) { return InNode.HasScalar({"content_offset_seconds"}); }

	void OnField(const FField&) override {}
	bool WantsTree() const override { return true; }

	void OnTree(FJsonView InEntry) override
	{
		const FJsonView Message = InEntry["message"];
		const FJsonView Sender = InEntry["commenter"];
		SetTime(InEntry["content_offset_seconds"].GetText(), ETimeUnit::Second);
		Comment.Id = ParseInteger(InEntry["_id"].GetText()).value_or(0);
		Comment.PostId = ParseInteger(InEntry["content_id"].GetText()).value_or(0);
		Comment.PostDate = ParseDate(InEntry["created_at"].GetText());
		const std::string_view Shown = Sender["display_name"].GetText();
		Comment.UserName = MakeCleanText(Shown.empty() ? Sender["name"].GetText() : Shown);
		const FJsonView Id = Sender["_id"];
		Comment.UserId = MakeUserId(Id.IsThere() ? Id.GetText() : Sender["id"].GetText());
		Comment.Color = ParseColor(Message["user_color"].GetText()).value_or(Comment.Color);
		ReadText(Message);
		if (const std::string_view Bits = Message["bits_spent"].GetText(); ParseInteger(Bits).value_or(0) > 0)
		{
			Comment.Kind = ECommentKind::Paid;
			Comment.Text = MakePaidText(Comment.UserName, std::string(Bits) + " bits", Comment.Text);
		}
	}

	const char* Finish() override { return FinishText(); }

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && InKey == "content_offset_seconds";
	}

private:
	/** The pieces are the text once more, with the pictures' names as pieces of their own. */
	void ReadText(FJsonView InMessage)
	{
		const FJsonView Pieces = InMessage["fragments"];
		std::string Joined;
		for (std::size_t Index = 0; Index < Pieces.Num(); ++Index)
		{
			Joined += Pieces.At(Index)["text"].GetText();
			NumEmotes += Pieces.At(Index)["emoticon"].IsObject() ? 1 : 0;
		}
		NumEmotes += Pieces.Num() == 0 ? InMessage["emoticons"].Num() : 0;
		const std::string_view Body = InMessage["body"].GetText();
		Comment.Text = !Body.empty() ? Body : (!Joined.empty() ? Joined : InMessage.GetText());
	}
};

} // namespace

extern const FCommentFormat OffsetChatJsonFormat =
	MakeJsonFormat<FOffsetChatSchema>("offset-chat-json", "JSON chat with offsets");

} // namespace Flitmark
