#include "Subtitles/PlacedComments.h"

#include "Components/CanvasPanel.h"
#include "Formats/CommentDocument.h"
#include "Overlay/OverlayRunner.h"

#include <algorithm>
#include <unordered_map>

namespace Flitmark
{

namespace
{

using ETimespan::TicksPerSecond;

/** The seconds in which comments are due, in order. */
std::vector<int64> ListSeconds(const FCommentDocument& InDocument)
{
	std::vector<int64> Seconds;
	for (const FCommentEntry& Entry : InDocument.GetEntries())
	{
		if (Entry.IsReached())
		{
			Seconds.push_back(Entry.GetSecond());
		}
	}
	std::ranges::sort(Seconds);
	Seconds.erase(std::unique(Seconds.begin(), Seconds.end()), Seconds.end());
	return Seconds;
}

/** Follows each comment from frame to frame. */
class FPlacementLog
{
public:
	FPlacementLog(int32 InFps, FPlacedComments& OutPlaced)
		: Fps(InFps)
		, Placed(OutPlaced)
	{
	}

	int64 GetTicks(int64 InFrame) const { return InFrame * TicksPerSecond / Fps; }

	/** What is in view after a frame. */
	void Note(const FCommentScene& InScene, int64 InFrame)
	{
		std::size_t NumSeen = 0;
		for (const FSceneComment& Comment : InScene.GetComments())
		{
			const auto [Known, bNew] = Shown.try_emplace(Comment.Key);
			FShown& Each = Known->second;
			if (bNew)
			{
				Each = {Placed.Comments.size(), InFrame, InFrame, Comment.Position};
				Placed.Comments.push_back(
					{Comment.Style, GetTicks(InFrame), 0, Comment.Position, FVector2D::ZeroVector, Comment.bViewers});
			}
			Each.LastFrame = InFrame;
			Each.LastPosition = Comment.Position;
			++NumSeen;
		}
		if (NumSeen < Shown.size())
		{
			EndMissing(InFrame);
		}
	}

private:
	struct FShown
	{
		std::size_t Index = 0;
		int64 FirstFrame = 0;
		int64 LastFrame = 0;
		FVector2D LastPosition = FVector2D::ZeroVector;
	};

	void EndMissing(int64 InFrame)
	{
		std::erase_if(Shown,
					  [this, InFrame](const auto& InShown)
					  {
						  const bool bMissing = InShown.second.LastFrame != InFrame;
						  if (bMissing)
						  {
							  End(InShown.second);
						  }
						  return bMissing;
					  });
	}

	void End(const FShown& InShown)
	{
		FPlacedComment& Comment = Placed.Comments[InShown.Index];
		Comment.End = GetTicks(InShown.LastFrame + 1);
		if (InShown.LastFrame > InShown.FirstFrame)
		{
			const double Seconds = static_cast<double>(InShown.LastFrame - InShown.FirstFrame) / Fps;
			Comment.Velocity = (InShown.LastPosition - Comment.Position) / Seconds;
		}
	}

	const int32 Fps;
	FPlacedComments& Placed;
	/** By key. */
	std::unordered_map<uint64, FShown> Shown;
};

} // namespace

FVector2D FPlacedComment::GetPosition(int64 InTicks) const
{
	return Position + Velocity * (static_cast<double>(InTicks - Begin) / TicksPerSecond);
}

FPlacedComments PlaceComments(FOverlayRunner& InOutRunner, const FCommentDocument& InDocument, int32 InFps)
{
	FPlacedComments Placed;
	Placed.CanvasSize = InOutRunner.GetView().CanvasSize;
	FPlacementLog Log(InFps, Placed);
	const std::vector<int64> Seconds = ListSeconds(InDocument);
	const UCanvasPanel& Canvas = InOutRunner.GetStage().GetCanvas();
	int64 Frame = 0;
	for (auto Due = Seconds.begin(); Due != Seconds.end() || Canvas.GetChildrenCount() > 0; ++Frame)
	{
		// Frames without a comment change nothing.
		if (Canvas.GetChildrenCount() == 0)
		{
			Frame = std::max(Frame, *Due * InFps);
		}
		const int64 Ticks = Log.GetTicks(Frame);
		InOutRunner.SetMediaTime(Ticks);
		InOutRunner.RunFrame(1.0 / InFps);
		Log.Note(InOutRunner.GetScene(), Frame);
		Due = std::find_if(Due, Seconds.end(), [Ticks](int64 InSecond) { return InSecond * TicksPerSecond > Ticks; });
	}
	return Placed;
}

} // namespace Flitmark
