#include "CommentFilterRules.h"

#include "Formats/CommentChange.h"
#include "Formats/CommentTraits.h"
#include "Formats/FieldValues.h"

#include <re2/re2.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <unordered_map>

namespace Flitmark
{

namespace
{

RE2::Options MakePatternOptions()
{
	RE2::Options Options;
	Options.set_log_errors(false);
	return Options;
}

/** Where the comments are, ordered by time; those of one time in the order in which they stand. */
std::vector<std::size_t> OrderByTime(const std::vector<FServiceComment>& InComments)
{
	std::vector<std::size_t> Order(InComments.size());
	std::iota(Order.begin(), Order.end(), std::size_t(0));
	std::ranges::stable_sort(Order, {}, [&InComments](std::size_t InIndex) { return InComments[InIndex].SpawnTicks; });
	return Order;
}

class FBlockRule final : public IFilterRule
{
public:
	explicit FBlockRule(const std::string& InPattern)
		: IFilterRule("--block \"" + InPattern + "\"")
		, Pattern(InPattern, MakePatternOptions())
	{
	}

	const RE2& GetPattern() const { return Pattern; }

	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		for (std::size_t Index = 0; Index < InOutComments.size(); ++Index)
		{
			OutTaken[Index] = RE2::PartialMatch(InOutComments[Index].Text, Pattern);
		}
		return 0;
	}

private:
	const RE2 Pattern;
};

class FBlockUserRule final : public IFilterRule
{
public:
	/** A text of digits may be a number, or a name that a service gave. */
	explicit FBlockUserRule(const std::string& InUser)
		: IFilterRule("--block-user " + InUser)
		, User(InUser)
		, Hash(HashUser(InUser))
	{
		const char* const End = InUser.data() + InUser.size();
		const auto [Stopped, Error] = std::from_chars(InUser.data(), End, Number);
		bNumber = Error == std::errc() && Stopped == End;
	}

	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		for (std::size_t Index = 0; Index < InOutComments.size(); ++Index)
		{
			const FServiceComment& Comment = InOutComments[Index];
			OutTaken[Index] =
				Comment.UserId == Hash || (bNumber && Comment.UserId == Number) || Comment.UserName == User;
		}
		return 0;
	}

private:
	const std::string User;
	const int64 Hash;
	int64 Number = 0;
	bool bNumber = false;
};

/** The pattern of a user that is one, `/pattern/`. */
std::optional<std::string> FindUserPattern(const std::string& InUser)
{
	const bool bPattern = InUser.size() > 2 && InUser.front() == '/' && InUser.back() == '/';
	return bPattern ? std::optional(InUser.substr(1, InUser.size() - 2)) : std::nullopt;
}

class FBlockNameRule final : public IFilterRule
{
public:
	FBlockNameRule(const std::string& InUser, const std::string& InPattern)
		: IFilterRule("--block-user " + InUser)
		, Pattern(InPattern, MakePatternOptions())
	{
	}

	/** Who has no name is not meant, whatever the pattern. */
	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		for (std::size_t Index = 0; Index < InOutComments.size(); ++Index)
		{
			const std::string& User = InOutComments[Index].UserName;
			OutTaken[Index] = !User.empty() && RE2::PartialMatch(User, Pattern);
		}
		return 0;
	}

private:
	const RE2 Pattern;
};

class FOnlyRule final : public IFilterRule
{
public:
	FOnlyRule(const std::vector<ECommentKind>& InKinds, std::string InName)
		: IFilterRule(std::move(InName))
		, Kinds(InKinds)
	{
	}

	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		for (std::size_t Index = 0; Index < InOutComments.size(); ++Index)
		{
			OutTaken[Index] = std::ranges::find(Kinds, InOutComments[Index].Kind) == Kinds.end();
		}
		return 0;
	}

private:
	const std::vector<ECommentKind> Kinds;
};

class FMergeRule final : public IFilterRule
{
public:
	FMergeRule(double InSeconds, std::string InName)
		: IFilterRule(std::move(InName))
		, WindowTicks(std::llround(InSeconds * static_cast<double>(TicksPerSecond)))
	{
	}

	/** A comment that is not seen neither takes others nor is taken: its text would be lost with them. */
	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		std::unordered_map<std::string, std::size_t> LastFirst;
		std::unordered_map<std::size_t, int64> Counts;
		for (const std::size_t Index : OrderByTime(InOutComments))
		{
			const FServiceComment& Comment = InOutComments[Index];
			if (!IsVisible(Comment))
			{
				continue;
			}
			const auto [Entry, bNew] = LastFirst.try_emplace(NormalizeSpace(Comment.Text), Index);
			const std::size_t First = Entry->second;
			if (bNew || Comment.SpawnTicks - InOutComments[First].SpawnTicks > WindowTicks)
			{
				Entry->second = Index;
				continue;
			}
			OutTaken[Index] = true;
			++Counts.try_emplace(First, 1).first->second;
		}
		for (const auto& [Index, Count] : Counts)
		{
			SetText(InOutComments[Index], InOutComments[Index].Text + " ×" + std::to_string(Count));
		}
		return static_cast<int64>(Counts.size());
	}

private:
	const int64 WindowTicks;
};

class FMaxPerSecondRule final : public IFilterRule
{
public:
	explicit FMaxPerSecondRule(int64 InMost)
		: IFilterRule("--max-per-second " + std::to_string(InMost))
		, Most(static_cast<std::size_t>(InMost))
	{
	}

	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		std::vector<std::size_t> Order = OrderByTime(InOutComments);
		std::erase_if(Order, [&](std::size_t InIndex) { return !IsVisible(InOutComments[InIndex]); });
		for (std::size_t Begin = 0; Begin < Order.size();)
		{
			const int64 Second = GetSecond(InOutComments[Order[Begin]]);
			std::size_t End = Begin + 1;
			while (End < Order.size() && GetSecond(InOutComments[Order[End]]) == Second)
			{
				++End;
			}
			Thin(Order, Begin, End, OutTaken);
			Begin = End;
		}
		return 0;
	}

private:
	/** Takes so many of one second that Most are left, at even distances. */
	void Thin(const std::vector<std::size_t>& InOrder, std::size_t InBegin, std::size_t InEnd,
			  std::vector<bool>& OutTaken) const
	{
		const std::size_t Count = InEnd - InBegin;
		if (Count <= Most)
		{
			return;
		}
		// As a straight line is drawn on a grid: the remainder wraps around Most times in Count steps.
		std::size_t Remainder = Count / 2;
		for (std::size_t Index = InBegin; Index < InEnd; ++Index)
		{
			Remainder += Most;
			OutTaken[InOrder[Index]] = Remainder < Count;
			Remainder -= Remainder < Count ? 0 : Count;
		}
	}

	const std::size_t Most;
};

std::string FormatNumber(double InNumber)
{
	char Text[32];
	std::snprintf(Text, sizeof(Text), "%.10g", InNumber);
	return Text;
}

std::string_view ToName(ECommentKind InKind)
{
	switch (InKind)
	{
	case ECommentKind::Scroll:
		return "scroll";
	case ECommentKind::Top:
		return "top";
	case ECommentKind::Bottom:
		return "bottom";
	default:
		return "other";
	}
}

} // namespace

std::unique_ptr<IFilterRule> MakeBlockRule(const std::string& InPattern, std::string& OutError)
{
	auto Rule = std::make_unique<FBlockRule>(InPattern);
	if (!Rule->GetPattern().ok())
	{
		OutError = "--block: \"" + InPattern + "\" is not a valid regular expression: " + Rule->GetPattern().error();
		return nullptr;
	}
	return Rule;
}

std::unique_ptr<IFilterRule> MakeBlockUserRule(const std::string& InUser, std::string& OutError)
{
	if (const std::optional<std::string> Fault = FindUserFault(InUser))
	{
		OutError = "--block-user: \"" + InUser + "\" is not a valid regular expression: " + *Fault;
		return nullptr;
	}
	const std::optional<std::string> Pattern = FindUserPattern(InUser);
	if (Pattern)
	{
		return std::make_unique<FBlockNameRule>(InUser, *Pattern);
	}
	return std::make_unique<FBlockUserRule>(InUser);
}

std::unique_ptr<IFilterRule> MakeOnlyRule(const std::vector<ECommentKind>& InKinds)
{
	std::string Name;
	for (const ECommentKind Kind : InKinds)
	{
		Name.append(Name.empty() ? "--only " : ",").append(ToName(Kind));
	}
	return std::make_unique<FOnlyRule>(InKinds, std::move(Name));
}

std::unique_ptr<IFilterRule> MakeMergeRule(double InSeconds)
{
	return std::make_unique<FMergeRule>(InSeconds, "--merge " + FormatNumber(InSeconds));
}

std::unique_ptr<IFilterRule> MakeMaxPerSecondRule(int64 InMost)
{
	return std::make_unique<FMaxPerSecondRule>(InMost);
}

std::optional<std::string> FindUserFault(const std::string& InUser)
{
	const std::optional<std::string> Pattern = FindUserPattern(InUser);
	return Pattern ? FindPatternFault(*Pattern) : std::nullopt;
}

std::optional<std::string> FindPatternFault(const std::string& InPattern)
{
	const RE2 Pattern(InPattern, MakePatternOptions());
	return Pattern.ok() ? std::nullopt : std::optional(Pattern.error());
}

} // namespace Flitmark
