#include "JsonSchema.h"

#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace Flitmark
{

namespace
{

/** Numbers of our document are 32-bit; a fraction is cut off. */
int32 ToInt32(std::string_view InText)
{
	using FLimits = std::numeric_limits<int32>;
	return static_cast<int32>(std::clamp<int64>(ParseInteger(InText).value_or(0), FLimits::min(), FLimits::max()));
}

/** Rounded; times that are never reached any more are brought near, so that nobody's sums overflow. */
int64 ToTicks(std::string_view InText)
{
	constexpr double NeverReached = 1e18;
	return std::llround(std::clamp(ParseNumber(InText).value_or(0.0), -NeverReached, NeverReached));
}

ECommentKind ToKind(int32 InMode)
{
	switch (InMode)
	{
	case 0:
		return ECommentKind::Scroll;
	case 1:
		return ECommentKind::Top;
	case 2:
		return ECommentKind::Bottom;
	default:
		return ECommentKind::Unknown;
	}
}

/** `#RRGGBB`, `#RRGGBBAA` or `#RGB`; transparent where it is none of them. */
uint32 ToColor(std::string_view InText)
{
	const std::string_view Digits = InText.starts_with('#') ? InText.substr(1) : InText;
	uint32 Value = 0;
	if (Digits.size() == 8)
	{
		const auto [Stop, Error] = std::from_chars(Digits.data(), Digits.data() + Digits.size(), Value, 16);
		return Stop == Digits.data() + Digits.size() ? Value : 0;
	}
	return InText.starts_with('#') ? ParseColor(InText).value_or(0) : ParseColor("#" + std::string(InText)).value_or(0);
}

/** The values of our own document; whatever they are, it is a comment. */
class FOwnForm final : public IJsonSchema
{
public:
	void OnField(const FField& InField) override
	{
		if (InField.Type == EJsonValue::Null || InField.bInList)
		{
			return;
		}
		const std::string_view Key = InField.Key;
		if (Key == "danmaku_content")
		{
			Comment.Text = MakeCleanText(InField.Text);
		}
		else if (Key == "user_display_name")
		{
			Comment.UserName = MakeCleanText(InField.Text);
		}
		else if (Key == "danmaku_font_color")
		{
			Comment.Color = ToColor(InField.Text);
		}
		else if (Key == "danmaku_post_date")
		{
			Comment.PostDate = ParseDate(InField.Text);
		}
		else
		{
			const bool bTrue = InField.Type == EJsonValue::Boolean && InField.Text == "true";
			OnNumber(Key, bTrue ? "1" : InField.Text);
		}
	}

	const char* Finish() override { return nullptr; }

	bool IsEntryKey(std::string_view InKey, char) const override { return InKey.starts_with("danmaku_"); }

	std::string_view GetListName() const override { return "datas"; }

protected:
	void Restart() override
	{
		// What our document's reader takes for what is missing.
		Comment.FontSize = 0;
		Comment.Color = 0;
	}

private:
	void OnNumber(std::string_view InKey, std::string_view InNumber)
	{
		if (InKey == "danmaku_spawn_time")
		{
			Comment.SpawnTicks = ToTicks(InNumber);
		}
		else if (InKey == "danmaku_mode")
		{
			Comment.Kind = ToKind(ToInt32(InNumber));
		}
		else if (InKey == "danmaku_font_size")
		{
			Comment.FontSize = ToInt32(InNumber);
		}
		else if (InKey == "danmaku_id")
		{
			Comment.Id = ParseInteger(InNumber).value_or(0);
		}
		else if (InKey == "post_id")
		{
			Comment.PostId = ParseInteger(InNumber).value_or(0);
		}
		else if (InKey == "user_id")
		{
			Comment.UserId = ParseInteger(InNumber).value_or(0);
		}
	}
};

} // namespace

std::unique_ptr<IJsonSchema> MakeOwnForm()
{
	return std::make_unique<FOwnForm>();
}

} // namespace Flitmark
