#include "XmlFormat.h"

#include "XmlEntries.h"
#include "XmlTag.h"

namespace Flitmark
{

namespace
{

/** Why the entry is not a comment; null where it became one. */
const char* ReadEntry(const FXmlEntries::FEntry& InEntry, const FXmlSchema& InSchema, FServiceComment& OutComment)
{
	if (InEntry.End == FXmlEntries::EEnd::Cut)
	{
		return "has no end";
	}
	if (!InSchema.ReadTag(InEntry.Tag, OutComment))
	{
		return InSchema.WithoutTime;
	}
	std::string_view Content = InEntry.Content;
	if (InEntry.End == FXmlEntries::EEnd::Unclosed)
	{
		// The blanks that part it from the next element are not its own.
		Content = Content.substr(0, Content.find_last_not_of(" \t\r\n") + 1);
	}
	OutComment.Text.reserve(Content.size());
	AppendXmlText(OutComment.Text, Content);
	InSchema.FinishText(OutComment);
	return OutComment.Text.empty() ? "has no text" : nullptr;
}

/** Whether a text begins with the start tag of an element; OutTag is what follows the name. */
bool IsElement(std::string_view InText, std::string_view InName, std::string_view& OutTag)
{
	if (InText.substr(1, InName.size()) != InName)
	{
		return false;
	}
	OutTag = InText.substr(1 + InName.size());
	OutTag = OutTag.substr(0, OutTag.find_first_of("<>"));
	return OutTag.empty() || std::string_view(" \t\r\n/").find(OutTag.front()) != std::string_view::npos;
}

} // namespace

FFormatProbe ProbeXml(std::string_view InText, const FXmlSchema& InSchema)
{
	FFormatProbe OfRoot;
	if (!InText.starts_with('<'))
	{
		return OfRoot;
	}
	bool bRootSeen = false;
	for (std::size_t Offset = 0; Offset != std::string_view::npos; Offset = InText.find('<', Offset + 1))
	{
		const std::string_view Rest = InText.substr(Offset);
		std::string_view Tag;
		if (IsElement(Rest, InSchema.Entry, Tag) && InSchema.IsEntry(Tag))
		{
			return {FFormatProbe::EResult::Certain, Offset};
		}
		if (!bRootSeen && Rest.size() > 1 && Rest[1] != '?' && Rest[1] != '!')
		{
			bRootSeen = true;
			OfRoot.Result =
				IsElement(Rest, InSchema.Root, Tag) ? FFormatProbe::EResult::Possible : FFormatProbe::EResult::No;
		}
	}
	return OfRoot;
}

void ReadXml(IByteSource& InSource, const FXmlSchema& InSchema, FImportSink& OutSink)
{
	FXmlEntries Entries(InSource, InSchema.Root, InSchema.Entry);
	FXmlEntries::FEntry Entry;
	bool bCut = false;
	while (Entries.Next(Entry))
	{
		bCut = Entry.End == FXmlEntries::EEnd::Cut;
		FServiceComment Comment;
		if (const char* const Fault = ReadEntry(Entry, InSchema, Comment))
		{
			OutSink.AddBroken(Entries.GetLine(), Fault);
			continue;
		}
		OutSink.Add(std::move(Comment), Entries.GetOffset());
		if (Entry.End == FXmlEntries::EEnd::Unclosed)
		{
			OutSink.AddRepaired(Entries.GetLine(), "its end tag is missing; it was read up to the next element");
		}
	}
	if (Entries.IsRootOpen() && !bCut)
	{
		OutSink.AddWarning("the file ends early: its last end tag is missing, and perhaps comments before it");
	}
}

} // namespace Flitmark
