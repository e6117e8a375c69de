#include "XmlImport.h"

#include "ChatCommands.h"
#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "ListParameters.h"
#include "XmlEntries.h"
#include "XmlTag.h"

#include <optional>

namespace Flitmark
{

namespace
{

/** Resolves an attribute's entities; Storage holds the value where there are any. */
std::string_view Resolve(std::string_view InValue, std::string& OutStorage)
{
	if (InValue.find('&') == std::string_view::npos)
	{
		return InValue;
	}
	OutStorage.clear();
	AppendXmlText(OutStorage, InValue);
	return OutStorage;
}

bool ReadListTag(std::string_view InTag, FServiceComment& OutComment)
{
	std::string Storage;
	return ReadListParameters(Resolve(FindXmlAttribute(InTag, "p"), Storage), OutComment);
}

/** An attribute of a chat entry that is about anything but its time. */
void ReadChatAttribute(std::string_view InName, std::string_view InValue, FServiceComment& OutComment)
{
	if (InName == "mail")
	{
		ApplyChatCommands(InValue, OutComment);
	}
	else if (InName == "date")
	{
		OutComment.PostDate = ParseUnixDate(InValue);
	}
	else if (InName == "user_id")
	{
		OutComment.UserId = MakeUserId(InValue);
	}
	else if (InName == "name")
	{
		OutComment.UserName = MakeCleanText(InValue);
	}
	else if (InName == "no")
	{
		OutComment.Id = ParseInteger(InValue).value_or(0);
	}
	else if (InName == "thread")
	{
		OutComment.PostId = ParseInteger(InValue).value_or(0);
	}
}

bool ReadChatTag(std::string_view InTag, FServiceComment& OutComment)
{
	constexpr double TicksPerHundredth = 1e5;
	std::optional<int64> Ticks;
	FXmlAttributes Attributes(InTag);
	std::string Storage;
	std::string_view Name;
	std::string_view Value;
	while (Attributes.Next(Name, Value))
	{
		if (Name == "vpos")
		{
			Ticks = ParseTicks(Value, TicksPerHundredth);
		}
		else
		{
			ReadChatAttribute(Name, Resolve(Value, Storage), OutComment);
		}
	}
	OutComment.SpawnTicks = Ticks.value_or(0);
	return Ticks.has_value();
}

/** What one form of XML is about. */
struct FXmlForm
{
	std::string_view Name;
	const char* WithoutTime;
	/** False where the time cannot be told. */
	bool (*ReadTag)(std::string_view InTag, FServiceComment& OutComment);
	void (*FinishText)(FServiceComment& InOutComment);
};

/** Why the entry is no comment; null where it became one. */
const char* ReadEntry(const FXmlEntries::FEntry& InEntry, const FXmlForm& InForm, FServiceComment& OutComment)
{
	if (InEntry.End == FXmlEntries::EEnd::Cut)
	{
		return "has no end";
	}
	if (!InForm.ReadTag(InEntry.Tag, OutComment))
	{
		return InForm.WithoutTime;
	}
	std::string_view Content = InEntry.Content;
	if (InEntry.End == FXmlEntries::EEnd::Unclosed)
	{
		// The blanks that part it from the next element are not its own.
		Content = Content.substr(0, Content.find_last_not_of(" \t\r\n") + 1);
	}
	OutComment.Text.reserve(Content.size());
	AppendXmlText(OutComment.Text, Content);
	InForm.FinishText(OutComment);
	return OutComment.Text.empty() ? "has no text" : nullptr;
}

void ImportXml(IByteSource& InSource, const FXmlForm& InForm, FImportSink& OutSink)
{
	FXmlEntries Entries(InSource, InForm.Name);
	FXmlEntries::FEntry Entry;
	bool bCut = false;
	while (Entries.Next(Entry))
	{
		bCut = Entry.End == FXmlEntries::EEnd::Cut;
		FServiceComment Comment;
		if (const char* const Fault = ReadEntry(Entry, InForm, Comment))
		{
			OutSink.AddBroken(Entries.GetLine(), Fault);
			continue;
		}
		OutSink.Add(std::move(Comment), Entries.GetOffset());
		if (Entry.End == FXmlEntries::EEnd::Unclosed)
		{
			OutSink.AddMended(Entries.GetLine(), "its end tag is missing; it was read up to the next element");
		}
	}
	if (Entries.IsRootOpen() && !bCut)
	{
		OutSink.AddWarning("the file ends early: its last end tag is missing, and perhaps comments before it");
	}
}

} // namespace

void ImportListXml(IByteSource& InSource, FImportSink& OutSink)
{
	ImportXml(InSource, {"d", "has no readable time at the start of its attribute \"p\"", ReadListTag, FinishListText},
			  OutSink);
}

void ImportChatXml(IByteSource& InSource, FImportSink& OutSink)
{
	const auto FinishText = [](FServiceComment& InOutComment)
	{
		CleanText(InOutComment.Text);
	};
	ImportXml(InSource, {"chat", "has no readable \"vpos\"", ReadChatTag, FinishText}, OutSink);
}

} // namespace Flitmark
