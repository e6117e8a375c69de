#include "Filtering/CommentFilter.h"

#include "CommentFilterRules.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** Takes the marked ones out. */
int64 Remove(std::vector<FServiceComment>& InOutComments, const std::vector<bool>& InTaken)
{
	std::size_t Kept = 0;
	for (std::size_t Index = 0; Index < InTaken.size(); ++Index)
	{
		if (!InTaken[Index])
		{
			if (Kept != Index)
			{
				InOutComments[Kept] = std::move(InOutComments[Index]);
			}
			++Kept;
		}
	}
	InOutComments.resize(Kept);
	return static_cast<int64>(InTaken.size() - Kept);
}

/** What is wrong with the numbers and lists among the options; empty where nothing is. */
std::string FindFault(const FFilterOptions& InOptions)
{
	if (std::ranges::any_of(InOptions.BlockUsers, &std::string::empty))
	{
		return "--block-user: names no user";
	}
	if (InOptions.Only && InOptions.Only->empty())
	{
		return "--only: names no mode; scroll, top and bottom are known";
	}
	if (InOptions.MergeSeconds &&
		!(*InOptions.MergeSeconds > 0.0 && *InOptions.MergeSeconds <= FFilterOptions::MaxMergeSeconds))
	{
		return "--merge: must be above 0 seconds and no more than a day";
	}
	return InOptions.MaxPerSecond && *InOptions.MaxPerSecond < 1 ? "--max-per-second: must be 1 or more" : "";
}

} // namespace

FCommentFilter::FCommentFilter() = default;
FCommentFilter::~FCommentFilter() = default;

std::unique_ptr<FCommentFilter> FCommentFilter::Create(const FFilterOptions& InOptions, std::string& OutError)
{
	std::string Fault = FindFault(InOptions);
	if (!Fault.empty())
	{
		OutError = std::move(Fault);
		return nullptr;
	}
	std::unique_ptr<FCommentFilter> Filter(new FCommentFilter);
	for (const std::string& Pattern : InOptions.Block)
	{
		auto Rule = MakeBlockRule(Pattern, OutError);
		if (!Rule)
		{
			return nullptr;
		}
		Filter->Rules.push_back(std::move(Rule));
	}
	for (const std::string& User : InOptions.BlockUsers)
	{
		auto Rule = MakeBlockUserRule(User, OutError);
		if (!Rule)
		{
			return nullptr;
		}
		Filter->Rules.push_back(std::move(Rule));
	}
	for (const auto& [File, List] : InOptions.BlockFiles)
	{
		auto Rule = MakeBlockFileRule(File, List, OutError);
		if (!Rule)
		{
			return nullptr;
		}
		Filter->Rules.push_back(std::move(Rule));
	}
	if (InOptions.Only)
	{
		Filter->Rules.push_back(MakeOnlyRule(*InOptions.Only));
	}
	if (InOptions.MergeSeconds)
	{
		Filter->Rules.push_back(MakeMergeRule(*InOptions.MergeSeconds));
	}
	if (InOptions.MaxPerSecond)
	{
		Filter->Rules.push_back(MakeMaxPerSecondRule(*InOptions.MaxPerSecond));
	}
	return Filter;
}

std::vector<FFilterRule> FCommentFilter::Apply(std::vector<FServiceComment>& InOutComments) const
{
	std::vector<FFilterRule> Report;
	for (const auto& Rule : Rules)
	{
		std::vector<bool> Taken(InOutComments.size(), false);
		const int64 NumChanged = Rule->Apply(InOutComments, Taken);
		Report.push_back({Rule->GetName(), Remove(InOutComments, Taken), NumChanged});
	}
	return Report;
}

std::optional<std::vector<ECommentKind>> ParseKinds(std::string_view InText)
{
	std::vector<ECommentKind> Kinds;
	while (true)
	{
		const std::string_view Name = InText.substr(0, InText.find(','));
		if (Name != "scroll" && Name != "top" && Name != "bottom")
		{
			return std::nullopt;
		}
		Kinds.push_back(Name == "scroll" ? ECommentKind::Scroll
						: Name == "top"	 ? ECommentKind::Top
										 : ECommentKind::Bottom);
		if (Name.size() == InText.size())
		{
			return Kinds;
		}
		InText.remove_prefix(Name.size() + 1);
	}
}

} // namespace Flitmark
