#pragma once

#include "CoreMinimal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** Keys of a comment, in the order in which the overlay reads them; numbered as the bits of FCommentEntry's masks. */
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

/** The key as it is written in a document. */
std::string_view ToText(ECommentKey InKey);

/** What became of one element of "datas": the comment that the overlay files, and where it had to guess. */
struct FCommentEntry
{
	static constexpr int64 SecondsPerDay = 86'400;

	/** 100-nanosecond ticks of media time; 0 where the document gives none. */
	int64 SpawnTicks = 0;
	/** Any number; see EDanmakuMode. */
	int32 Mode = 0;
	/** Points at 96 DPI, as given: also 0, negative or absurd. */
	int32 FontSize = 0;
	/** Transparent where the colour text is none. */
	FColor Color = FColor::Transparent;

	/** Where the text lies among the document's texts, in UTF-16 units. */
	uint32 TextBegin = 0;
	uint32 TextLength = 0;

	/** One bit an ECommentKey: not there, or there with a value that can't be read as what it should be. */
	uint16 MissingKeys = 0;
	uint16 MistypedKeys = 0;

	/** False for a number, text, list or null among the comments: filed as a comment without keys. */
	bool bIsObject = true;

	/** The whole second under which it is filed. */
	int64 GetSecond() const;
	/** Whether any media time looks that second up: the overlay looks comments up by the time of day. */
	bool IsReached() const { return GetSecond() >= 0 && GetSecond() < SecondsPerDay; }
	bool IsMissing(ECommentKey InKey) const { return (MissingKeys >> static_cast<uint8>(InKey) & 1) != 0; }
	bool IsMistyped(ECommentKey InKey) const { return (MistypedKeys >> static_cast<uint8>(InKey) & 1) != 0; }
};

/** Why a text is no comment document. */
struct FDocumentFault
{
	/** Without an end stop, such as "not JSON: Missing a comma ...". */
	std::string Reason;

	/** From 1, in characters (UTF-16 units); both 0 where it is no matter of a place. */
	uint32 Line = 0;
	uint32 Column = 0;
};

/**
 * A comment document as the overlay understands it, for hosts that tell their user about it: the overlay itself files
 * what it can and is silent. Light enough for a million comments: 40 bytes each, and the texts.
 */
class FCommentDocument
{
public:
	/** Never fails: what is wrong with the text is told by GetFault. The text may go afterwards. */
	static FCommentDocument Read(const FString& InText);

	/** Set where the overlay finds no list of comments in the text; there are no entries then. */
	const std::optional<FDocumentFault>& GetFault() const { return Fault; }

	/** One an element of "datas", in document order. */
	const std::vector<FCommentEntry>& GetEntries() const { return Entries; }
	std::u16string_view GetText(const FCommentEntry& InEntry) const
	{
		return std::u16string_view(Texts).substr(InEntry.TextBegin, InEntry.TextLength);
	}

	/** The last second under which a comment is filed that is ever looked up; empty where there is none. */
	std::optional<int64> GetLastSecond() const;

private:
	std::optional<FDocumentFault> Fault;
	std::vector<FCommentEntry> Entries;
	/** The comments' texts, one after the other. */
	std::u16string Texts;
};

/** GetLastSecond of a document's text, and cheaper than reading all of it; -1 where there is none. */
int64 FindLastSecond(const FString& InText);

} // namespace Flitmark
