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

/** The largest size in which so many lines fit; 1 if none does. */
int64 FindLargestSize(ECommentKind InKind, int64 InNumLines)
{
	const int64 Room = InKind == ECommentKind::Bottom ? BottomRoom : UpperRoom;
	return std::max<int64>(Room * LineDenominator / (LineNumerator * InNumLines), 1);
}

} // namespace

uint64 FitIntoLanes(std::vector<FServiceComment>& InOutComments)
{
	uint64 NumSmaller = 0;
	for (FServiceComment& Comment : InOutComments)
	{
		const int64 Largest = FindLargestSize(Comment.Kind, std::ranges::count(Comment.Text, '\n') + 1);
		if (Comment.FontSize > Largest)
		{
			Comment.FontSize = static_cast<int32>(Largest);
			++NumSmaller;
		}
	}
	return NumSmaller;
}

} // namespace Flitmark
