#include "DensityPictureLabels.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** Least distance between two labels, and between a label and another's line. */
constexpr double Gap = 10.0;

struct FPlaced
{
	FLabelWish Wish;
	FLabelPlace Place;
};

bool IsApart(const FLabelWish& InWish, const FLabelPlace& InPlace, const FPlaced& InOther)
{
	const double Right = InPlace.Left + InWish.Width;
	if (InPlace.Row == InOther.Place.Row)
	{
		return Right + Gap <= InOther.Place.Left || InOther.Place.Left + InOther.Wish.Width + Gap <= InPlace.Left;
	}
	// The upper one's line runs down past the lower one.
	const bool bUpper = InPlace.Row < InOther.Place.Row;
	const double Line = bUpper ? InWish.X : InOther.Wish.X;
	const double Left = bUpper ? InOther.Place.Left : InPlace.Left;
	const double Width = bUpper ? InOther.Wish.Width : InWish.Width;
	return Line + Gap / 2 <= Left || Left + Width + Gap / 2 <= Line;
}

} // namespace

std::vector<std::optional<FLabelPlace>> PlaceLabels(const std::vector<FLabelWish>& InWishes, double InLeft,
													double InRight, std::size_t InNumRows)
{
	std::vector<std::optional<FLabelPlace>> Places(InWishes.size());
	std::vector<FPlaced> Placed;
	for (std::size_t Index = 0; Index < InWishes.size(); ++Index)
	{
		const FLabelWish& Wish = InWishes[Index];
		for (std::size_t Row = 0; Row < InNumRows && !Places[Index] && Wish.Width <= InRight - InLeft; ++Row)
		{
			// Centred, or to the one or other side of its line.
			for (const double Left : {Wish.X - Wish.Width / 2, Wish.X - Gap / 2, Wish.X + Gap / 2 - Wish.Width})
			{
				const FLabelPlace Place{std::clamp(Left, InLeft, InRight - Wish.Width), Row};
				if (std::ranges::all_of(Placed, [&](const FPlaced& InOther) { return IsApart(Wish, Place, InOther); }))
				{
					Places[Index] = Place;
					Placed.push_back({Wish, Place});
					break;
				}
			}
		}
	}
	return Places;
}

} // namespace Flitmark
