#pragma once

#include "CoreMinimal.h"

#include "FlitmarkCommentMode.generated.h"

/** How a comment is shown, for blueprints; the values are EDanmakuMode's. */
UENUM(BlueprintType)
enum class EFlitmarkCommentMode : uint8
{
	/** From right to left. */
	Scroll,
	/** Fixed at the top. */
	Top,
	/** Fixed at the bottom. */
	Bottom,
	/** No comment is shown this way yet. */
	Reverse
};
