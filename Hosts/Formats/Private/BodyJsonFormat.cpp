#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "ListParameters.h"
#include "TimeUnit.h"

namespace Flitmark
{

namespace
{

/** `body`, `color`, `size`, `mode`, and `time`, in seconds or milliseconds, or `position`, in milliseconds. */
class FBodySchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode)
	{
		return InNode.HasString({"body"}) && InNode.HasScalar({"time", "position"}) &&
			   InNode.HasScalar({"mode", "color", "size"});
	}

	void OnField(const FField& InField) override
	{
		if (!InField.IsText() || InField.bInList)
		{
			return;
		}
		const std::string_view Key = InField.Key;
		const std::string_view Text = InField.Text;
		if (Key == "body")
		{
			Comment.Text = Text;
		}
		else if (Key == "position" || (Key == "time" && !bHasPosition))
		{
			bHasPosition = Key == "position";
			SetTime(Text, bHasPosition ? ETimeUnit::Millisecond : ETimeUnit::Second);
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
		else
		{
			OnOrigin(Key, Text);
		}
	}

	const char* Finish() override
	{
		bAnyPosition = bAnyPosition || bHasPosition;
		return FinishText();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && IsOneOf(InKey, {"body", "position"});
	}

	/** Whether times are in milliseconds for sure. */
	bool HasPositions() const { return bAnyPosition; }

protected:
	void Restart() override { bHasPosition = false; }

private:
	void OnOrigin(std::string_view InKey, std::string_view InText)
	{
		if (IsOneOf(InKey, {"createTime", "date"}))
		{
			Comment.PostDate = ParseAnyDate(InText);
		}
		else if (IsOneOf(InKey, {"userId", "user", "author"}))
		{
			Comment.UserId = MakeUserId(InText);
		}
		else if (InKey == "userName")
		{
			Comment.UserName = MakeCleanText(InText);
		}
		else if (IsOneOf(InKey, {"danmakuId", "id"}))
		{
			Comment.Id = ParseInteger(InText).value_or(0);
		}
	}

	bool bHasPosition = false;
	bool bAnyPosition = false;
};

bool Read(IByteSource& InSource, FImportSink& OutSink, std::string&)
{
	FBodySchema Schema;
	ReadJson(InSource, Schema, OutSink);
	if (!Schema.HasPositions())
	{
		SettleTimeUnit(OutSink.GetComments(), ETimeUnit::Second);
	}
	return true;
}

} // namespace

extern const FCommentFormat BodyJsonFormat = {
	"body-json", "JSON bodies", EFormatSyntax::Json,
	[](const FFileHead& InHead) { return ProbeJson(InHead.Text, &FBodySchema::Matches); }, Read};

} // namespace Flitmark
