#pragma once

#include "CoreMinimal.h"

#include <optional>
#include <vector>

namespace Flitmark
{

/** A rectangle on a page, in pixels. */
struct FAtlasSlot
{
	int32 X = 0;
	int32 Y = 0;
	int32 Width = 0;
	int32 Height = 0;
};

/**
 * Finds room for rectangles on a square page. It packs them on shelves, since comments are wide and have only a few
 * heights. Freed room is reused; an empty shelf becomes room for shelves of other heights.
 */
class FAtlasPacker
{
public:
	/** InSize: the page's side, in pixels. */
	explicit FAtlasPacker(int32 InSize);

	/** Empty if there is no room; both sizes must be above 0. */
	std::optional<FAtlasSlot> Place(int32 InWidth, int32 InHeight);

	/** Frees a slot exactly as Place returned it. */
	void Remove(const FAtlasSlot& InSlot);

	bool IsEmpty() const { return NumSlots == 0; }

private:
	struct FSpan
	{
		int32 X = 0;
		int32 Width = 0;
	};
	struct FShelf
	{
		int32 Y = 0;
		int32 Height = 0;
		int32 NumSlots = 0;
		/** Free spans from left to right; no two touch. */
		std::vector<FSpan> Free;
	};

	std::size_t FindShelf(int32 InWidth, int32 InHeight, int32 InMostHeight) const;
	std::size_t OpenShelf(int32 InHeight);
	void CloseShelf(std::size_t InIndex);

	const int32 Size;
	int32 NumSlots = 0;
	/** From top to bottom, without gaps; no two empty ones touch. */
	std::vector<FShelf> Shelves;
};

} // namespace Flitmark
