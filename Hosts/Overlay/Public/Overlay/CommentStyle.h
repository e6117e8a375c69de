#pragma once

#include "CoreMinimal.h"
#include "Text/TextEngine.h"

#include <cstddef>
#include <string>

class UTextBlock;

namespace Flitmark
{

/** What a comment looks like. Comments of equal style share a sprite at any one scale. */
struct FCommentStyle
{
	std::u16string Text;
	/** Points at 96 DPI. */
	float Size = 0.f;
	FColor Color;

	/** A comment's style, its size times InScale; of an absurdly long text only the part that a sprite can show. */
	static FCommentStyle Of(const UTextBlock& InText, double InScale);

	/** False where there is no text or the color is fully transparent. */
	bool IsVisible() const { return Color.A > 0 && !Text.empty(); }

	FSprite Rasterize(FTextEngine& InEngine, FTextScale InScale) const;

	bool operator==(const FCommentStyle&) const = default;
};

struct FCommentStyleHash
{
	std::size_t operator()(const FCommentStyle& InStyle) const;
};

} // namespace Flitmark
