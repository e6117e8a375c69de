#include "Filtering/CommentOrder.h"

#include <algorithm>
#include <future>
#include <utility>

namespace Flitmark
{

namespace
{

/** Small, so that all of them stay in the processor's cache; more comments fit into no memory. */
using FPlace = uint32;

/** A comment's time, and where it is. */
using FTimedPlace = std::pair<int64, FPlace>;

void SortOnTwoThreads(std::vector<FTimedPlace>& InOutOrder)
{
	const auto Middle = InOutOrder.begin() + static_cast<std::ptrdiff_t>(InOutOrder.size() / 2);
	// Where no thread can be had, it is done when it is waited for.
	const std::future<void> Half =
		std::async(std::launch::async | std::launch::deferred, [&] { std::sort(InOutOrder.begin(), Middle); });
	std::sort(Middle, InOutOrder.end());
	Half.wait();
	std::inplace_merge(InOutOrder.begin(), Middle, InOutOrder.end());
}

/** Where the comment is that belongs to each place. */
std::vector<FPlace> FindSources(const std::vector<FServiceComment>& InComments)
{
	std::vector<FTimedPlace> Order;
	Order.reserve(InComments.size());
	for (const FServiceComment& Comment : InComments)
	{
		Order.emplace_back(Comment.SpawnTicks, static_cast<FPlace>(Order.size()));
	}
	SortOnTwoThreads(Order);
	std::vector<FPlace> Sources(Order.size());
	std::ranges::transform(Order, Sources.begin(), &FTimedPlace::second);
	return Sources;
}

/** A comment is far larger than a line of the processor's cache. */
void Prefetch(const FServiceComment& InComment)
{
	constexpr std::size_t LineSize = 64;
	for (std::size_t Offset = 0; Offset < sizeof(InComment); Offset += LineSize)
	{
		__builtin_prefetch(reinterpret_cast<const char*>(&InComment) + Offset, 1);
	}
}

/** Moves the comments of one cycle, which begins at a place, each to where it belongs. */
void MoveCycle(std::vector<FServiceComment>& InOutComments, std::vector<FPlace>& InOutSources, FPlace InStart)
{
	// Each is somewhere else in memory. What comes is looked up well ahead, for waiting for it would take most of the time.
	constexpr int Ahead = 16;
	FPlace Scout = InStart;
	const auto LookAhead = [&]
	{
		Scout = InOutSources[Scout];
		Prefetch(InOutComments[Scout]);
	};
	for (int Step = 0; Step < Ahead; ++Step)
	{
		LookAhead();
	}
	FServiceComment First = std::move(InOutComments[InStart]);
	FPlace Place = InStart;
	for (FPlace From = InOutSources[Place]; From != InStart; From = InOutSources[Place])
	{
		LookAhead();
		InOutComments[Place] = std::move(InOutComments[From]);
		InOutSources[Place] = Place;
		Place = From;
	}
	InOutComments[Place] = std::move(First);
	InOutSources[Place] = Place;
}

} // namespace

void OrderByTime(std::vector<FServiceComment>& InOutComments)
{
	if (std::ranges::is_sorted(InOutComments, {}, &FServiceComment::SpawnTicks))
	{
		return;
	}
	// Comments are large: their times are sorted, and then each comment is moved once.
	std::vector<FPlace> Sources = FindSources(InOutComments);
	for (FPlace Place = 0; Place < Sources.size(); ++Place)
	{
		if (Sources[Place] != Place)
		{
			MoveCycle(InOutComments, Sources, Place);
		}
	}
}

} // namespace Flitmark
