#pragma once

#include "CommentOptions.h"
#include "Overlay/OverlayRunner.h"
#include "Overlay/SceneSprites.h"
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

/** The arguments that burn, shot, and overlay share. */
struct FPaintArguments
{
	std::string Video;
	/** The picture where there is no video. */
	std::optional<FVideoShape> Shape;
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

/** Adds VIDEO, unless it is not wanted, COMMENTS and the options for what the comments look like. */
void AddPaintOptions(CLI::App& InCommand, FPaintArguments& InOutArguments, bool bInVideo = true);

/** Paints a file's comments into a video. Notes on standard error what will not be seen. */
class FPaintSession final : public IOverlaySource
{
public:
	/** Null with OutError set where one of the files cannot be read, or the output is the file of the comments. */
	static std::unique_ptr<FPaintSession> Open(const FPaintArguments& InArguments, std::string& OutError);

	const FVideoLibrary& Library() const { return *Video; }

	/** Notes what was not painted in full. */
	void ReportCuts() const;

	void Open(const FVideoShape& InShape) override;
	void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites) override;
	bool IsOver() const override;

private:
	FOverlayView Cover(const FVideoShape& InShape) const;
	bool LoadFont(const std::string& InFont, std::string& OutError);
	bool ReportUnseen(const FCommentDocument& InDocument, const FOverlayView& InView, std::string& OutError) const;

	std::string CommentsPath;
	/** Canvas units per pixel of the picture's height; the usual canvas without it. */
	std::optional<double> UnitsPerPixel;
	const FVideoLibrary* Video = nullptr;
	std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FOverlayRunner> Runner;
	/** The last second in which a comment starts, and the one that the overlay is in. */
	int64 LastSecond = -1;
	int64 Second = 0;
	/** Set from Open on. */
	std::optional<FSceneSprites> Sprites;
};

} // namespace Flitmark
