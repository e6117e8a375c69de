#pragma once

/** Why a text was committed. The values are the engine's. */
namespace ETextCommit
{
enum Type : int
{
	/** By losing the focus for a reason of the system's own. */
	Default,
	OnEnter,
	OnUserMovedFocus,
	OnCleared,
};
} // namespace ETextCommit
