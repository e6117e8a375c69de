#include "XmlFormat.h"

#include "XmlEntries.h"
#include "Formats/XmlTag.h"

#include <algorithm>
#include <iterator>

namespace Flitmark
{

namespace
{

/** Why the entry is not a comment; null where it became one, or is nothing for viewers. */
const char* ReadEntry(const FXmlEntries::FEntry& InEntry, const FXmlElement& InElement, FXmlComment& OutEntry)
{
	if (InEntry.End == FXmlEntries::EEnd::Cut)
	{
		return "has no end";
	}
	const bool bHasTime = InElement.ReadTag(InEntry.Tag, OutEntry);
	std::string_view Content = InEntry.Content;
	if (InEntry.End == FXmlEntries::EEnd::Unclosed)
	{
		// The blanks that part it from the next element are not its own.
		Content = Content.substr(0, Content.find_last_not_of(" \t\r\n") + 1);
	}
	std::string& Text = OutEntry.Comment.Text;
	Text.reserve(Content.size());
	AppendXmlText(Text, Content);
	InElement.FinishText(OutEntry);
	if (!OutEntry.Skipped.empty())
	{
		return nullptr;
	}
	return !bHasTime ? InElement.WithoutTime : Text.empty() ? "has no text" : nullptr;
}

/** Whether an element is about something that happened, rather than about the file. */
bool IsEvent(std::string_view InTag)
{
	constexpr std::string_view Telling[] = {"ts", "p", "vpos", "user", "uid", "user_id"};
	FXmlAttributes Attributes(InTag);
	std::string_view Name;
	std::string_view Value;
	while (Attributes.Next(Name, Value))
	{
		if (std::ranges::find(Telling, Name) != std::end(Telling))
		{
			return true;
		}
	}
	return false;
}

/** What elements of a name are, for people. */
std::string DescribeElements(std::string_view InName)
{
	return InName == "gift" ? "gifts" : InName == "guard" ? "memberships" : "<" + std::string(InName) + "> elements";
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
		if (IsElement(Rest, InSchema.Entry.Name, Tag) && InSchema.IsEntry(Tag))
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
	FXmlEntries Entries(InSource, InSchema.Root, InSchema.Entry.Name, InSchema.Paid.Name);
	FXmlEntries::FEntry Entry;
	bool bCut = false;
	while (Entries.Next(Entry))
	{
		bCut = Entry.End == FXmlEntries::EEnd::Cut;
		const bool bPaid = Entry.Name == InSchema.Paid.Name;
		if (!bPaid && Entry.Name != InSchema.Entry.Name)
		{
			if (IsEvent(Entry.Tag))
			{
				OutSink.BeginEntry();
				OutSink.AddSkipped(DescribeElements(Entry.Name));
			}
			continue;
		}
		OutSink.BeginEntry();
		FXmlComment Read;
		if (const char* const Fault = ReadEntry(Entry, bPaid ? InSchema.Paid : InSchema.Entry, Read))
		{
			OutSink.AddBroken(Entries.GetLine(), Fault);
			continue;
		}
		if (!Read.Skipped.empty())
		{
			OutSink.AddSkipped(Read.Skipped);
			continue;
		}
		OutSink.Add(std::move(Read.Comment), Entries.GetOffset());
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
