#include "Commands.h"

#include "Activity.h"
#include "CommentOptions.h"
#include "Insight/DensityPicture.h"
#include "ExitCodes.h"
#include "Message.h"
#include "StatsReport.h"
#include "Files/TemporaryFile.h"
#include "Values/TimeText.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>

namespace Flitmark
{

namespace
{

struct FStatsArguments
{
	std::string Comments;
	std::string Picture;
	FCommentArguments CommentOptions;
};

/** How many entries the lists of minutes and texts have. */
constexpr std::size_t MostListed = 5;

bool WritePicture(const FStatsArguments& InArguments, const FCommentStats& InStats,
				  const std::vector<FServiceComment>& InComments, std::string& OutError)
{
	const std::string Title = std::filesystem::path(InArguments.Comments).filename().string();
	std::string Subtitle = CountComments(InStats.NumComments) + " in " + FormatTime(FTimespan(InStats.LastTicks));
	if (InStats.NumUsers > 1)
	{
		Subtitle += " by " + FormatCount(InStats.NumUsers) + " users";
	}
	return WriteWholeFile(InArguments.Picture, DrawDensityPicture(InComments, Title, Subtitle), OutError);
}

int RunStats(const FStatsArguments& InArguments)
{
	std::string Error = InArguments.Picture.empty() ? "" : OutputObstacle(InArguments.Comments, InArguments.Picture);
	const std::optional<FCommentSettings> Settings =
		Error.empty() ? FCommentSettings::Make(InArguments.CommentOptions, Error) : std::nullopt;
	auto Activity = std::make_unique<FActivity>("reading " + InArguments.Comments);
	std::optional<FCommentsInput> Input =
		Settings ? FCommentsInput::Read(InArguments.Comments, Settings->Options.Kinds, Error) : std::nullopt;
	if (!Input || (Input->Bytes && !Input->ImportOwn(Error)))
	{
		return PrintError(Error);
	}
	Activity.reset();
	PrintReport("%s\n", DescribeImport(Input->Report));
	for (const std::string& Line : DescribeLosses(Input->Report))
	{
		PrintReport("%s\n", Line);
	}
	for (const FFilterRule& Rule :
		 Settings->Filter ? Settings->Filter->Apply(Input->Comments) : std::vector<FFilterRule>())
	{
		PrintReport("%s\n", DescribeRule(Rule));
	}
	Activity = std::make_unique<FActivity>("counting");
	const FCommentStats Stats = GatherStats(Input->Comments, MostListed);
	Activity.reset();
	const std::string Report = DescribeStats(Stats, GatherSpawnTicks(Input->Comments), FStatsStyle::OfStandardOutput());
	std::printf("%s%s", Report.empty() ? "" : "\n", Report.c_str());
	if (!InArguments.Picture.empty())
	{
		if (!WritePicture(InArguments, Stats, Input->Comments, Error))
		{
			return PrintError(Error);
		}
		PrintReport("\n%s: the density over time\n", InArguments.Picture);
	}
	return ExitSuccess;
}

constexpr const char* Footer =
	R"(Words and texts that several comments in a minute share are listed with their counts, ignoring case.

Examples:
  flitmark stats comments.xml
  flitmark stats comments.json -o density.svg --only scroll)";

} // namespace

void AddStatsCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FStatsArguments>();
	CLI::App* const Command = InApp.add_subcommand("stats", "Summarize a comment file: when, what, how, by how many");
	Command->add_option("COMMENTS", Arguments->Comments, "Comment file, in any known format")->required();
	Command->add_option("-o,--output", Arguments->Picture, "Also draw the density over time as a picture, *.svg")
		->type_name("PICTURE")
		->check(CLI::Validator(
			[](const std::string& InName)
			{
				return InName.ends_with(".svg") || InName.ends_with(".SVG")
						   ? std::string()
						   : "\"" + InName + "\" must end in .svg; only SVG is supported";
			},
			""));
	AddCommentOptions(*Command, Arguments->CommentOptions);
	Command->footer(Footer);
	Command->callback([Arguments, &OutExitCode] { OutExitCode = RunStats(*Arguments); });
}

} // namespace Flitmark
