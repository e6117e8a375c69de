#pragma once

#include "CommentOptions.h"
#include "Overlay/OverlayRunner.h"
#include "Overlay/SceneSprites.h"
#include "OverlayOptions.h"
#include "VideoLibrary.h"
#include "ViewerReport.h"

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
	bool bAllowPlaylists = false;
	std::string Comments;
	FCommentArguments CommentOptions;
	std::string Output;
	FOverlayArguments Overlay;
	int32 Threads = 0;

	/** Media time in ticks from which on somebody watches; for a picture the end of time. */
	int64 BeginTicks = 0;
};

/** VIDEO, unless it is not wanted, and COMMENTS. */
void AddPaintArguments(CLI::App& InCommand, FPaintArguments& InOutArguments, bool bInVideo = true);

/** The options of both, after the command's own. */
void AddPaintOptions(CLI::App& InCommand, FPaintArguments& InOutArguments);

/** Paints a file's comments into a video. */
class FPaintSession final : public IOverlaySource
{
public:
	/** Null with OutError set where one of the files cannot be read, or the output is the file of the comments. */
	static std::unique_ptr<FPaintSession> Open(const FPaintArguments& InArguments, std::string& OutError);

	const FVideoLibrary& Library() const { return *Video; }

	/** Notes what was not painted in full. */
	void ReportCuts() const;

	/** What became of the comments, once the last frame is painted. */
	FViewerReport GetReport() const;

	void Open(const FVideoShape& InShape) override;
	void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites) override;
	bool IsOver() const override;
	void Jump(int64 InTicks) override;

private:
	FOverlayView Cover(const FVideoShape& InShape) const;
	int64 CountOver() const;

	std::string CommentsPath;
	FOverlayArguments Overlay;
	FDueSeconds Due;
	int64 NumCrowdedOut = 0;
	int64 BeginTicks = 0;
	/** Set when the watching begins: how many comments were shown before and are gone. */
	std::optional<int64> NumOver;
	const FVideoLibrary* Video = nullptr;
	std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FOverlayRunner> Runner;
	/** Set from Open on. */
	std::optional<FSceneSprites> Sprites;
};

} // namespace Flitmark
