#pragma once

#include "CoreTypes.h"

/** Whether a widget is drawn, takes room and takes the pointer. The values are the engine's. */
enum class ESlateVisibility : uint8
{
	Visible,
	Collapsed,
	Hidden,
	HitTestInvisible,
	SelfHitTestInvisible,
};

/** Whether a child of a box takes the room that it wishes for or shares what is left. The values are the engine's. */
namespace ESlateSizeRule
{
enum Type : int
{
	Automatic,
	Fill,
};
} // namespace ESlateSizeRule

/** How much room a child of a box takes. */
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
