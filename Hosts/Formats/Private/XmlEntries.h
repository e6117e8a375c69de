#pragma once

#include "CoreTypes.h"
#include "ByteWindow.h"

#include <string_view>

namespace Flitmark
{

/**
 * Finds entries in XML, the elements of one or two names, wherever they are, no matter how damaged the text around them
 * is; and the tags of all other elements outside of them.
 */
class FXmlEntries
{
public:
	/** How an element ends. */
	enum class EEnd
	{
		Closed,
		/** Its end tag is missing; it ends where the next element begins. */
		Unclosed,
		/** The text ends in the middle of it, or it goes on for longer than any comment is. */
		Cut
	};

	/** An element's parts as they stand in the window; valid until the next one is asked for. */
	struct FEntry
	{
		/** That of an entry, of a paid one, or of another element, which has a tag only. */
		std::string_view Name;
		/** Between the name and the end of the start tag. */
		std::string_view Tag;
		std::string_view Content;
		EEnd End = EEnd::Closed;
	};

	/** InPaid: the other name of entries; empty where there is none. */
	FXmlEntries(IByteSource& InSource, std::string_view InRoot, std::string_view InName, std::string_view InPaid)
		: Window(InSource)
		, Root(InRoot)
		, Name(InName)
		, Paid(InPaid)
	{
	}

	/** False when there are no more. */
	bool Next(FEntry& OutEntry);

	/** The line, from 1, and the place in the text at which the last entry begins. */
	uint64 GetLine() { return Window.GetLine(0); }
	uint64 GetOffset() const { return Window.GetOffset(); }

	/** Whether a root element was opened and not closed. */
	bool IsRootOpen() const { return bRootOpen; }

private:
	/** The result of a search for an end tag. */
	struct FPlace
	{
		std::size_t Place = 0;
		EEnd End = EEnd::Closed;
		bool bNeedsMore = false;
	};

	bool SkipToMarkup();
	bool SkipComment();
	bool ReadEntry(std::string_view InName, FEntry& OutEntry);
	bool ReadTag(FEntry& OutEntry);
	FPlace FindContentEnd(std::string_view InView, std::size_t InPlace, std::string_view InName);
	bool IsEntry(std::string_view InText) const;
	std::size_t FindCached(std::string_view InWanted, std::size_t InPlace, uint64& InOutAbsentUntil) const;
	static bool IsStart(std::string_view InText, std::string_view InName);
	static std::size_t GetEndTagSize(std::string_view InText, std::string_view InName);
	bool MayGrow() const;

	FByteWindow Window;
	std::string_view Root;
	std::string_view Name;
	std::string_view Paid;

	bool bRootOpen = false;

	/** Size of the last entry, which is consumed when the next one is asked for. */
	std::size_t EntrySize = 0;

	/** No comment and no CDATA section ends before these offsets in the text, so nothing is searched twice. */
	uint64 NoCommentEndUntil = 0;
	uint64 NoSectionEndUntil = 0;
};

} // namespace Flitmark
