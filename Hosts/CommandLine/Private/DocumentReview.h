#pragma once

#include "Formats/CommentDocument.h"
#include "SizeProbe.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** One kind of thing that a document's author should know, with the elements of "datas" that it is about. */
struct FFinding
{
	/** How many elements are named at most. */
	static constexpr std::size_t MaxNamed = 10;

	/** For programs, such as "missing-key", and the key where it is about one. */
	std::string_view Kind;
	std::string_view Key;

	/** For people: what is so, and what comes of it. */
	std::string Text;

	/** False where a viewer will not see the comment for it. */
	bool bSeen = false;

	int64 Count = 0;
	/** Indices of the first, from 0. */
	std::vector<int64> Elements;
};

/** What a viewer will see of a document. */
struct FDocumentReview
{
	/** Those for which comments are not seen come first; none without an element. */
	std::vector<FFinding> Findings;

	int64 NumComments = 0;
	int64 NumUnseen = 0;

	/** By mode: scrolling, top, bottom, any other. */
	std::array<int64, 4> NumOfMode{};

	/** How many seconds have comments; the rest is only set where there is one. */
	int64 NumSeconds = 0;
	int64 FirstSecond = 0;
	int64 LastSecond = 0;
	int64 BusiestSecond = 0;
	int64 NumInBusiest = 0;
};

/** Looks at every comment alone: those that find no free lane among the others are not foretold. */
FDocumentReview ReviewDocument(const FCommentDocument& InDocument, FSizeProbe& InProbe);

} // namespace Flitmark
