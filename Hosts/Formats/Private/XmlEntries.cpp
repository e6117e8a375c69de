#include "XmlEntries.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr std::string_view Blanks = " \t\r\n";
constexpr std::string_view SectionOpening = "<![CDATA[";

/** Longer than any markup that has to be recognized by its first characters. */
constexpr std::size_t LookAhead = 64;

/** Where a start tag's `>` stands in the text up to the next `<`; quotes that do not close do not count. */
std::size_t FindTagEnd(std::string_view InText)
{
	std::size_t Place = InText.find_first_of("\"'>");
	while (Place != std::string_view::npos && InText[Place] != '>')
	{
		const std::size_t Closing = InText.find(InText[Place], Place + 1);
		if (Closing == std::string_view::npos)
		{
			return InText.find('>');
		}
		Place = InText.find_first_of("\"'>", Closing + 1);
	}
	return Place == std::string_view::npos ? InText.find('>') : Place;
}

} // namespace

bool FXmlEntries::Next(FEntry& OutEntry)
{
	Window.Consume(EntrySize);
	EntrySize = 0;
	while (SkipToMarkup())
	{
		if (Window.GetView().starts_with("<!--") && SkipComment())
		{
			continue;
		}
		if (IsEntry(Window.GetView()))
		{
			const std::string_view Found = IsStart(Window.GetView(), Name) ? Name : Paid;
			while (!ReadEntry(Found, OutEntry))
			{
				Window.Fill();
			}
			return true;
		}
		bRootOpen = (bRootOpen || IsStart(Window.GetView(), Root)) && GetEndTagSize(Window.GetView(), Root) == 0;
		if (ReadTag(OutEntry))
		{
			return true;
		}
		Window.Consume(1);
	}
	return false;
}

/** Leaves the view at the next `<`, with enough after it to see what it is. */
bool FXmlEntries::SkipToMarkup()
{
	while (true)
	{
		const std::string_view View = Window.GetView();
		const std::size_t Place = View.find('<');
		Window.Consume(std::min(Place, View.size()));
		if (Place != std::string_view::npos)
		{
			Window.FillTo(LookAhead);
			return true;
		}
		if (!Window.Fill())
		{
			return false;
		}
	}
}

/** False if what looks like a comment has no end. */
bool FXmlEntries::SkipComment()
{
	constexpr std::string_view Closing = "-->";
	std::size_t End = FindCached(Closing, 4, NoCommentEndUntil);
	while (End == std::string_view::npos && MayGrow())
	{
		Window.Fill();
		End = FindCached(Closing, 4, NoCommentEndUntil);
	}
	if (End == std::string_view::npos)
	{
		return false;
	}
	Window.Consume(End + Closing.size());
	return true;
}

/** The tag of another element, where the view begins with one. */
bool FXmlEntries::ReadTag(FEntry& OutEntry)
{
	constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-.:";
	const std::string_view Start = Window.GetView().substr(0, LookAhead);
	const std::size_t NameEnd = Start.find_first_not_of(Letters, 1);
	if (NameEnd == 1 || NameEnd == std::string_view::npos || !IsStart(Start, Start.substr(1, NameEnd - 1)) ||
		IsStart(Start, Root))
	{
		return false;
	}
	std::size_t TagEnd = Window.GetView().find_first_of("<>", NameEnd);
	while (TagEnd == std::string_view::npos && MayGrow())
	{
		Window.Fill();
		TagEnd = Window.GetView().find_first_of("<>", NameEnd);
	}
	const std::string_view View = Window.GetView();
	if (TagEnd == std::string_view::npos || View[TagEnd] == '<')
	{
		return false;
	}
	OutEntry = {View.substr(1, NameEnd - 1), View.substr(NameEnd, TagEnd - NameEnd), {}, EEnd::Closed};
	EntrySize = TagEnd;
	return true;
}

/** The entry of a name that the view begins with; false if more of the text is needed first. */
bool FXmlEntries::ReadEntry(std::string_view InName, FEntry& OutEntry)
{
	const std::string_view View = Window.GetView();
	const std::size_t TagBegin = 1 + InName.size();
	const std::size_t NextTag = View.find('<', TagBegin);
	if (NextTag == std::string_view::npos && MayGrow())
	{
		return false;
	}
	const std::string_view UpToNext = View.substr(TagBegin, NextTag - TagBegin);
	const std::size_t TagSize = FindTagEnd(UpToNext);
	OutEntry = {InName, UpToNext.substr(0, TagSize), {}, EEnd::Closed};
	if (TagSize == std::string_view::npos)
	{
		OutEntry.End = NextTag == std::string_view::npos ? EEnd::Cut : EEnd::Unclosed;
		EntrySize = TagBegin + UpToNext.size();
		return true;
	}
	const std::size_t ContentBegin = TagBegin + TagSize + 1;
	if (OutEntry.Tag.ends_with('/'))
	{
		OutEntry.Tag.remove_suffix(1);
		EntrySize = ContentBegin;
		return true;
	}
	const FPlace End = FindContentEnd(View, ContentBegin, InName);
	if (End.bNeedsMore)
	{
		return false;
	}
	OutEntry.Content = View.substr(ContentBegin, End.Place - ContentBegin);
	OutEntry.End = End.End;
	// What is cut for its length may hold other entries.
	EntrySize = End.End == EEnd::Cut ? ContentBegin : End.Place + GetEndTagSize(View.substr(End.Place), InName);
	return true;
}

FXmlEntries::FPlace FXmlEntries::FindContentEnd(std::string_view InView, std::size_t InPlace, std::string_view InName)
{
	std::size_t Place = InView.find('<', InPlace);
	while (Place != std::string_view::npos)
	{
		const std::string_view Rest = InView.substr(Place);
		if (Rest.size() < LookAhead && MayGrow())
		{
			return {0, EEnd::Cut, true};
		}
		if (GetEndTagSize(Rest, InName) > 0)
		{
			return {Place, EEnd::Closed, false};
		}
		if (IsEntry(Rest) || GetEndTagSize(Rest, Root) > 0)
		{
			return {Place, EEnd::Unclosed, false};
		}
		std::size_t From = Place + 1;
		if (Rest.starts_with(SectionOpening))
		{
			const std::size_t SectionEnd = FindCached("]]>", Place, NoSectionEndUntil);
			if (SectionEnd == std::string_view::npos && MayGrow())
			{
				return {0, EEnd::Cut, true};
			}
			From = SectionEnd == std::string_view::npos ? From : SectionEnd;
		}
		Place = InView.find('<', From);
	}
	return {InView.size(), EEnd::Cut, MayGrow()};
}

/** A place in the view. */
std::size_t FXmlEntries::FindCached(std::string_view InWanted, std::size_t InPlace, uint64& InOutAbsentUntil) const
{
	const std::string_view View = Window.GetView();
	const uint64 Offset = Window.GetOffset();
	const std::size_t Known = InOutAbsentUntil > Offset ? static_cast<std::size_t>(InOutAbsentUntil - Offset) : 0;
	const std::size_t Found = View.find(InWanted, std::max(InPlace, Known));
	if (Found == std::string_view::npos && View.size() >= InWanted.size())
	{
		InOutAbsentUntil = std::max(InOutAbsentUntil, Offset + View.size() - InWanted.size() + 1);
	}
	return Found;
}

bool FXmlEntries::IsEntry(std::string_view InText) const
{
	return IsStart(InText, Name) || (!Paid.empty() && IsStart(InText, Paid));
}

bool FXmlEntries::IsStart(std::string_view InText, std::string_view InName)
{
	const std::size_t End = 1 + InName.size();
	return InText.size() > End && InText[0] == '<' && InText.substr(1, InName.size()) == InName &&
		   (Blanks.find(InText[End]) != std::string_view::npos || InText[End] == '>' || InText[End] == '/');
}

/** 0 where the text does not begin with the end tag. */
std::size_t FXmlEntries::GetEndTagSize(std::string_view InText, std::string_view InName)
{
	if (!InText.starts_with("</") || InText.substr(2, InName.size()) != InName)
	{
		return 0;
	}
	const std::size_t End = InText.substr(0, LookAhead).find_first_not_of(Blanks, 2 + InName.size());
	return End != std::string_view::npos && InText[End] == '>' ? End + 1 : 0;
}

bool FXmlEntries::MayGrow() const
{
	return !Window.IsComplete() && Window.GetView().size() < FByteWindow::MaxEntry;
}

} // namespace Flitmark
