#include "LaneFit.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/*
 * In canvas units, on the usual canvas of 1,080. Of its height, 53 lanes of 15.12 units are for scrolling and for top
 * comments, and 17 for bottom ones. Comments are read for any overlay, so it cannot be asked; where its canvas is lower
 * (--scale), comments of many lines may still be too tall, which checking tells.
 */
constexpr int64 UpperRoom = 800;
constexpr int64 BottomRoom = 256;

/** Lines are 5/3 units apart for each point of the size: an em is 4/3 units a point, and a line 1.25 em. */
constexpr int64 LineNumerator = 5;
constexpr int64 LineDenominator = 3;

bool Fits(int64 InRoom, int64 InNumLines, int64 InFontSize)
{
	return InFontSize * InNumLines * LineNumerator <= InRoom * LineDenominator;
}

/**
 * The size for so many lines that are too high, at least 1. They get three quarters of the room: what takes all lanes is
 * shown only where the very first is free, so among other comments it would hardly ever be.
 */
int32 FindSmallerSize(int64 InRoom, int64 InNumLines)
{
	const int64 Size = InRoom * 3 / 4 * LineDenominator / (LineNumerator * InNumLines);
	return static_cast<int32>(std::max<int64>(Size, 1));
}

} // namespace

uint64 FitIntoLanes(std::vector<FServiceComment>& InOutComments)
{
	uint64 NumSmaller = 0;
	for (FServiceComment& Comment : InOutComments)
	{
		const int64 Room = Comment.Kind == ECommentKind::Bottom ? BottomRoom : UpperRoom;
		const int64 NumLines = std::ranges::count(Comment.Text, '\n') + 1;
		if (Comment.FontSize > 1 && !Fits(Room, NumLines, Comment.FontSize))
		{
			Comment.FontSize = FindSmallerSize(Room, NumLines);
			++NumSmaller;
		}
	}
	return NumSmaller;
}

} // namespace Flitmark
