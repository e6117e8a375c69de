#pragma once

#include "Formats/CommentDocumentWriter.h"
#include "Formats/ServiceComment.h"
#include "Overlay/TextMeasure.h"
#include "OverlayOptions.h"
#include "Subtitles/PlacedComments.h"

#include <memory>
#include <string>
#include <vector>

namespace CLI
{
class App;
class Option;
} // namespace CLI

namespace Flitmark
{

/** How comments become subtitles: the settings of the overlay that places them. */
struct FSubtitleArguments
{
	std::string Size = "1920x1080";
	int32 Fps = 60;
	FOverlayArguments Overlay;
	/** All of these, as the command has them. */
	std::vector<CLI::Option*> Options;

	/** The first of them that was given, such as "--size"; empty for none. */
	std::string FindGiven() const;
};

/** Adds the options of subtitles, as a group of their own. */
void AddSubtitleOptions(CLI::App& InCommand, FSubtitleArguments& InOutArguments);

/** Comments as the overlay places them, ready to be written. */
class FSubtitleOutput
{
public:
	/** Runs the overlay; empty with OutError set where it can't be. Notes on standard error what will not be seen. */
	static std::unique_ptr<FSubtitleOutput> Make(std::vector<FServiceComment> InComments,
												 const FSubtitleArguments& InArguments, std::string& OutError);

	/** False where the output stopped. */
	bool Write(const FTextOutput& InOutput) const;

	int64 CountComments() const { return static_cast<int64>(Placed.Comments.size()); }

private:
	std::unique_ptr<FTextMeasure> Measure;
	FPlacedComments Placed;
	double Opacity = 1.0;
};

} // namespace Flitmark
