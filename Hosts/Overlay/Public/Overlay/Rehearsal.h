#pragma once

#include "Overlay/OverlaySettings.h"
#include "Overlay/PlacementTally.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

class FSlateFontMeasure;

namespace Flitmark
{

class FCommentDocument;

struct FRehearsalOptions
{
	/** The picture in canvas units. */
	FVector2f Size{1920.f, 1080.f};

	/** All but the offset and the looks count. */
	FOverlaySettings Settings;
	uint32 Seed = 1;

	/** Frames a second, 1 to 1000; that of most videos. */
	int32 Fps = 30;

	/** The seconds of media time whose comments take part. */
	int64 FirstSecond = 0;
	int64 LastSecond = MAX_int64;

	/** Outlives the rehearsal. */
	FSlateFontMeasure* Measure = nullptr;

	/** May be empty; is told from time to time how much of it is done, from 0 to 1. */
	std::function<void(double)> Progress;
};

struct FRehearsal
{
	FPlacementCounts Counts;
	/** By minute of media time. */
	std::map<int64, FPlacementCounts> Minutes;
};

/**
 * Runs the overlay without a picture, to see which comments find a lane: what a trace of the same document shows. It takes
 * the comments in portions, so that a document of any size needs little memory. Empty with OutError set where no stage can
 * be built; no other stage may exist meanwhile.
 */
std::optional<FRehearsal> Rehearse(const FCommentDocument& InDocument, const FRehearsalOptions& InOptions,
								   std::string& OutError);

} // namespace Flitmark
