#pragma once

#include "CoreMinimal.h"

#include <deque>

namespace Flitmark
{

/** What drawing the comments costs, and how many there are. */
struct FFrameFigures
{
	/**
	 * Our own work per frame while the interface thread runs or waits for it, in seconds of processor time (which other
	 * programs don't affect): the last frame, and the mean and worst of the last 5 s.
	 */
	double LastWork = 0.0;
	double MeanWork = 0.0;
	double WorstWork = 0.0;

	double FramesPerSecond = 0.0;

	/** Comments on the canvas, in view or not. */
	int32 NumComments = 0;
};

/** The layer's resources as of its last frame. */
struct FSpriteFigures
{
	/** Sprites rasterized so far, and those still to be made or uploaded. */
	int64 NumMade = 0;
	int32 NumWaiting = 0;

	int64 TextureBytes = 0;

	/** Something was not drawn because it is absurdly long or large, or because the textures are full. */
	bool bUndrawn = false;
};

/** Keeps the figures of the last few seconds. For one thread at a time. */
class FFrameMeter
{
public:
	/** Seconds that a figure covers. */
	static constexpr double Span = 5.0;

	/** A frame begins at InNow, seconds of a steady clock. */
	void BeginFrame(double InNow);
	/** Adds seconds of work to the current frame. */
	void AddWork(double InSeconds);
	void SetNumComments(int32 InNumComments) { NumComments = InNumComments; }

	/** Walks over the last few seconds' frames, so use it for display only. */
	FFrameFigures GetFrames() const;

	void SetSprites(const FSpriteFigures& InFigures) { Sprites = InFigures; }
	const FSpriteFigures& GetSprites() const { return Sprites; }
	/** A new document begins: forgets what was not drawn before. */
	void ForgetUndrawn() { Sprites.bUndrawn = false; }

private:
	struct FFrame
	{
		double Begin = 0.0;
		double Work = 0.0;
	};

	std::deque<FFrame> Frames;
	int32 NumComments = 0;
	FSpriteFigures Sprites;
};

/** Adds the work in its scope to the current frame. */
class FMeteredWork
{
public:
	explicit FMeteredWork(FFrameMeter& InMeter);
	~FMeteredWork();

	FMeteredWork(const FMeteredWork&) = delete;
	FMeteredWork& operator=(const FMeteredWork&) = delete;

private:
	FFrameMeter& Meter;
	const double Begin;
};

} // namespace Flitmark
