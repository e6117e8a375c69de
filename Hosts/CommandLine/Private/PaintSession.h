#pragma once

#include "CommentOptions.h"
#include "Overlay/OverlayRunner.h"
#include "Overlay/SceneSprites.h"
#include "OverlayOptions.h"
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

/** The arguments that burn and shot share. */
struct FPaintArguments
{
	std::string Video;
	bool bAllowPlaylists = false;
	std::string Comments;
	FCommentArguments CommentOptions;
	std::string Output;
	FOverlayArguments Overlay;
	int32 Threads = 0;
};

/** VIDEO and COMMENTS. */
void AddPaintArguments(CLI::App& InCommand, FPaintArguments& InOutArguments);

/** The options of both, after the command's own. */
void AddPaintOptions(CLI::App& InCommand, FPaintArguments& InOutArguments);

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
	void Jump(int64 InTicks) override;

private:
	FOverlayView Cover(const FVideoShape& InShape) const;
	bool ReportUnseen(const FCommentDocument& InDocument, const FOverlayView& InView, std::string& OutError) const;

	std::string CommentsPath;
	FOverlayArguments Overlay;
	const FVideoLibrary* Video = nullptr;
	std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FOverlayRunner> Runner;
	/** Set from Open on. */
	std::optional<FSceneSprites> Sprites;
};

} // namespace Flitmark
