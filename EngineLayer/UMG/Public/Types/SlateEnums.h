#pragma once

/** Why a text was committed. The values are the engine's. */
namespace ETextCommit
{
enum Type : int
{
	/** Focus was lost for a reason other than the viewer's. */
	Default,
	OnEnter,
	OnUserMovedFocus,
	OnCleared,
};
} // namespace ETextCommit

/** Where a widget sits in the room it is given. The values are the engine's. */
enum EHorizontalAlignment : int
{
	HAlign_Fill,
	HAlign_Left,
	HAlign_Center,
	HAlign_Right,
};

enum EVerticalAlignment : int
{
	VAlign_Fill,
	VAlign_Top,
	VAlign_Center,
	VAlign_Bottom,
};
