#pragma once

#include "CoreTypes.h"

/** Whether a widget is drawn, takes up room, and takes pointer input. The values are the engine's. */
enum class ESlateVisibility : uint8
{
	Visible,
	Collapsed,
	Hidden,
	HitTestInvisible,
	SelfHitTestInvisible,
};

/** Whether a box's child takes its desired room or a share of what is left. The values are the engine's. */
namespace ESlateSizeRule
{
enum Type : int
{
	Automatic,
	Fill,
};
} // namespace ESlateSizeRule

/** How much room a box's child takes. */
struct FSlateChildSize
{
	/** Share of what is left, for Fill. */
	float Value = 1.f;
	ESlateSizeRule::Type SizeRule = ESlateSizeRule::Automatic;

	FSlateChildSize() = default;
	FSlateChildSize(ESlateSizeRule::Type InSizeRule)
		: SizeRule(InSizeRule)
	{
	}
};
