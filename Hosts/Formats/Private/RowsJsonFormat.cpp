#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"

namespace Flitmark
{

namespace
{

/** `[seconds, type, colour, author, text]`. */
class FRowsSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode)
	{
		return InNode.bList && InNode.bInList && InNode.bStartsWithNumber && InNode.NumCommas >= 3;
	}

	void OnField(const FField& InField) override
	{
		if (!InField.IsText())
		{
			return;
		}
		switch (InField.Index)
		{
		case 0:
			SetTime(InField.Text, ETimeUnit::Second);
			break;
		case 1:
			Comment.Kind = ToKind(InField.Text);
			break;
		case 2:
			Comment.Color = ParseColor(InField.Text).value_or(Comment.Color);
			break;
		case 3:
			Comment.UserId = MakeUserId(InField.Text);
			Comment.UserName = MakeCleanText(InField.Text);
			break;
		case 4:
			Comment.Text = InField.Text;
			break;
		default:
			break;
		}
	}

	const char* Finish() override { return FinishText(); }
	bool IsEntryKey(std::string_view, char) const override { return false; }
	bool HasListEntries() const override { return true; }

private:
	static ECommentKind ToKind(std::string_view InType)
	{
		const std::optional<int64> Type = ParseInteger(InType);
		if (InType == "top" || Type == 1)
		{
			return ECommentKind::Top;
		}
		if (InType == "bottom" || Type == 2)
		{
			return ECommentKind::Bottom;
		}
		return !Type || Type == 0 ? ECommentKind::Scroll : ECommentKind::Unknown;
	}
};

} // namespace

extern const FCommentFormat RowsJsonFormat = MakeJsonFormat<FRowsSchema>("rows-json", "JSON rows");

} // namespace Flitmark
