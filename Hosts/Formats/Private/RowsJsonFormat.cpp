#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "CommentJson.h"
#include "JsonFormat.h"
#include "ListParameters.h"

#include <string>

namespace Flitmark
{

namespace
{

/** `[seconds, type, color, author, text]`. */
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
		if (!InField.Key.empty())
		{
			// Inside an object: that of a text has its words under this name.
			if (InField.Index == TextIndex && InField.Key == "n")
			{
				Words = InField.Text;
			}
			return;
		}
		switch (InField.Index)
		{
		case 0:
			SetTime(InField.Text, ETimeUnit::Second);
			break;
		case 1:
			ReadType(InField.Text);
			break;
		case 2:
			Comment.Color = ParseColor(InField.Text).value_or(Comment.Color);
			break;
		case 3:
			Comment.UserId = MakeUserId(InField.Text);
			Comment.UserName = MakeCleanText(InField.Text);
			break;
		case TextIndex:
			Comment.Text = InField.Text;
			break;
		default:
			break;
		}
	}

	const char* Finish() override
	{
		Skipped = bReverse ? "rows from left to right" : "";
		if (Comment.Text.empty() && !Words.empty())
		{
			// As it stands where the object is written as a text: what takes the words out there does it here, too.
			Comment.Text =
				Comment.Kind == ECommentKind::Positioned ? "{\"n\":" + QuoteJson(Words) + "}" : std::move(Words);
		}
		return FinishText();
	}

	bool IsEntryKey(std::string_view, char) const override { return false; }
	bool HasListEntries() const override { return true; }

protected:
	void Restart() override
	{
		Words.clear();
		bReverse = false;
	}

private:
	static constexpr std::size_t TextIndex = 4;

	/** Types from 6 on are the modes of lists; what they say is only worth anything where they put it. */
	void ReadType(std::string_view InType)
	{
		const std::optional<int64> Type = ParseInteger(InType);
		if (InType == "top" || Type == 1)
		{
			Comment.Kind = ECommentKind::Top;
		}
		else if (InType == "bottom" || Type == 2)
		{
			Comment.Kind = ECommentKind::Bottom;
		}
		else if (Type && *Type != 0)
		{
			const ECommentKind Kind = ToListKind(InType);
			bReverse = Kind == ECommentKind::Reverse;
			Comment.Kind = *Type > 6 ? Kind : ECommentKind::Unknown;
		}
	}

	/** The words of a text that is an object. */
	std::string Words;
	bool bReverse = false;
};

} // namespace

extern const FCommentFormat RowsJsonFormat = MakeJsonFormat<FRowsSchema>("rows-json", "JSON rows");

} // namespace Flitmark
