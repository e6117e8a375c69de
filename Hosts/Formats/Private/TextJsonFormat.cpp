#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "ListParameters.h"
#include "TimeUnit.h"

namespace Flitmark
{

namespace
{

/** `text` and `stime`, mostly in milliseconds, with a list's modes and sizes. */
class FTextSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode) { return InNode.HasScalar({"stime"}) && InNode.HasString({"text"}); }

	void OnField(const FField& InField) override
	{
		if (!InField.IsText() || InField.bInList)
		{
			return;
		}
		const std::string_view Key = InField.Key;
		const std::string_view Text = InField.Text;
		if (Key == "text")
		{
			Comment.Text = Text;
		}
		else if (Key == "stime")
		{
			SetTime(Text, ETimeUnit::Second);
		}
		else if (Key == "mode")
		{
			Comment.Kind = ToListKind(Text);
		}
		else if (Key == "size")
		{
			Comment.FontSize = ScaleSize(Text, ListNormalSize);
		}
		else if (Key == "color")
		{
			Comment.Color = ParseColor(Text).value_or(Comment.Color);
		}
		else if (Key == "date")
		{
			Comment.PostDate = ParseAnyDate(Text);
		}
		else if (Key == "hash")
		{
			Comment.UserId = Text.empty() ? 0 : HashUser(Text);
		}
		else if (Key == "dbid")
		{
			Comment.Id = ParseInteger(Text).value_or(0);
		}
	}

	const char* Finish() override
	{
		FinishListText(Comment);
		return FinishText();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && IsOneOf(InKey, {"stime", "text"});
	}
};

bool Read(IByteSource& InSource, FImportSink& OutSink, std::string&)
{
	FTextSchema Schema;
	ReadJson(InSource, Schema, OutSink);
	SettleTimeUnit(OutSink.GetComments(), ETimeUnit::Millisecond);
	return true;
}

} // namespace

extern const FCommentFormat TextJsonFormat = {
	"text-json", "JSON texts", EFormatSyntax::Json,
	[](const FFileHead& InHead) { return ProbeJson(InHead.Text, &FTextSchema::Matches); }, Read};

} // namespace Flitmark
