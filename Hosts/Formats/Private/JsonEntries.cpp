#include "JsonEntries.h"

#include "JsonRepair.h"
#include "JsonScan.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** How far to look for a member that makes an object an entry. */
constexpr std::size_t PeekSize = 8192;

/** The same after damage: less, since there are many places to look at then. */
constexpr std::size_t QuickPeekSize = 256;

/** Entries are never deeper, so that no text can make us look into every one of its levels. */
constexpr std::size_t MaxEntryLevel = 16;

/** Deeper levels are not tracked. */
constexpr std::size_t MaxLevels = 1024;

bool IsBetweenValues(char InCharacter)
{
	return InCharacter == ' ' || InCharacter == ',' || InCharacter == '\n' || InCharacter == '\r' ||
		   InCharacter == '\t';
}

/** Whether a value may begin here: after a comma, an opening bracket or a line end. */
bool MayBegin(std::string_view InText, std::size_t InOffset)
{
	while (InOffset > 0)
	{
		const char Before = InText[--InOffset];
		if (Before != ' ' && Before != '\t')
		{
			return std::string_view(",[{}\n\r").find(Before) != std::string_view::npos;
		}
	}
	return true;
}

} // namespace

void FJsonEntries::ReadAll()
{
	while (true)
	{
		const std::string_view View = Window.GetView();
		const auto Token = std::ranges::find_if_not(View, IsBetweenValues);
		Window.Consume(static_cast<std::size_t>(Token - View.begin()));
		if (Token != View.end())
		{
			OnToken();
		}
		else if (!Window.Fill())
		{
			break;
		}
	}
	if (!Levels.empty() && !bGaveUp)
	{
		Sink.AddWarning("the file ends early: closing brackets are missing, and comments before them may be too");
	}
}

void FJsonEntries::OnToken()
{
	switch (Window.GetView().front())
	{
	case '{':
	case '[':
		OnOpening();
		break;
	case '}':
		OnClosing(false);
		break;
	case ']':
		OnClosing(true);
		break;
	case '"':
		OnString();
		break;
	case ':':
		bAfterColon = true;
		Window.Consume(1);
		break;
	default:
		OnScalar();
		break;
	}
}

void FJsonEntries::OnOpening()
{
	Window.FillTo(PeekSize);
	if (IsEntryHere())
	{
		ReadEntry();
		return;
	}
	const bool bList = Window.GetView().front() == '[';
	if (Levels.size() < MaxLevels)
	{
		Levels.push_back({bList, false});
	}
	bAfterColon = false;
	Window.Consume(1);
}

void FJsonEntries::OnClosing(bool bInList)
{
	Window.Consume(1);
	bAfterColon = false;
	if (!Levels.empty() && Levels.back().bList == bInList)
	{
		Levels.pop_back();
	}
	else if (bInList && Levels.size() > 1 && Levels[Levels.size() - 2].bList)
	{
		// An object in a list was not closed. A brace too many, on the other hand, closes no list.
		Levels.resize(Levels.size() - 2);
	}
}

void FJsonEntries::OnString()
{
	constexpr std::size_t LongestString = 65536;
	std::size_t End = FindStringEnd(Window.GetView(), 0);
	if (End == std::string_view::npos)
	{
		Window.FillTo(LongestString);
		End = FindStringEnd(Window.GetView(), 0);
	}
	bAfterColon = false;
	ReportStray();
	if (End != std::string_view::npos)
	{
		Window.Consume(End);
		return;
	}
	Window.Consume(1);
	SkipLongString();
}

/** Some files have whole pictures in a string. The view begins inside it. */
void FJsonEntries::SkipLongString()
{
	do
	{
		const std::string_view View = Window.GetView();
		std::size_t Place = View.find_first_of("\"\\");
		while (Place < View.size() && View[Place] == '\\' && Place + 1 < View.size())
		{
			Place = View.find_first_of("\"\\", Place + 2);
		}
		if (Place < View.size() && View[Place] == '"')
		{
			Window.Consume(Place + 1);
			return;
		}
		// A backslash at the very end escapes what comes next.
		Window.Consume(std::min(Place, View.size()));
	} while (Window.Fill());
	Window.Consume(Window.GetView().size());
}

void FJsonEntries::OnScalar()
{
	const std::string_view View = Window.GetView();
	// Comments and padding do no harm.
	if (View.front() != '\0' && View.front() != '/')
	{
		ReportStray();
	}
	bAfterColon = false;
	Window.Consume(std::min(View.find_first_of(",]}[{\":\n", 1), View.size()));
}

void FJsonEntries::ReportStray()
{
	if (IsAmongEntries() && !bReportedStray)
	{
		Sink.BeginEntry();
		Sink.AddBroken(Window.GetLine(0), "is a bare value, not a comment");
		bReportedStray = true;
	}
}

/** Whether the object or list that the view begins with is an entry. */
bool FJsonEntries::IsEntryHere()
{
	if (bAfterColon || Levels.size() > MaxEntryLevel)
	{
		return false;
	}
	const bool bList = Window.GetView().front() == '[';
	if (Schema.HasListEntries())
	{
		return bList && IsInList() && (IsAmongEntries() || IsRow(0));
	}
	return !bList && ((IsAmongEntries() && Schema.StandsAlone()) || IsEntryObject(0, PeekSize));
}

bool FJsonEntries::IsRow(std::size_t InOffset) const
{
	const std::string_view View = Window.GetView();
	const std::size_t First = SkipJsonBlanks(View, InOffset + 1);
	constexpr std::string_view Numeric = "-.0123456789\"";
	return First != std::string_view::npos && Numeric.find(View[First]) != std::string_view::npos;
}

/** Whether the first InSize bytes of the object have a member that makes it an entry. */
bool FJsonEntries::IsEntryObject(std::size_t InOffset, std::size_t InSize) const
{
	const std::string_view Text = Window.GetView().substr(InOffset, InSize);
	std::size_t Offset = 1;
	while (true)
	{
		Offset = SkipJsonBlanks(Text, Offset);
		if (Offset == std::string_view::npos || Text[Offset] != '"')
		{
			return false;
		}
		const std::size_t KeyEnd = FindStringEnd(Text, Offset);
		const std::size_t Colon = SkipJsonBlanks(Text, KeyEnd);
		const std::size_t Value = Colon == std::string_view::npos ? Colon : SkipJsonBlanks(Text, Colon + 1);
		if (Value == std::string_view::npos || Text[Colon] != ':')
		{
			return false;
		}
		if (Schema.IsEntryKey(Text.substr(Offset + 1, KeyEnd - Offset - 2), Text[Value]))
		{
			return true;
		}
		const bool bOpens = Text[Value] == '{' || Text[Value] == '[';
		const std::size_t ValueEnd =
			bOpens ? FindBalancedEnd(Text, Value) : (Text[Value] == '"' ? FindStringEnd(Text, Value) : Value);
		const std::size_t Next = Text.find_first_of(",}", ValueEnd);
		if (Next == std::string_view::npos || Text[Next] == '}')
		{
			return false;
		}
		Offset = Next + 1;
	}
}

void FJsonEntries::ReadEntry()
{
	using FOutcome = FJsonValueReader::EOutcome;
	Sink.BeginEntry();
	const FJsonValueReader::FRead Read = ReadValue();
	if (Read.Outcome != FOutcome::Whole)
	{
		OnDamage(Read);
	}
	else
	{
		SettleEntry(Read.End);
		Window.Consume(Read.End);
	}
	bAfterColon = false;
	bReportedStray = false;
	if (IsInList())
	{
		Levels.back().bHasEntries = true;
	}
}

FJsonValueReader::FRead FJsonEntries::ReadValue()
{
	using FOutcome = FJsonValueReader::EOutcome;
	FJsonValueReader::FRead Read = Reader.Read(Window.GetView(), Schema);
	while (Read.Outcome == FOutcome::Cut && MayGrow())
	{
		Window.Fill();
		Read = Reader.Read(Window.GetView(), Schema);
	}
	if (Read.Outcome != FOutcome::Cut)
	{
		return Read;
	}
	if (Read.Reason == nullptr)
	{
		Read.Outcome = FOutcome::Whole;
	}
	else if (!Window.IsComplete())
	{
		Read = {FOutcome::Damaged, Read.End, "it is longer than 4 MiB", false};
	}
	else if (Read.End < Window.GetView().size())
	{
		Read.Outcome = FOutcome::Damaged;
	}
	return Read;
}

/** InSize: of the entry in the view. */
void FJsonEntries::AddEntry(std::size_t InSize)
{
	Sink.AddEmotes(Schema.NumEmotes);
	Sink.Add(std::move(Schema.Comment), Window.GetOffset() + InSize);
}

/** Of an entry that was read to its end; whether it became a comment. */
bool FJsonEntries::SettleEntry(std::size_t InSize)
{
	bool bAdded = SettlePart(InSize);
	while (Schema.NextPart())
	{
		Sink.BeginEntry();
		bAdded = SettlePart(InSize) || bAdded;
	}
	return bAdded;
}

bool FJsonEntries::SettlePart(std::size_t InSize)
{
	const char* const Fault = Schema.Finish();
	if (!Schema.Skipped.empty())
	{
		Sink.AddSkipped(Schema.Skipped);
	}
	else if (Fault != nullptr)
	{
		Sink.AddBroken(Window.GetLine(0), Fault);
	}
	else
	{
		AddEntry(InSize);
		return true;
	}
	return false;
}

void FJsonEntries::OnDamage(const FJsonValueReader::FRead& InRead)
{
	const bool bCut = InRead.Outcome == FJsonValueReader::EOutcome::Cut;
	if (InRead.bInString && ReadRepaired())
	{
		return;
	}
	std::string Reason =
		bCut ? "the file ends in the middle of this entry" : "is damaged: " + std::string(InRead.Reason);
	Reason.resize(Reason.find_last_not_of('.') + 1);
	const bool bReadable = !bCut && Schema.Finish() == nullptr && !Schema.Comment.Text.empty();
	if (bReadable && !Schema.Skipped.empty())
	{
		Sink.AddSkipped(Schema.Skipped);
	}
	else if (bReadable)
	{
		AddEntry(InRead.End);
		Sink.AddRepaired(Window.GetLine(0), Reason + "; everything before the damage was read");
	}
	else
	{
		Sink.AddBroken(Window.GetLine(0), Reason);
	}
	SkipToNextEntry();
}

/** Reads an entry in which only the strings are not valid JSON; false if more is wrong. */
bool FJsonEntries::ReadRepaired()
{
	std::size_t Size = 0;
	if (!RepairJsonStrings(Window.GetView(), Repaired, Size) ||
		Reader.Read(Repaired, Schema).Outcome != FJsonValueReader::EOutcome::Whole)
	{
		return false;
	}
	if (SettleEntry(Size))
	{
		Sink.AddRepaired(Window.GetLine(0),
						 "its text contains characters that JSON does not allow; they were repaired");
	}
	Window.Consume(Size);
	return true;
}

/** Leaves the view at the next thing that looks like the start of an entry, past the damaged one at its front. */
void FJsonEntries::SkipToNextEntry()
{
	constexpr std::size_t LookBack = 64;
	const bool bRows = Schema.HasListEntries();
	Window.Consume(1);
	std::size_t From = 0;
	while (true)
	{
		Window.FillTo(From + QuickPeekSize);
		const std::string_view View = Window.GetView();
		const std::size_t Offset = View.find(bRows ? '[' : '{', From);
		if (Offset != std::string_view::npos && View.size() - Offset < QuickPeekSize && !Window.IsComplete())
		{
			From = std::min(Offset, LookBack);
			Window.Consume(Offset - From);
			continue;
		}
		if (Offset != std::string_view::npos)
		{
			if (MayBegin(View, Offset) && (bRows ? IsRow(Offset) : IsEntryObject(Offset, QuickPeekSize)))
			{
				Window.Consume(Offset);
				return;
			}
			From = Offset + 1;
			continue;
		}
		const std::size_t Kept = std::min(View.size(), LookBack);
		Window.Consume(View.size() - Kept);
		From = Kept;
		if (!Window.Fill())
		{
			Window.Consume(Kept);
			bGaveUp = true;
			return;
		}
	}
}

bool FJsonEntries::MayGrow() const
{
	return !Window.IsComplete() && Window.GetView().size() < FByteWindow::MaxEntry;
}

} // namespace Flitmark
