#pragma once

#include "Overlay/TextMeasure.h"
#include "Stage/Stage.h"

#include <memory>
#include <string>

namespace Flitmark
{

constexpr float FrameTime = 1.f / 60.f;

/** A stage after its preroll; ends the program where none can be made. */
std::unique_ptr<FStage> MakeStage(FVector2f CanvasSize, FSlateFontMeasure& Measure);

/** Ends the program where there is no font. */
std::unique_ptr<FTextMeasure> MakeTextMeasure();

/**
 * Seconds of processor time of this thread so far: all that the overlay does, it does on one, and other programs do not
 * count.
 */
double ReadThreadTime();

/** A frame at a second of media time; gives how long that took, in seconds of thread time. */
double GoTo(FStage& Stage, int64 Second, float DeltaTime = 0.f);

/** The text of Count scrolling comments that all fall due in the given second: 5 to 30 letters or ideographs each. */
std::string MakeDenseDocument(int32 Count, int64 Second, int32 FontSize);

/** The text of so many such comments in each of the given seconds, three in four of them scrolling. */
std::string MakeSteadyDocument(int32 PerSecond, int64 NumSeconds);

} // namespace Flitmark
