#pragma once

#include "CoreTypes.h"
#include "Filtering/CommentFilter.h"

#include <memory>
#include <string>
#include <vector>

namespace Flitmark
{

/** One rule of a filter. */
class IFilterRule
{
public:
	explicit IFilterRule(std::string InName)
		: Name(std::move(InName))
	{
	}
	virtual ~IFilterRule() = default;
	IFilterRule(const IFilterRule&) = delete;
	IFilterRule& operator=(const IFilterRule&) = delete;

	const std::string& GetName() const { return Name; }

	/**
	 * Marks the comments that it takes, one element of OutTaken (all false at first) each. Those that stay may be
	 * changed; gives how many were.
	 */
	virtual int64 Apply(std::vector<FServiceComment>& InOutComments, std::vector<bool>& OutTaken) const = 0;

private:
	const std::string Name;
};

/** Null with OutError set where the pattern is none. */
std::unique_ptr<IFilterRule> MakeBlockRule(const std::string& InPattern, std::string& OutError);
std::unique_ptr<IFilterRule> MakeBlockUserRule(const std::string& InUser, std::string& OutError);
/** The same where a list has a pattern that is none, or more words than can be looked for at once. */
std::unique_ptr<IFilterRule> MakeBlockFileRule(const std::string& InFile, const FBlockList& InList,
											   std::string& OutError);
std::unique_ptr<IFilterRule> MakeOnlyRule(const std::vector<ECommentKind>& InKinds);
std::unique_ptr<IFilterRule> MakeMergeRule(double InSeconds);
std::unique_ptr<IFilterRule> MakeMaxPerSecondRule(int64 InMost);

} // namespace Flitmark
