#pragma once

#include "CommentOptions.h"
#include "StageOverlay.h"
#include "Overlay/TextMeasure.h"
#include "VideoLibrary.h"

#include <memory>
#include <optional>
#include <string>

namespace CLI
{
class App;
}

namespace Flitmark
{

/** What burn and shot are told alike. */
struct FPaintArguments
{
	std::string Video;
	std::string Comments;
	FCommentArguments CommentOptions;
	std::string Output;

	/** Canvas units per pixel. */
	std::optional<double> Scale;
	std::string Font;
	double Opacity = 1.0;
	uint32 Seed = 1;
	int32 Threads = 0;
};

/** Adds VIDEO, COMMENTS and the options of the comments' look. */
void AddPaintOptions(CLI::App& InCommand, FPaintArguments& InOutArguments);

/** All that is needed to paint a file's comments into a video. Tells on standard error what will not be seen. */
class FPaintSession
{
public:
	/** Null with OutError set where one of the files cannot be read, or the output is the file of the comments. */
	static std::unique_ptr<FPaintSession> Open(const FPaintArguments& InArguments, std::string& OutError);

	const FVideoLibrary& Library() const { return *Video; }
	IOverlaySource& Overlay() { return *Painted; }

	/** Tells what the painting left out. */
	void TellCuts() const;

private:
	bool LoadFont(const std::string& InFont, std::string& OutError);
	bool TellUnseen(const FCommentDocument& InDocument, const FCanvasView& InView, std::string& OutError) const;

	std::string CommentsPath;
	const FVideoLibrary* Video = nullptr;
	std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FStageOverlay> Painted;
};

} // namespace Flitmark
