#include "CommentFilterRules.h"

#include "Formats/FieldValues.h"

#include <re2/re2.h>

#include <algorithm>
#include <charconv>
#include <unordered_set>

namespace Flitmark
{

namespace
{

/** All of a file in one rule, so that a report does not get a line for each of hundreds of words. */
class FBlockFileRule final : public IFilterRule
{
public:
	explicit FBlockFileRule(const std::string& InFile)
		: IFilterRule("--block-file " + InFile)
	{
	}

	/** False with OutError set if a pattern is none, or there are too many words. */
	bool Prepare(const FBlockList& InList, std::string& OutError)
	{
		std::string Words;
		for (const std::string& Word : InList.Words)
		{
			Words.append(Words.empty() ? "(?i)" : "|").append(RE2::QuoteMeta(Word));
		}
		bool bGood = Words.empty() || AddPattern(Words, Patterns, OutError);
		for (std::size_t Index = 0; bGood && Index < InList.Patterns.size(); ++Index)
		{
			bGood = AddPattern(InList.Patterns[Index], Patterns, OutError);
		}
		for (std::size_t Index = 0; bGood && Index < InList.Users.size(); ++Index)
		{
			bGood = AddUser(InList.Users[Index], OutError);
		}
		OutError = bGood ? OutError : GetName() + ": " + OutError;
		return bGood;
	}

	int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const override
	{
		for (std::size_t Index = 0; Index < InOutComments.size(); ++Index)
		{
			const FServiceComment& Comment = InOutComments[Index];
			OutTaken[Index] = Ids.contains(Comment.UserId) || Matches(Comment.Text, Patterns) ||
							  (!Comment.UserName.empty() &&
							   (Names.contains(Comment.UserName) || Matches(Comment.UserName, NamePatterns)));
		}
		return 0;
	}

private:
	using FPatterns = std::vector<std::unique_ptr<RE2>>;

	static bool Matches(const std::string& InText, const FPatterns& InPatterns)
	{
		return std::ranges::any_of(InPatterns, [&InText](const std::unique_ptr<RE2>& InPattern)
								   { return RE2::PartialMatch(InText, *InPattern); });
	}

	static bool AddPattern(const std::string& InPattern, FPatterns& OutPatterns, std::string& OutError)
	{
		// Enough for some ten thousand words.
		constexpr int64_t MaxMemory = int64_t{128} << 20;
		RE2::Options Options;
		Options.set_log_errors(false);
		Options.set_max_mem(MaxMemory);
		OutPatterns.push_back(std::make_unique<RE2>(InPattern, Options));
		const RE2& Pattern = *OutPatterns.back();
		if (!Pattern.ok())
		{
			OutError = Pattern.error_code() == RE2::ErrorPatternTooLarge
						   ? "it has too many words to look for at once; split it"
						   : "\"" + InPattern + "\" is not a regular expression: " + Pattern.error();
		}
		return Pattern.ok();
	}

	/** A pattern between slashes for names, or a number, a service's own text, or a name. */
	bool AddUser(const std::string& InUser, std::string& OutError)
	{
		if (InUser.size() > 2 && InUser.front() == '/' && InUser.back() == '/')
		{
			return AddPattern(InUser.substr(1, InUser.size() - 2), NamePatterns, OutError);
		}
		Names.insert(InUser);
		Ids.insert(HashUser(InUser));
		int64 Number = 0;
		const char* const End = InUser.data() + InUser.size();
		const auto [Stopped, Error] = std::from_chars(InUser.data(), End, Number);
		if (Error == std::errc() && Stopped == End)
		{
			Ids.insert(Number);
		}
		return true;
	}

	FPatterns Patterns;
	FPatterns NamePatterns;
	std::unordered_set<std::string> Names;
	std::unordered_set<int64> Ids;
};

} // namespace

std::unique_ptr<IFilterRule> MakeBlockFileRule(const std::string& InFile, const FBlockList& InList,
											   std::string& OutError)
{
	auto Rule = std::make_unique<FBlockFileRule>(InFile);
	return Rule->Prepare(InList, OutError) ? std::move(Rule) : nullptr;
}

} // namespace Flitmark
