#include "JsonEntries.h"

#include "Formats/CleanText.h"
#include "JsonScan.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** How far is looked for a member that makes an object an entry. */
constexpr std::size_t PeekSize = 8192;

/** Entries are never deeper, so that no text can make us look into each of its levels. */
constexpr std::size_t MaxEntryLevel = 16;

/** Levels above it are not told apart any more. */
constexpr std::size_t MaxLevels = 1024;

bool IsBetweenValues(char InCharacter)
{
	return InCharacter == ' ' || InCharacter == ',' || InCharacter == '\n' || InCharacter == '\r' ||
		   InCharacter == '\t';
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
		Sink.AddWarning("the file ends early: closing brackets are missing, and perhaps comments before them");
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
	const bool bNamed = bKeepsSource && bList && bAfterColon && Levels.size() == 1 && LastString == Form.GetListName();
	bFoundList = bFoundList || bNamed;
	if (Levels.size() < MaxLevels)
	{
		Levels.push_back({bList, bNamed});
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
	if (bKeepsSource && IsAmongEntries())
	{
		ReadEntry();
		return;
	}
	constexpr std::size_t LongestString = 65536;
	std::size_t End = FindStringEnd(Window.GetView(), 0);
	if (End == std::string_view::npos)
	{
		Window.FillTo(LongestString);
		End = FindStringEnd(Window.GetView(), 0);
	}
	const std::string_view String = Window.GetView().substr(0, End);
	LastString = String.size() > 2 && String.size() < 64 ? String.substr(1, String.size() - 2) : std::string_view();
	bAfterColon = false;
	TellStray();
	Window.Consume(String.size());
}

void FJsonEntries::OnScalar()
{
	if (bKeepsSource && IsAmongEntries() && Window.GetView().front() != '\0')
	{
		ReadEntry();
		return;
	}
	const std::string_view View = Window.GetView();
	// A comment or padding disturbs nobody.
	if (View.front() != '\0' && View.front() != '/')
	{
		TellStray();
	}
	bAfterColon = false;
	Window.Consume(std::min(View.find_first_of(",]}[{\":\n", 1), View.size()));
}

void FJsonEntries::TellStray()
{
	if (IsAmongEntries() && !bToldStray)
	{
		Sink.AddBroken(Window.GetLine(0), "is a bare value and no comment");
		bToldStray = true;
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
	if (bKeepsSource)
	{
		// A bracket too many may have closed the list.
		return IsAmongEntries() || (bFoundList && !bList && Levels.size() == 1);
	}
	if (Form.HasListEntries())
	{
		return bList && IsInList() && (IsAmongEntries() || IsRow(0));
	}
	return !bList && ((IsAmongEntries() && Form.StandsAlone()) || IsEntryObject(0, PeekSize));
}

bool FJsonEntries::IsRow(std::size_t InPlace) const
{
	const std::string_view View = Window.GetView();
	const std::size_t First = SkipJsonBlanks(View, InPlace + 1);
	constexpr std::string_view Numeric = "-.0123456789\"";
	return First != std::string_view::npos && Numeric.find(View[First]) != std::string_view::npos;
}

/** Whether a member that makes it an entry stands among the object's first ones, up to a size. */
bool FJsonEntries::IsEntryObject(std::size_t InPlace, std::size_t InSize) const
{
	const std::string_view Text = Window.GetView().substr(InPlace, InSize);
	std::size_t Place = 1;
	while (true)
	{
		Place = SkipJsonBlanks(Text, Place);
		if (Place == std::string_view::npos || Text[Place] != '"')
		{
			return false;
		}
		const std::size_t KeyEnd = FindStringEnd(Text, Place);
		const std::size_t Colon = SkipJsonBlanks(Text, KeyEnd);
		const std::size_t Value = Colon == std::string_view::npos ? Colon : SkipJsonBlanks(Text, Colon + 1);
		if (Value == std::string_view::npos || Text[Colon] != ':')
		{
			return false;
		}
		if (Form.IsEntryKey(Text.substr(Place + 1, KeyEnd - Place - 2), Text[Value]))
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
		Place = Next + 1;
	}
}

void FJsonEntries::ReadEntry()
{
	using FOutcome = FJsonValueReader::EOutcome;
	FJsonValueReader::FRead Read = ReadValue(bKeepsSource);
	const bool bLoose = bKeepsSource && Read.Outcome == FOutcome::Damaged && !Read.bInString;
	if (bLoose)
	{
		Read = ReadValue(false);
	}
	if (Read.Outcome != FOutcome::Whole)
	{
		OnDamage(Read);
	}
	else if (const char* const Fault = Form.Finish())
	{
		Sink.AddBroken(Window.GetLine(0), Fault);
		Window.Consume(Read.End);
	}
	else
	{
		AddEntry(bLoose ? std::string_view() : Window.GetView().substr(0, Read.End), Read.End);
		if (bLoose)
		{
			Sink.AddMended(Window.GetLine(0), "is not quite JSON; it was read, and is written as JSON");
		}
		Window.Consume(Read.End);
	}
	bAfterColon = false;
	bToldStray = false;
	if (IsInList())
	{
		Levels.back().bHasEntries = true;
	}
}

FJsonValueReader::FRead FJsonEntries::ReadValue(bool bInStrict)
{
	using FOutcome = FJsonValueReader::EOutcome;
	FJsonValueReader::FRead Read = Reader.Read(Window.GetView(), Form, bInStrict);
	while (Read.Outcome == FOutcome::Cut && MayGrow())
	{
		Window.Fill();
		Read = Reader.Read(Window.GetView(), Form, bInStrict);
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

/** InSource is what is kept of it where the form keeps it; InSize is its size in the view. */
void FJsonEntries::AddEntry(std::string_view InSource, std::size_t InSize)
{
	if (bKeepsSource)
	{
		Form.Comment.Source = InSource;
		MakeUtf8(Form.Comment.Source);
	}
	Sink.Add(std::move(Form.Comment), Window.GetOffset() + InSize);
}

bool FJsonEntries::MayGrow() const
{
	return !Window.IsComplete() && Window.GetView().size() < FByteWindow::MaxEntry;
}

} // namespace Flitmark
