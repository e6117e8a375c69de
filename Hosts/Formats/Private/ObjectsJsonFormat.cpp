#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "ListParameters.h"

namespace Flitmark
{

namespace
{

/** `position`, `content` and their like. */
class FObjectsSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode)
	{
		return InNode.HasScalar({"position"}) && InNode.HasString({"content"});
	}

	void OnField(const FField& InField) override
	{
		if (!InField.IsText())
		{
			return;
		}
		const std::string_view Key = InField.Key;
		const std::string_view Text = InField.Text;
		if (Key == "position")
		{
			SetTime(Text, ETimeUnit::Millisecond);
		}
		else if (Key == "content")
		{
			Comment.Text = Text;
		}
		else if (Key == "mode")
		{
			Comment.Kind = ToListKind(Text);
		}
		else if (Key == "textColor")
		{
			Comment.Color = ParseColor(Text).value_or(Comment.Color);
		}
		else if (Key == "textSize")
		{
			Comment.FontSize = ScaleSize(Text, ListNormalSize);
		}
		else if (Key == "createTime")
		{
			Comment.PostDate = ParseAnyDate(Text);
		}
		else if (Key == "userId")
		{
			Comment.UserId = MakeUserId(Text);
		}
		else if (Key == "userName")
		{
			Comment.UserName = MakeCleanText(Text);
		}
		else if (Key == "danmakuId")
		{
			Comment.Id = ParseInteger(Text).value_or(0);
		}
	}

	const char* Finish() override { return FinishText(); }

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && IsOneOf(InKey, {"position", "content", "danmakuId", "textColor"});
	}
};

} // namespace

extern const FCommentFormat ObjectsJsonFormat = MakeJsonFormat<FObjectsSchema>("objects-json", "JSON objects");

} // namespace Flitmark
