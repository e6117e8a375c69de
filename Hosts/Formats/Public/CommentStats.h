#pragma once

#include "CommentTerms.h"
#include "ServiceComment.h"

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
	std::int64_t Minute = 0;
	std::int64_t NumComments = 0;
	/** What is said most in it. */
	std::vector<FCommentTerm> Terms;
};

/** Texts that are equal but for white space. */
struct FRepeatedText
{
	/** Without line ends. */
	std::string Text;
	std::int64_t Count = 0;
};

struct FLongText
{
	/** Without line ends. */
	std::string Text;
	/** Code points. */
	std::int64_t NumCharacters = 0;
	std::int64_t SpawnTicks = 0;
};

/** A value, such as a size, and how many comments have it. */
template <class T>
struct TValueCount
{
	T Value{};
	std::int64_t Count = 0;
};

/** What there is to tell about a file's comments. Lists are ordered by how much there is of each, most first. */
struct FCommentStats
{
	std::int64_t NumComments = 0;

	/** Of comments whose time is never reached; they are in none of the figures about time. */
	std::int64_t NumNeverReached = 0;

	/** Of the first and the last comment that is reached; 0 without one. */
	std::int64_t FirstTicks = 0;
	std::int64_t LastTicks = 0;

	/** By ECommentKind. */
	std::array<std::int64_t, static_cast<std::size_t>(ECommentKind::Unknown) + 1> NumOfKind{};

	/** All that there are; sizes in points, colours 0xRRGGBBAA. */
	std::vector<TValueCount<std::int32_t>> Sizes;
	std::vector<TValueCount<std::uint32_t>> Colors;

	/** At most as many as were asked for. */
	std::vector<FBusyMinute> BusyMinutes;
	std::vector<FRepeatedText> Repeated;
	std::vector<FLongText> Longest;

	/** Texts that differ in more than white space. */
	std::int64_t NumTexts = 0;

	/** Users, and comments without one. */
	std::int64_t NumUsers = 0;
	std::int64_t NumWithoutUser = 0;
};

/** InMost: how many entries each of the shorter lists has at most. */
FCommentStats GatherStats(std::span<const FServiceComment> InComments, std::size_t InMost);

/** Media times of those that are reached, for ComputeDensity. */
std::vector<std::int64_t> GatherSpawnTicks(std::span<const FServiceComment> InComments);

} // namespace Flitmark
