#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "ListParameters.h"

namespace Flitmark
{

namespace
{

/** The binary list's messages as JSON: `progress`, `content` and their like. Zeros may be left out here, too. */
class FListElementsSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode)
	{
		return InNode.HasString({"content"}) && InNode.HasScalar({"progress", "midHash", "mid_hash"});
	}

	void OnField(const FField& InField) override
	{
		if (!InField.IsText() || InField.bInList)
		{
			return;
		}
		const std::string_view Key = InField.Key;
		const std::string_view Text = InField.Text;
		if (Key == "content")
		{
			Comment.Text = Text;
		}
		else if (Key == "progress")
		{
			SetTime(Text, ETimeUnit::Millisecond);
		}
		else if (Key == "mode")
		{
			// Nothing is written for 0, which scrolls.
			Comment.Kind = ParseInteger(Text) == 0 ? ECommentKind::Scroll : ToListKind(Text);
		}
		else if (IsOneOf(Key, {"fontsize", "fontSize", "font_size"}))
		{
			Comment.FontSize = ScaleSize(Text, ListNormalSize);
			bHasSize = ParseInteger(Text).value_or(0) > 0;
		}
		else if (Key == "color")
		{
			Comment.Color = ParseColor(Text).value_or(Comment.Color);
			bHasColor = true;
		}
		else
		{
			OnOrigin(Key, Text);
		}
	}

	const char* Finish() override
	{
		constexpr uint32 Black = 0xFF;
		Comment.Color = bHasSize && !bHasColor ? Black : Comment.Color;
		FinishListText(Comment);
		return FinishText();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && IsOneOf(InKey, {"progress", "content", "midHash", "mid_hash"});
	}

protected:
	void Restart() override
	{
		bHasTime = true;
		bHasSize = false;
		bHasColor = false;
	}

private:
	void OnOrigin(std::string_view InKey, std::string_view InText)
	{
		if (InKey == "id" || (IsOneOf(InKey, {"idStr", "id_str", "dmid"}) && Comment.Id == 0))
		{
			Comment.Id = ParseInteger(InText).value_or(0);
		}
		else if (IsOneOf(InKey, {"midHash", "mid_hash"}))
		{
			Comment.UserId = InText.empty() ? 0 : HashUser(InText);
		}
		else if (InKey == "ctime")
		{
			Comment.PostDate = ParseUnixDate(InText);
		}
		else if (InKey == "pool")
		{
			Comment.PostId = ParseInteger(InText).value_or(0);
		}
	}

	bool bHasSize = false;
	bool bHasColor = false;
};

} // namespace

extern const FCommentFormat ListElementsJsonFormat =
	MakeJsonFormat<FListElementsSchema>("list-elements-json", "JSON list elements");

} // namespace Flitmark
