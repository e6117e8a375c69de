#pragma once

#include "CoreTypes.h"
#include "Formats/CommentKeys.h"

#include <string>

namespace Flitmark
{

/** How a service showed a comment. The overlay serves the first three. */
enum class ECommentKind : uint8
{
	Scroll,
	Top,
	Bottom,
	/** Moves from left to right. */
	Reverse,
	/** Stands or moves where its author put it. */
	Positioned,
	/** A program that draws. */
	Script,
	/** Bought by its sender; the text says by whom and for how much. */
	Paid,
	/** A mode that is none of these. */
	Unknown
};

/** One comment of any service, in the overlay's terms. */
struct FServiceComment
{
	/** A document's normal size, in points at 96 DPI, to which each service's own normal size is scaled. */
	static constexpr int32 NormalPoints = 24;

	int64 Id = 0;

	/** The post, video or pool that it belongs to; 0 where none is told. */
	int64 PostId = 0;

	/** A number as it is; a text's 32-bit hash. */
	int64 UserId = 0;

	/** UTF-8; empty where none is told. */
	std::string UserName;

	/** When it was written, in Unix seconds; 0 where that is not told. */
	int64 PostDate = 0;

	/** Media time in ticks of 100 ns. */
	int64 SpawnTicks = 0;

	/** UTF-8, lines parted by LF. */
	std::string Text;

	ECommentKind Kind = ECommentKind::Scroll;

	/** What its element in our document does not say. */
	FCommentKeys Keys;

	/** Points. */
	int32 FontSize = NormalPoints;

	/** 0xRRGGBBAA. */
	uint32 Color = 0xFFFFFFFF;

	/**
	 * A comment of our own document as it stands there, JSON: written out again, with only what was changed replaced
	 * (CommentChange.h). Empty for comments of other formats.
	 */
	std::string Source;
};

} // namespace Flitmark
