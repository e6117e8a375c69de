#pragma once

#include "Filtering/CommentFilter.h"
#include "Filtering/KindPolicy.h"
#include "Overlay/OverlaySettings.h"
#include "Overlay/OverlayView.h"

#include <array>
#include <memory>
#include <string_view>

namespace Flitmark
{

/** What happens before a frame. */
enum class EFrameEvent : uint8
{
	None,
	Jump,
	JumpInSlices,
	Pause,
	/** Another picture. */
	Resize,
	/** Another area, font scale, speed, and offset. */
	Adjust
};

struct FFramePlan
{
	EFrameEvent Event = EFrameEvent::None;
	/** Which comment of the document a jump goes to. */
	uint8 Target = 0;
	/** Seconds that the frame takes. */
	double Seconds = 0.0;
};

/** Everything that a run is besides its comments. */
struct FPipelinePlan
{
	FKindPolicy Kinds;
	/** Null for none. */
	std::unique_ptr<FCommentFilter> Filter;
	/** As a host does that takes any text. */
	bool bAnyText = false;

	/** The pictures, from one Resize to the next. */
	std::array<FOverlayView, 2> Views;
	std::array<FOverlaySettings, 2> Settings;
	uint32 Seed = 0;
	bool bSeedsEachSecond = false;

	/** Repeated. */
	std::array<FFramePlan, 8> Frames;

	/** The file. */
	std::string_view Comments;
};

/**
 * An input as a plan: one that begins with a byte 1, as no comment file does, has the plan in the bytes that follow, any
 * other is all comments. All values are those that the hosts' options take.
 */
FPipelinePlan ReadPlan(const uint8* InData, std::size_t InSize);

} // namespace Flitmark
