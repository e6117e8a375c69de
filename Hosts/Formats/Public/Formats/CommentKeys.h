#pragma once

#include "CoreTypes.h"

#include <string_view>

namespace Flitmark
{

/** Keys of a comment in our document, in the order in which the overlay reads them; FCommentKeys has a bit for each. */
enum class ECommentKey : uint8
{
	DanmakuID,
	PostID,
	UserID,
	UserDisplayName,
	PostDate,
	SpawnTime,
	Content,
	Mode,
	FontSize,
	FontColor,
	Num
};

/** The key as a document has it. */
std::string_view ToText(ECommentKey InKey);

/** Where the overlay has to guess, because a comment's element in our document does not say. */
struct FCommentKeys
{
	/** One bit per ECommentKey: absent, or present with a value that can't be read as what it should be. */
	uint16 Missing = 0;
	uint16 Mistyped = 0;

	/** False for a number, text, list or null among the comments: the overlay takes it for a comment without keys. */
	bool bIsObject = true;

	bool IsMissing(ECommentKey InKey) const { return (Missing >> static_cast<uint8>(InKey) & 1) != 0; }
	bool IsMistyped(ECommentKey InKey) const { return (Mistyped >> static_cast<uint8>(InKey) & 1) != 0; }
	bool IsRead(ECommentKey InKey) const { return !IsMissing(InKey) && !IsMistyped(InKey); }
};

} // namespace Flitmark
