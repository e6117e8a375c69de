#include "JsonForm.h"

#include "ChatCommands.h"
#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "ListParameters.h"

#include <algorithm>
#include <string>

namespace Flitmark
{

namespace
{

constexpr double TicksPerSecond = 1e7;
constexpr double TicksPerHundredth = 1e5;
constexpr double TicksPerMillisecond = 1e4;

bool IsOneOf(std::string_view InKey, std::initializer_list<std::string_view> InKeys)
{
	return std::ranges::find(InKeys, InKey) != InKeys.end();
}

bool StartsScalar(char InValueStart)
{
	return InValueStart != '{' && InValueStart != '[';
}

int64 ParseAnyDate(std::string_view InText)
{
	const int64 Date = ParseUnixDate(InText);
	return Date != 0 ? Date : ParseDate(InText);
}

/** `p` is "seconds,mode,colour,user" or a list's parameters, `c` is "seconds,colour,mode,size,user,sent". */
class FParametersForm final : public IJsonForm
{
public:
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
		return StartsScalar(InValueStart) && IsOneOf(InKey, {"p", "m", "c", "cid"});
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
		SetTime(Fields.Next(), TicksPerSecond);
		Comment.Kind = ToListKind(Fields.Next());
		Comment.Color = ParseColor(Fields.Next()).value_or(Comment.Color);
		Comment.UserId = MakeUserId(Fields.Next());
	}

	void ReadOlder(std::string_view InParameters)
	{
		FFieldSplitter Fields(InParameters, ',');
		SetTime(Fields.Next(), TicksPerSecond);
		Comment.Color = ParseColor(Fields.Next()).value_or(Comment.Color);
		Comment.Kind = ToListKind(Fields.Next());
		Comment.FontSize = ScaleSize(Fields.Next(), ListNormalSize);
		Comment.UserId = MakeUserId(Fields.Next());
		Comment.PostDate = ParseUnixDate(Fields.Next());
	}

	int64 Id = 0;
};

/** `[seconds, type, colour, author, text]`. */
class FRowsForm final : public IJsonForm
{
public:
	void OnField(const FField& InField) override
	{
		if (!InField.IsText())
		{
			return;
		}
		switch (InField.Index)
		{
		case 0:
			SetTime(InField.Text, TicksPerSecond);
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

/** `vpos` or `vposMs`, with commands; also inside a member `chat`. */
class FChatForm final : public IJsonForm
{
public:
	void OnField(const FField& InField) override
	{
		if (!InField.IsText())
		{
			return;
		}
		const std::string_view Key = InField.Key;
		if (Key == "vposMs")
		{
			SetTime(InField.Text, TicksPerMillisecond);
		}
		else if (Key == "vpos")
		{
			SetTime(InField.Text, TicksPerHundredth);
		}
		else if (Key == "content" || Key == "body")
		{
			Comment.Text = InField.Text;
		}
		else if (Key == "mail" || Key == "commands")
		{
			ApplyChatCommands(InField.Text, Comment);
		}
		else if (Key == "date" || Key == "postedAt")
		{
			Comment.PostDate = ParseAnyDate(InField.Text);
		}
		else
		{
			OnIdentity(Key, InField.Text);
		}
	}

	const char* Finish() override
	{
		Comment.Id = Comment.Id != 0 ? Comment.Id : Id;
		return FinishText();
	}

	bool IsEntryKey(std::string_view InKey, char InValueStart) const override
	{
		return (InKey == "chat" && InValueStart == '{') ||
			   (StartsScalar(InValueStart) && IsOneOf(InKey, {"vpos", "vposMs", "content", "body", "mail"}));
	}

	/** Pings and counters come in the same list. */
	bool StandsAlone() const override { return false; }

protected:
	void Restart() override { Id = 0; }

private:
	void OnIdentity(std::string_view InKey, std::string_view InText)
	{
		if (InKey == "user_id" || InKey == "userId")
		{
			Comment.UserId = MakeUserId(InText);
		}
		else if (InKey == "name")
		{
			Comment.UserName = MakeCleanText(InText);
		}
		else if (InKey == "no")
		{
			Comment.Id = ParseInteger(InText).value_or(0);
		}
		else if (InKey == "id")
		{
			Id = ParseInteger(InText).value_or(0);
		}
		else if (InKey == "thread")
		{
			Comment.PostId = ParseInteger(InText).value_or(0);
		}
	}

	/** Second to "no". */
	int64 Id = 0;
};

/** `position`, `content` and their like. */
class FObjectsForm final : public IJsonForm
{
public:
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
			SetTime(Text, TicksPerMillisecond);
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
		return StartsScalar(InValueStart) && IsOneOf(InKey, {"position", "content", "danmakuId", "textColor"});
	}
};

} // namespace

void IJsonForm::SetTime(std::string_view InText, double InTicksPerUnit)
{
	const std::optional<int64> Ticks = ParseTicks(InText, InTicksPerUnit);
	Comment.SpawnTicks = Ticks.value_or(0);
	bHasTime = Ticks.has_value();
}

const char* IJsonForm::FinishText()
{
	CleanText(Comment.Text);
	if (!bHasTime)
	{
		return "has no readable time";
	}
	return Comment.Text.empty() ? "has no text" : nullptr;
}

std::unique_ptr<IJsonForm> MakeParametersForm()
{
	return std::make_unique<FParametersForm>();
}

std::unique_ptr<IJsonForm> MakeRowsForm()
{
	return std::make_unique<FRowsForm>();
}

std::unique_ptr<IJsonForm> MakeChatForm()
{
	return std::make_unique<FChatForm>();
}

std::unique_ptr<IJsonForm> MakeObjectsForm()
{
	return std::make_unique<FObjectsForm>();
}

} // namespace Flitmark
