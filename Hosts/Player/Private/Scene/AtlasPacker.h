#pragma once

#include "CoreMinimal.h"

#include <optional>
#include <vector>

namespace Flitmark
{

/** A rectangle of a page, in pixels. */
struct FAtlasSlot
{
	int32 X = 0;
	int32 Y = 0;
	int32 Width = 0;
	int32 Height = 0;
};

/**
 * Finds room for rectangles on a square page: on shelves, for comments are wide and of a few heights. What is given back
 * is used again; an emptied shelf becomes room for shelves of other heights.
 */
class FAtlasPacker
{
public:
	/** InSize: pixels of a side. */
	explicit FAtlasPacker(int32 InSize);

	/** Empty where there is no room; both sizes are above 0. */
	std::optional<FAtlasSlot> Place(int32 InWidth, int32 InHeight);

	/** Gives a slot back, as it was given by Place. */
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
		/** Room that is free, from left to right, never touching. */
		std::vector<FSpan> Free;
	};

	std::size_t FindShelf(int32 InWidth, int32 InHeight, int32 InMostHeight) const;
	std::size_t OpenShelf(int32 InHeight);
	void CloseShelf(std::size_t InIndex);

	const int32 Size;
	int32 NumSlots = 0;
	/** From top to bottom, without gaps; no two without slots touch. */
	std::vector<FShelf> Shelves;
};

} // namespace Flitmark
