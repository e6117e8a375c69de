#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace Flitmark
{

/** A word, or a whole short text, and how many comments have it. */
struct FCommentTerm
{
	/** UTF-8, without line ends; as it was first written. */
	std::string Text;
	int64 Count = 0;
};

/**
 * What several of the comments say, the most frequent first, at most InMost terms: words of any language, whole texts
 * where they are short. Neither case nor punctuation at the ends matters, and a longer run of one character counts as
 * three of it. Of terms that are part of one another one is told: the more frequent, or a fuller one that comes nearly
 * as often.
 */
std::vector<FCommentTerm> FindTerms(std::span<const FServiceComment* const> InComments, std::size_t InMost);

} // namespace Flitmark
