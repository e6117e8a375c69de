#pragma once

#include "CoreTypes.h"
#include "Insight/CommentTerms.h"
#include "Formats/ServiceComment.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace Flitmark
{

/** One minute of media time. */
struct FBusyMinute
{
	/** From 0. */
	int64 Minute = 0;
	int64 NumComments = 0;
	/** What is said most in it. */
	std::vector<FCommentTerm> Terms;
};

/** Texts that are equal but for white space. */
struct FRepeatedText
{
	/** Without line ends. */
	std::string Text;
	int64 Count = 0;
};

struct FLongText
{
	/** Without line ends. */
	std::string Text;
	/** Code points. */
	int64 NumCharacters = 0;
	int64 SpawnTicks = 0;
};

/** A value, such as a size, and how many comments have it. */
template <class T>
struct TValueCount
{
	T Value{};
	int64 Count = 0;
};

/** What there is to tell about a file's comments. Lists are ordered by how much there is of each, most first. */
struct FCommentStats
{
	int64 NumComments = 0;

	/** Of comments whose time is never reached; they are in none of the figures about time. */
	int64 NumNeverReached = 0;

	/** Of the first and the last comment that is reached; 0 without one. */
	int64 FirstTicks = 0;
	int64 LastTicks = 0;

	/** By ECommentKind. */
	std::array<int64, static_cast<std::size_t>(ECommentKind::Unknown) + 1> NumOfKind{};

	/** All that there are; sizes in points, colors 0xRRGGBBAA. */
	std::vector<TValueCount<int32>> Sizes;
	std::vector<TValueCount<uint32>> Colors;

	/** At most as many as were asked for. */
	std::vector<FBusyMinute> BusyMinutes;
	std::vector<FRepeatedText> Repeated;
	std::vector<FLongText> Longest;

	/** Texts that differ in more than white space; blank ones are none. */
	int64 NumTexts = 0;

	/** Users, and comments without one. */
	int64 NumUsers = 0;
	int64 NumWithoutUser = 0;
};

/** InMost: how many entries each of the shorter lists has at most. */
FCommentStats GatherStats(std::span<const FServiceComment> InComments, std::size_t InMost);

/** Media times of those that are reached, for ComputeDensity. */
std::vector<int64> GatherSpawnTicks(std::span<const FServiceComment> InComments);

} // namespace Flitmark
