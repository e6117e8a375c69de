#include "CommentOptions.h"

#include "Activity.h"
#include "Files/FileText.h"
#include "Message.h"
#include "Values/OptionChecks.h"
#include "Values/TimeText.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>

namespace Flitmark
{

namespace
{

constexpr const char* FormatGroup = "Formats other than Flitmark's own";
constexpr const char* FilterGroup = "Filters (applied in this order)";

std::string CheckPattern(const std::string& InText)
{
	const std::optional<std::string> Fault = FindPatternFault(InText);
	return Fault ? "\"" + InText + "\" is not a regular expression: " + *Fault : std::string();
}

std::string CheckUser(const std::string& InText)
{
	const std::optional<std::string> Fault = FindUserFault(InText);
	return InText.empty() ? "must not be empty"
		   : Fault		  ? "\"" + InText + "\" is not a regular expression: " + *Fault
						  : std::string();
}

std::optional<double> ParseWindow(std::string_view InText)
{
	const std::optional<double> Seconds = ParseTime(InText);
	return Seconds && *Seconds > 0.0 && *Seconds <= FFilterOptions::MaxMergeSeconds ? Seconds : std::nullopt;
}

/** The modes that stay; nothing if all do. */
std::optional<std::vector<ECommentKind>> MakeKinds(const FCommentArguments& InArguments)
{
	const std::pair<bool, ECommentKind> Flags[] = {{InArguments.bNoScroll, ECommentKind::Scroll},
												   {InArguments.bNoTop, ECommentKind::Top},
												   {InArguments.bNoBottom, ECommentKind::Bottom}};
	std::optional<std::vector<ECommentKind>> Kinds;
	if (!InArguments.Only.empty())
	{
		Kinds = ParseKinds(InArguments.Only);
	}
	for (const auto& [bLeftOut, Kind] : Flags)
	{
		if (bLeftOut)
		{
			Kinds = Kinds ? Kinds : ParseKinds("scroll,top,bottom");
			std::erase(*Kinds, Kind);
		}
	}
	return Kinds;
}

std::optional<int64> ParseMost(std::string_view InText)
{
	int64 Most = 0;
	const auto [End, Error] = std::from_chars(InText.data(), InText.data() + InText.size(), Most);
	return Error == std::errc() && End == InText.data() + InText.size() && Most >= 1 ? std::optional(Most)
																					 : std::nullopt;
}

/** Reads a block file, and says what of it cannot be applied; false with OutError set if it cannot be read. */
bool LoadBlockFile(const std::string& InPath, FFilterOptions& OutFilters, std::string& OutError)
{
	const std::optional<std::string> Bytes = LoadBytes(InPath, OutError);
	if (!Bytes)
	{
		OutError = "--block-file: " + OutError;
		return false;
	}
	std::optional<FBlockList> List = FBlockList::Parse(*Bytes, OutError);
	if (!List)
	{
		OutError = "--block-file: " + InPath + ": " + OutError;
		return false;
	}
	constexpr std::size_t MostTold = 3;
	for (std::size_t Index = 0; Index < std::min(MostTold, List->Unusable.size()); ++Index)
	{
		PrintNote(InPath + ": " + List->Unusable[Index]);
	}
	if (const auto NumUnusable = static_cast<int64>(List->Unusable.size()); NumUnusable > 0)
	{
		PrintNote(InPath + ": " + FormatCount(NumUnusable) +
				  (NumUnusable == 1 ? " entry blocks nothing" : " entries block nothing"));
	}
	if (List->NumDisabled > 0)
	{
		PrintNote(InPath + ": " + FormatCount(List->NumDisabled) +
				  (List->NumDisabled == 1 ? " entry is switched off" : " entries are switched off"));
	}
	OutFilters.BlockFiles.emplace_back(InPath, std::move(*List));
	return true;
}

} // namespace

void AddCommentOptions(CLI::App& InCommand, FCommentArguments& InOutArguments)
{
	InCommand.add_option("--reverse", InOutArguments.Reverse, "Comments that move left to right: scroll or drop")
		->check(CLI::IsMember({"scroll", "drop"}))
		->type_name("HOW")
		->capture_default_str()
		->group(FormatGroup);
	InCommand
		.add_option("--positioned", InOutArguments.Positioned,
					"Comments placed by their authors: text (shown at the top, drawings dropped) or drop")
		->check(CLI::IsMember({"text", "drop"}))
		->type_name("HOW")
		->capture_default_str()
		->group(FormatGroup);
	InCommand
		.add_option("--paid", InOutArguments.Paid,
					"Paid comments of live shows: text (sender, amount, and words at the top) or drop")
		->check(CLI::IsMember({"text", "drop"}))
		->type_name("HOW")
		->capture_default_str()
		->group(FormatGroup);
	// One value each time, or they would swallow the files after them.
	InCommand.add_option("--block", InOutArguments.Block, "Drop comments whose text matches; repeatable")
		->type_name("REGEX")
		->allow_extra_args(false)
		->check(CLI::Validator(&CheckPattern, ""))
		->group(FilterGroup);
	InCommand
		.add_option("--block-user", InOutArguments.BlockUsers,
					"Drop a user's comments, by number, the service's own user ID, display name, or /REGEX/ for names; "
					"repeatable")
		->type_name("USER")
		->allow_extra_args(false)
		->check(CLI::Validator(&CheckUser, ""))
		->group(FilterGroup);
	InCommand
		.add_option(
			"--block-file", InOutArguments.BlockFiles,
			"Drop what a file lists: a word, /REGEX/, or user:NAME a line, or a service's block list; repeatable")
		->type_name("FILE")
		->allow_extra_args(false)
		->group(FilterGroup);
	InCommand.add_option("--only", InOutArguments.Only, "Keep only these modes, such as top,bottom")
		->type_name("MODES")
		->check(MakeCheck(&ParseKinds, "is not a list of modes; try scroll,top,bottom or a part of it"))
		->group(FilterGroup);
	InCommand.add_flag("--no-scroll", InOutArguments.bNoScroll, "Leave scrolling comments out")->group(FilterGroup);
	InCommand.add_flag("--no-top", InOutArguments.bNoTop, "Leave comments at the top out")->group(FilterGroup);
	InCommand.add_flag("--no-bottom", InOutArguments.bNoBottom, "Leave comments at the bottom out")->group(FilterGroup);
	InCommand
		.add_option("--merge", InOutArguments.Merge,
					"Merge equal texts that come within this many seconds of the first, and show the count")
		->type_name("SECONDS")
		->check(MakeCheck(&ParseWindow, "is not a number of seconds above 0 and up to a day"))
		->group(FilterGroup);
	InCommand
		.add_option("--max-per-second", InOutArguments.MaxPerSecond,
					"Keep at most N comments per second, spread evenly")
		->type_name("N")
		->check(MakeCheck(&ParseMost, "is not a whole number of 1 or more"))
		->group(FilterGroup);
}

std::optional<FCommentSettings> FCommentSettings::Make(const FCommentArguments& InArguments, std::string& OutError)
{
	FCommentSettings Settings;
	Settings.Options.Kinds.bReverseAsScroll = InArguments.Reverse == "scroll";
	Settings.Options.Kinds.bPositionedAsText = InArguments.Positioned == "text";
	Settings.Options.Kinds.bPaidAsText = InArguments.Paid == "text";
	FFilterOptions Filters;
	Filters.Block = InArguments.Block;
	Filters.BlockUsers = InArguments.BlockUsers;
	for (const std::string& File : InArguments.BlockFiles)
	{
		if (!LoadBlockFile(File, Filters, OutError))
		{
			return std::nullopt;
		}
	}
	Filters.Only = MakeKinds(InArguments);
	Filters.MergeSeconds = ParseWindow(InArguments.Merge);
	Filters.MaxPerSecond = ParseMost(InArguments.MaxPerSecond);
	if (!Filters.IsEmpty())
	{
		Settings.Filter = FCommentFilter::Create(Filters, OutError);
		if (!Settings.Filter)
		{
			return std::nullopt;
		}
		Settings.Options.Filter = Settings.Filter.get();
	}
	return Settings;
}

std::optional<FCommentsFile> LoadCommentsAloud(const std::string& InPath, const FCommentArguments& InArguments,
											   std::string& OutError)
{
	const std::optional<FCommentSettings> Settings = FCommentSettings::Make(InArguments, OutError);
	std::optional<FCommentsFile> File;
	if (Settings)
	{
		const FActivity Activity("reading " + InPath);
		File = LoadComments(InPath, Settings->Options, OutError);
	}
	if (File)
	{
		PrintNotes(File->MakeNotes());
	}
	return File;
}

} // namespace Flitmark
