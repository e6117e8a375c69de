#pragma once

#include "CoreMinimal.h"
#include "Text/TextEngine.h"

#include <cstddef>
#include <string>

class UTextBlock;

namespace Flitmark
{

/** What makes the sprites of two comments equal, at one scale. */
struct FCommentLook
{
	std::u16string Text;
	/** Points at 96 DPI. */
	float Size = 0.f;
	FColor Color;

	/** A comment's text, less what no sprite shows of an absurdly long one. */
	static FCommentLook Of(const UTextBlock& InText);

	FSprite Rasterise(FTextEngine& InEngine, FTextScale InScale) const;

	bool operator==(const FCommentLook&) const = default;
};

struct FCommentLookHash
{
	std::size_t operator()(const FCommentLook& InLook) const;
};

} // namespace Flitmark
