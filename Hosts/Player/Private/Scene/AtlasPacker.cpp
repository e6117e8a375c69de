#include "Scene/AtlasPacker.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** Shelf heights are multiples of this, so that sprites of similar heights share shelves. */
constexpr int32 HeightStep = 8;

constexpr std::size_t None = static_cast<std::size_t>(-1);

} // namespace

FAtlasPacker::FAtlasPacker(int32 InSize)
	: Size(InSize)
	, Shelves{{0, InSize, 0, {{0, InSize}}}}
{
}

std::size_t FAtlasPacker::FindShelf(int32 InWidth, int32 InHeight, int32 InMostHeight) const
{
	std::size_t Best = None;
	for (std::size_t Index = 0; Index < Shelves.size(); ++Index)
	{
		const FShelf& Shelf = Shelves[Index];
		if (Shelf.NumSlots > 0 && Shelf.Height >= InHeight && Shelf.Height <= InMostHeight &&
			(Best == None || Shelf.Height < Shelves[Best].Height) &&
			std::ranges::any_of(Shelf.Free, [InWidth](const FSpan& Span) { return Span.Width >= InWidth; }))
		{
			Best = Index;
		}
	}
	return Best;
}

std::size_t FAtlasPacker::OpenShelf(int32 InHeight)
{
	std::size_t Best = None;
	for (std::size_t Index = 0; Index < Shelves.size(); ++Index)
	{
		const FShelf& Shelf = Shelves[Index];
		if (Shelf.NumSlots == 0 && Shelf.Height >= InHeight && (Best == None || Shelf.Height < Shelves[Best].Height))
		{
			Best = Index;
		}
	}
	if (Best == None)
	{
		return None;
	}
	const int32 Wanted = (InHeight + HeightStep - 1) / HeightStep * HeightStep;
	const int32 Rest = Shelves[Best].Height - Wanted;
	if (Rest > 0)
	{
		const FShelf Below{Shelves[Best].Y + Wanted, Rest, 0, {{0, Size}}};
		Shelves[Best].Height = Wanted;
		Shelves.insert(Shelves.begin() + static_cast<std::ptrdiff_t>(Best) + 1, Below);
	}
	return Best;
}

std::optional<FAtlasSlot> FAtlasPacker::Place(int32 InWidth, int32 InHeight)
{
	if (InWidth > Size || InHeight > Size)
	{
		return std::nullopt;
	}
	// A shelf that wastes little, else a new one, else any that fits.
	std::size_t Index = FindShelf(InWidth, InHeight, InHeight + InHeight / 4 + HeightStep);
	Index = Index == None ? OpenShelf(InHeight) : Index;
	Index = Index == None ? FindShelf(InWidth, InHeight, Size) : Index;
	if (Index == None)
	{
		return std::nullopt;
	}
	FShelf& Shelf = Shelves[Index];
	const auto Span =
		std::ranges::find_if(Shelf.Free, [InWidth](const FSpan& InSpan) { return InSpan.Width >= InWidth; });
	const FAtlasSlot Slot{Span->X, Shelf.Y, InWidth, InHeight};
	Span->X += InWidth;
	Span->Width -= InWidth;
	if (Span->Width == 0)
	{
		Shelf.Free.erase(Span);
	}
	++Shelf.NumSlots;
	++NumSlots;
	return Slot;
}

void FAtlasPacker::Remove(const FAtlasSlot& InSlot)
{
	const auto Shelf = std::ranges::lower_bound(Shelves, InSlot.Y, {}, &FShelf::Y);
	auto Next = std::ranges::lower_bound(Shelf->Free, InSlot.X, {}, &FSpan::X);
	Next = Shelf->Free.insert(Next, {InSlot.X, InSlot.Width});
	if (Next + 1 != Shelf->Free.end() && (Next + 1)->X == Next->X + Next->Width)
	{
		Next->Width += (Next + 1)->Width;
		Next = Shelf->Free.erase(Next + 1) - 1;
	}
	if (Next != Shelf->Free.begin() && (Next - 1)->X + (Next - 1)->Width == Next->X)
	{
		(Next - 1)->Width += Next->Width;
		Shelf->Free.erase(Next);
	}
	--NumSlots;
	if (--Shelf->NumSlots == 0)
	{
		CloseShelf(static_cast<std::size_t>(Shelf - Shelves.begin()));
	}
}

void FAtlasPacker::CloseShelf(std::size_t InIndex)
{
	const auto Join = [this](std::size_t InUpper)
	{
		Shelves[InUpper].Height += Shelves[InUpper + 1].Height;
		Shelves.erase(Shelves.begin() + static_cast<std::ptrdiff_t>(InUpper) + 1);
	};
	if (InIndex + 1 < Shelves.size() && Shelves[InIndex + 1].NumSlots == 0)
	{
		Join(InIndex);
	}
	if (InIndex > 0 && Shelves[InIndex - 1].NumSlots == 0)
	{
		Join(InIndex - 1);
	}
}

} // namespace Flitmark
