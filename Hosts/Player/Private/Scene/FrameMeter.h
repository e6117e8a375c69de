#pragma once

#include "CoreMinimal.h"

#include <deque>

namespace Flitmark
{

/** What drawing the comments costs, and what there is of them. */
struct FFrameFigures
{
	/**
	 * Our own work of a frame while the interface thread runs or waits for it, in seconds of processor time (other programs
	 * do not count): the last frame, mean and worst of the last 5 s.
	 */
	double LastWork = 0.0;
	double MeanWork = 0.0;
	double WorstWork = 0.0;

	double FramesPerSecond = 0.0;

	/** Comments on the canvas, in view or not. */
	int32 NumComments = 0;
};

/** What the layer has drawn on, as of its last frame. */
struct FSpriteFigures
{
	/** Sprites rasterised so far, and still to be made or to be handed to the graphics card. */
	int64 NumMade = 0;
	int32 NumWaiting = 0;

	int64 TextureBytes = 0;

	/** Something stayed undrawn, because it is absurdly long or large or the textures are full. */
	bool bUndrawn = false;
};

/** Keeps the figures of the last seconds. For one thread at a time. */
class FFrameMeter
{
public:
	/** Seconds that a figure looks back. */
	static constexpr double Span = 5.0;

	/** A frame begins at InNow, seconds of a steady clock. */
	void BeginFrame(double InNow);
	/** Seconds of work that belong to the present frame. */
	void AddWork(double InSeconds);
	void SetNumComments(int32 InNumComments) { NumComments = InNumComments; }

	/** Costs a walk over the last seconds' frames: for display. */
	FFrameFigures GetFrames() const;

	void SetSprites(const FSpriteFigures& InFigures) { Sprites = InFigures; }
	const FSpriteFigures& GetSprites() const { return Sprites; }
	/** Another document begins: what stayed undrawn before is told no more. */
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

/** Adds the work of its scope to the present frame. */
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
