#pragma once

#include "CoreTypes.h"
#include "Filtering/BlockList.h"
#include "Formats/ServiceComment.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Flitmark
{

/** Which comments are left out. Rules apply in the order in which they stand here. */
struct FFilterOptions
{
	/** Longest window of MergeSeconds: comments are reached within a day only. */
	static constexpr double MaxMergeSeconds = 86'400.0;

	/** Regular expressions in RE2's syntax; a comment is taken where a part of its text matches. */
	std::vector<std::string> Block;

	/**
	 * A user's number as in a document, the text by which a service names the user, or the display name; between slashes
	 * a regular expression as in Block, for display names.
	 */
	std::vector<std::string> BlockUsers;

	/** Lists from files, each with what its rule is called after, the file. */
	std::vector<std::pair<std::string, FBlockList>> BlockFiles;

	/** Only comments of these kinds stay. */
	std::optional<std::vector<ECommentKind>> Only;

	/** Equal texts that come no more than so many seconds after the first become that one, above 0. */
	std::optional<double> MergeSeconds;

	/** How many comments of each second stay, 1 or more. */
	std::optional<int64> MaxPerSecond;

	bool IsEmpty() const
	{
		return Block.empty() && BlockUsers.empty() && BlockFiles.empty() && !Only && !MergeSeconds && !MaxPerSecond;
	}
};

/** What one rule did. */
struct FFilterRule
{
	/** The rule as the command line writes it, such as "--merge 5". */
	std::string Name;

	/** How many comments it took out. */
	int64 NumTaken = 0;

	/** How many of those that stay now stand for others too; set by the merging rule. */
	int64 NumChanged = 0;
};

class IFilterRule;

/** Rules that were understood, ready for any number of comments. */
class FCommentFilter
{
public:
	/** Null with OutError, "--option: what is wrong", where a rule is not understood. */
	static std::unique_ptr<FCommentFilter> Create(const FFilterOptions& InOptions, std::string& OutError);
	~FCommentFilter();

	/** Takes out what the rules take and keeps the order of the rest; one entry a rule, also where it took nothing. */
	std::vector<FFilterRule> Apply(std::vector<FServiceComment>& InOutComments) const;

private:
	FCommentFilter();

	std::vector<std::unique_ptr<const IFilterRule>> Rules;
};

/** Empty where the text is a regular expression; otherwise why it is none. */
std::optional<std::string> FindPatternFault(const std::string& InPattern);

/** The same for one of BlockUsers, which need not be a pattern. */
std::optional<std::string> FindUserFault(const std::string& InUser);

/** "scroll,top" as kinds; empty where a name is none of scroll, top and bottom. */
std::optional<std::vector<ECommentKind>> ParseKinds(std::string_view InText);

} // namespace Flitmark
