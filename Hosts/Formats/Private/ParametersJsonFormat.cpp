#include "Formats/FieldValues.h"
#include "JsonFormat.h"
#include "ListParameters.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** `p` is "seconds,mode,color,user" or a list's parameters, `c` is "seconds,color,mode,size,user,sent". */
class FParametersSchema final : public IJsonSchema
{
public:
	static bool Matches(const FJsonNode& InNode) { return InNode.HasString({"p", "c"}) && InNode.HasString({"m"}); }

	void OnField(const FField& InField) override
	{
		if (!InField.IsText())
		{
			return;
		}
		if (InField.Key == "m")
		{
			Comment.Text = InField.Text;
		}
		else if (InField.Key == "p")
		{
			ReadPresent(InField.Text);
		}
		else if (InField.Key == "c")
		{
			ReadOlder(InField.Text);
		}
		else if (InField.Key == "cid")
		{
			Id = ParseInteger(InField.Text).value_or(0);
		}
	}

	const char* Finish() override
	{
		Comment.Id = Id != 0 ? Id : Comment.Id;
		return FinishText();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return IsScalar(InValueStart) && IsOneOf(InKey, {"p", "m", "c", "cid"});
	}

protected:
	void Restart() override { Id = 0; }

private:
	void ReadPresent(std::string_view InParameters)
	{
		constexpr std::ptrdiff_t CommasOfList = 6;
		if (std::ranges::count(InParameters, ',') >= CommasOfList)
		{
			bHasTime = ReadListParameters(InParameters, Comment);
			return;
		}
		FFieldSplitter Fields(InParameters, ',');
		SetTime(Fields.Next(), ETimeUnit::Second);
		Comment.Kind = ToListKind(Fields.Next());
		Comment.Color = ParseColor(Fields.Next()).value_or(Comment.Color);
		Comment.UserId = MakeUserId(Fields.Next());
	}

	void ReadOlder(std::string_view InParameters)
	{
		FFieldSplitter Fields(InParameters, ',');
		SetTime(Fields.Next(), ETimeUnit::Second);
		Comment.Color = ParseColor(Fields.Next()).value_or(Comment.Color);
		Comment.Kind = ToListKind(Fields.Next());
		Comment.FontSize = ScaleSize(Fields.Next(), ListNormalSize);
		Comment.UserId = MakeUserId(Fields.Next());
		Comment.PostDate = ParseUnixDate(Fields.Next());
	}

	int64 Id = 0;
};

} // namespace

extern const FCommentFormat ParametersJsonFormat =
	MakeJsonFormat<FParametersSchema>("parameters-json", "JSON with parameters");

} // namespace Flitmark
