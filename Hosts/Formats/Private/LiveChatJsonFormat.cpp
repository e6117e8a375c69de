#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "PaidText.h"

#include <algorithm>
#include <array>

namespace Flitmark
{

namespace
{

/** A member's name, and what entries that have it are. */
struct FSort
{
	std::string_view Name;
	std::string_view What;
};

/** What happens in a chat besides messages. */
constexpr FSort Actions[] = {
	{"addLiveChatTickerItemAction", "repeats of paid messages in the ticker"},
	{"markChatItemAsDeletedAction", "deletions of messages"},
	{"markChatItemsByAuthorAsDeletedAction", "deletions of messages"},
	{"removeChatItemAction", "deletions of messages"},
	{"removeChatItemByAuthorAction", "deletions of messages"},
	{"addBannerToLiveChatCommand", "banners"},
	{"removeBannerForLiveChatCommand", "banners"},
	{"showLiveChatActionPanelAction", "polls"},
	{"updateLiveChatPollAction", "polls"},
	{"closeLiveChatActionPanelAction", "polls"},
};

/** Items of a chat that no viewer wrote. */
constexpr FSort Notices[] = {
	{"liveChatMembershipItemRenderer", "memberships without a message"},
	{"liveChatSponsorshipsGiftPurchaseAnnouncementRenderer", "gifts of memberships"},
	{"liveChatSponsorshipsGiftRedemptionAnnouncementRenderer", "gifts of memberships"},
	{"liveChatViewerEngagementMessageRenderer", "notices of the service"},
	{"liveChatModeChangeMessageRenderer", "notices of the service"},
	{"liveChatPlaceholderItemRenderer", "placeholders of held messages"},
};

template <std::size_t Size>
std::string_view FindSort(FJsonView InObject, const FSort (&InSorts)[Size], std::string_view InOther)
{
	const auto* const Found =
		std::ranges::find_if(InSorts, [&](const FSort& InSort) { return InObject[InSort.Name].IsThere(); });
	return Found == std::end(InSorts) ? InOther : Found->What;
}

/** A recorded live chat: each entry has a time and the actions that happened then. */
class FLiveChatSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode) { return InNode.HasObject("replayChatItemAction"); }

	void OnField(const FField&) override {}
	bool WantsTree() const override { return true; }

	void OnTree(FJsonView InEntry) override
	{
		const FJsonView Replay = InEntry["replayChatItemAction"];
		List = Replay["actions"];
		FJsonView Time = Replay["videoOffsetTimeMsec"];
		Time = Time.IsThere() ? Time : InEntry["videoOffsetTimeMsec"];
		SetTime(Time.GetText(), ETimeUnit::Millisecond);
		Ticks = Comment.SpawnTicks;
	}

	const char* Finish() override
	{
		const FJsonView Action = List.At(Part);
		if (!Action.IsObject())
		{
			return "has no action that could be a comment";
		}
		Comment.SpawnTicks = Ticks;
		FJsonView Item = Action["addChatItemAction"]["item"];
		Item = Item.IsThere() ? Item : Action["replaceChatItemAction"]["replacementItem"];
		if (!Item.IsObject())
		{
			Skipped = FindSort(Action, Actions, "other actions");
			return nullptr;
		}
		return ReadItem(Item);
	}

	bool NextPart() override
	{
		Comment = FServiceComment();
		Skipped = {};
		NumEmotes = 0;
		return ++Part < List.Num();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return InKey == "replayChatItemAction" && InValueStart == '{';
	}

	/** Live pages put other objects between them. */
	bool StandsAlone() const override { return false; }

protected:
	void Restart() override
	{
		List = {};
		Part = 0;
		Ticks = 0;
	}

private:
	const char* ReadItem(FJsonView InItem)
	{
		const FJsonView Words = InItem["liveChatTextMessageRenderer"];
		const FJsonView Member = InItem["liveChatMembershipItemRenderer"];
		const FJsonView Paid = InItem["liveChatPaidMessageRenderer"];
		const FJsonView Sticker = InItem["liveChatPaidStickerRenderer"];
		if (Words.IsObject() || Member["message"].IsObject())
		{
			const FJsonView Message = Words.IsObject() ? Words : Member;
			ReadSender(Message);
			AppendMessage(Message["message"], Comment.Text);
			return FinishText();
		}
		if (Paid.IsObject() || Sticker.IsObject())
		{
			return ReadPaid(Paid.IsObject() ? Paid : Sticker);
		}
		Skipped = FindSort(InItem, Notices, "other notices");
		return nullptr;
	}

	const char* ReadPaid(FJsonView InMessage)
	{
		ReadSender(InMessage);
		std::string Words(InMessage["sticker"]["accessibility"]["accessibilityData"]["label"].GetText());
		AppendMessage(InMessage["message"], Words);
		Comment.Kind = ECommentKind::Paid;
		Comment.Text = MakePaidText(Comment.UserName, InMessage["purchaseAmountText"]["simpleText"].GetText(), Words);
		// Opacity, red, green, blue.
		FJsonView Color = InMessage["bodyBackgroundColor"];
		Color = Color.IsThere() ? Color : InMessage["backgroundColor"];
		Comment.Color = ParseColor(Color.GetText()).value_or(Comment.Color);
		return FinishText();
	}

	void ReadSender(FJsonView InMessage)
	{
		constexpr int64 MicrosecondsPerSecond = 1'000'000;
		Comment.UserName = MakeCleanText(InMessage["authorName"]["simpleText"].GetText());
		Comment.UserId = MakeUserId(InMessage["authorExternalChannelId"].GetText());
		Comment.PostDate = ParseInteger(InMessage["timestampUsec"].GetText()).value_or(0) / MicrosecondsPerSecond;
		// Before the video begins all times are 0; only what people read tells them apart.
		const std::string_view Shown = InMessage["timestampText"]["simpleText"].GetText();
		if (Comment.SpawnTicks == 0 && Shown.starts_with('-'))
		{
			Comment.SpawnTicks = -ReadClock(Shown.substr(1));
		}
	}

	/** `1:02:03` as ticks. */
	static int64 ReadClock(std::string_view InText)
	{
		constexpr int64 Longest = 1'000'000;
		FFieldSplitter Parts(InText, ':');
		int64 Seconds = 0;
		for (std::string_view Field = Parts.Next(); !Field.empty(); Field = Parts.Next())
		{
			Seconds = std::clamp<int64>(Seconds * 60 + ParseInteger(Field.substr(0, 8)).value_or(0), 0, Longest);
		}
		return Seconds * static_cast<int64>(ETimeUnit::Second);
	}

	void AppendMessage(FJsonView InMessage, std::string& OutText)
	{
		OutText += InMessage["simpleText"].GetText();
		const FJsonView Runs = InMessage["runs"];
		for (std::size_t Index = 0; Index < Runs.Num(); ++Index)
		{
			const FJsonView Emoji = Runs.At(Index)["emoji"];
			OutText += Emoji.IsObject() ? TakeEmoji(Emoji) : Runs.At(Index)["text"].GetText();
		}
	}

	/** The character of a common one; the name of a channel's own picture. */
	std::string_view TakeEmoji(FJsonView InEmoji)
	{
		const std::string_view Id = InEmoji["emojiId"].GetText();
		if (!InEmoji["isCustomEmoji"].IsTrue() && !Id.empty() && static_cast<unsigned char>(Id.front()) >= 0x80)
		{
			return Id;
		}
		++NumEmotes;
		const std::string_view Name = InEmoji["shortcuts"].At(0).GetText();
		const std::string_view Label = InEmoji["image"]["accessibility"]["accessibilityData"]["label"].GetText();
		return !Name.empty() ? Name : (!Label.empty() ? Label : Id);
	}

	FJsonView List;
	std::size_t Part = 0;
	int64 Ticks = 0;
};

} // namespace

extern const FCommentFormat LiveChatJsonFormat = MakeJsonFormat<FLiveChatSchema>("live-chat-json", "JSON live chat");

} // namespace Flitmark
