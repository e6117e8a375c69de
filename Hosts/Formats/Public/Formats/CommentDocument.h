#pragma once

#include "CoreMinimal.h"
#include "Formats/CommentKeys.h"
#include "Formats/ServiceComment.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** A comment as the overlay files it. */
struct FCommentEntry
{
	/** 100-nanosecond ticks of media time; 0 if the document gives none. */
	int64 SpawnTicks = 0;
	/** Points at 96 DPI, as given: also 0, negative or absurd. */
	int32 FontSize = 0;
	/** 0xRRGGBBAA; 0 if the color text is not a color. */
	uint32 Color = 0;

	/** Where the text is among the document's texts, in UTF-16 units. */
	uint32 TextBegin = 0;
	uint32 TextLength = 0;

	/** Scroll, Top or Bottom; Unknown for any other mode. */
	ECommentKind Kind = ECommentKind::Scroll;
	FCommentKeys Keys;

	/** The whole second under which it is filed. */
	int64 GetSecond() const;
	/** Whether that second is ever looked up; see CommentTraits.h. */
	bool IsReached() const;
};

/** Why a text is not a comment document. */
struct FDocumentFault
{
	/** Without a period, such as "not JSON: Missing a comma ...". */
	std::string Reason;

	/** From 1, in characters (UTF-16 units); both 0 if it is not about one place. */
	uint32 Line = 0;
	uint32 Column = 0;
};

/**
 * Comments as the overlay understands them: read the way it reads a document, but unlike it with word of what is wrong.
 * Light enough for a million comments: 32 bytes each, and the texts.
 */
class FCommentDocument
{
public:
	/** Never fails: GetFault says what is wrong with the text. The text may go afterwards. */
	static FCommentDocument Read(const FString& InText);

	/** What Read makes of the document that WriteCommentDocument writes, without writing it. */
	static FCommentDocument Of(std::span<const FServiceComment> InComments);

	/** Set if the overlay finds no list of comments in the text; there are no entries then. */
	const std::optional<FDocumentFault>& GetFault() const { return Fault; }

	/** One per element of "datas", in document order. */
	const std::vector<FCommentEntry>& GetEntries() const { return Entries; }
	std::u16string_view GetText(const FCommentEntry& InEntry) const
	{
		return std::u16string_view(Texts).substr(InEntry.TextBegin, InEntry.TextLength);
	}

	/**
	 * The entries as comments that can be filtered, moved and written, each with its element's text as its Source.
	 * InText: what was read, in UTF-8.
	 */
	std::vector<FServiceComment> MakeComments(std::string_view InText) const;

private:
	std::optional<FDocumentFault> Fault;
	std::vector<FCommentEntry> Entries;
	/** The comments' texts, one after the other. */
	std::u16string Texts;
};

/**
 * The same document with only some elements of its list, as they stand there, and nothing else. InText: one without a
 * fault, in UTF-8. InKept: one for each element.
 */
std::string KeepElements(std::string_view InText, const std::vector<bool>& InKept);

/** The last second under which a document files a comment that is ever looked up; -1 if there is none. */
int64 FindLastSecond(const FString& InText);

} // namespace Flitmark
