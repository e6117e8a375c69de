#include "CommentOptions.h"

#include "Message.h"
#include "OptionChecks.h"
#include "OptionValues.h"

#include <CLI/CLI.hpp>

#include <charconv>

namespace Flitmark
{

namespace
{

constexpr const char* FormatGroup = "Comments of other formats";
constexpr const char* FilterGroup = "Filters (in this order)";

std::string CheckPattern(const std::string& InText)
{
	const std::optional<std::string> Fault = FindPatternFault(InText);
	return Fault ? "\"" + InText + "\" is not a valid regular expression: " + *Fault : std::string();
}

std::optional<double> ParseWindow(std::string_view InText)
{
	const std::optional<double> Seconds = ParseTime(InText);
	return Seconds && *Seconds > 0.0 && *Seconds <= FFilterOptions::MaxMergeSeconds ? Seconds : std::nullopt;
}

std::optional<int64> ParseMost(std::string_view InText)
{
	int64 Most = 0;
	const auto [End, Error] = std::from_chars(InText.data(), InText.data() + InText.size(), Most);
	return Error == std::errc() && End == InText.data() + InText.size() && Most >= 1 ? std::optional(Most)
																					 : std::nullopt;
}

} // namespace

void AddCommentOptions(CLI::App& InCommand, FCommentArguments& InOutArguments)
{
	InCommand.add_option("--reverse", InOutArguments.Reverse, "Comments that move from left to right: scroll or drop")
		->check(CLI::IsMember({"scroll", "drop"}))
		->type_name("HOW")
		->capture_default_str()
		->group(FormatGroup);
	InCommand
		.add_option(
			"--positioned", InOutArguments.Positioned,
			"Comments that their authors placed: text (stands at the top; pieces of drawings are dropped) or drop")
		->check(CLI::IsMember({"text", "drop"}))
		->type_name("HOW")
		->capture_default_str()
		->group(FormatGroup);
	// One value each time, or they would swallow the files behind them.
	InCommand.add_option("--block", InOutArguments.Block, "Leave out texts that match; may be given several times")
		->type_name("REGEX")
		->allow_extra_args(false)
		->check(CLI::Validator(&CheckPattern, ""))
		->group(FilterGroup);
	InCommand
		.add_option("--block-user", InOutArguments.BlockUsers,
					"Leave out what a user wrote, by number or the service's own name; may be given several times")
		->type_name("ID")
		->allow_extra_args(false)
		->check(CLI::Validator([](const std::string& InUser) { return InUser.empty() ? "names no user" : ""; }, ""))
		->group(FilterGroup);
	InCommand.add_option("--only", InOutArguments.Only, "Leave only these modes, such as top,bottom")
		->type_name("MODES")
		->check(MakeCheck(&ParseKinds, "is no list of the modes scroll, top and bottom, parted by commas"))
		->group(FilterGroup);
	InCommand
		.add_option("--merge", InOutArguments.Merge,
					"Make one of equal texts that come within so many seconds of the first, with their count")
		->type_name("SECONDS")
		->check(MakeCheck(&ParseWindow, "is no number of seconds above 0 and up to a day"))
		->group(FilterGroup);
	InCommand
		.add_option("--max-per-second", InOutArguments.MaxPerSecond,
					"Leave so many comments of each second, spread evenly")
		->type_name("N")
		->check(MakeCheck(&ParseMost, "is no whole number of 1 or more"))
		->group(FilterGroup);
}

std::optional<FCommentSettings> FCommentSettings::Make(const FCommentArguments& InArguments, std::string& OutError)
{
	FCommentSettings Settings;
	Settings.Options.Kinds.bReverseAsScroll = InArguments.Reverse == "scroll";
	Settings.Options.Kinds.bPositionedAsText = InArguments.Positioned == "text";
	FFilterOptions Filters;
	Filters.Block = InArguments.Block;
	Filters.BlockUsers = InArguments.BlockUsers;
	Filters.Only = InArguments.Only.empty() ? std::nullopt : ParseKinds(InArguments.Only);
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
	std::optional<FCommentsFile> File = Settings ? LoadComments(InPath, Settings->Options, OutError) : std::nullopt;
	if (File)
	{
		PrintNotes(File->MakeNotes());
	}
	return File;
}

} // namespace Flitmark
