#include "JsonEntries.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** How far is looked for a member that makes an object an entry: not far, since damage makes us look in many places. */
constexpr std::size_t QuickPeekSize = 256;

/** Whether a value may begin at a place: behind a comma, an opening bracket or a line's end. */
bool MayBegin(std::string_view InText, std::size_t InPlace)
{
	while (InPlace > 0)
	{
		const char Before = InText[--InPlace];
		if (Before != ' ' && Before != '\t')
		{
			return std::string_view(",[{}\n\r").find(Before) != std::string_view::npos;
		}
	}
	return true;
}

} // namespace

void FJsonEntries::OnDamage(const FJsonValueReader::FRead& InRead)
{
	const bool bCut = InRead.Outcome == FJsonValueReader::EOutcome::Cut;
	if (InRead.bInString && ReadMended())
	{
		return;
	}
	std::string Reason = bCut ? "the file ends in the middle of it" : "is damaged: " + std::string(InRead.Reason);
	Reason.resize(Reason.find_last_not_of('.') + 1);
	if (!bCut && Form.Finish() == nullptr && !Form.Comment.Text.empty())
	{
		FServiceComment& Comment = Form.Comment;
		Comment.FontSize = Comment.FontSize > 0 ? Comment.FontSize : FServiceComment::NormalPoints;
		Comment.Color = Comment.Color != 0 ? Comment.Color : FServiceComment().Color;
		AddEntry({}, InRead.End);
		Sink.AddMended(Window.GetLine(0), Reason + "; what stands before was read");
	}
	else
	{
		Sink.AddBroken(Window.GetLine(0), Reason);
	}
	SkipToNextEntry();
}

/** Reads an entry in which only the strings hold what JSON forbids; false where there is more to it. */
bool FJsonEntries::ReadMended()
{
	std::size_t Size = 0;
	if (!MendJsonStrings(Window.GetView(), Mended, Size) ||
		Reader.Read(Mended, Form, bKeepsSource).Outcome != FJsonValueReader::EOutcome::Whole)
	{
		return false;
	}
	if (const char* const Fault = Form.Finish())
	{
		Sink.AddBroken(Window.GetLine(0), Fault);
	}
	else
	{
		AddEntry(Mended, Size);
		Sink.AddMended(Window.GetLine(0), "its text holds what JSON forbids; that was mended");
	}
	Window.Consume(Size);
	return true;
}

/** Leaves the view at the next thing that looks like the start of an entry, behind the damaged one at its front. */
void FJsonEntries::SkipToNextEntry()
{
	constexpr std::size_t LookBack = 64;
	const bool bRows = Form.HasListEntries();
	Window.Consume(1);
	std::size_t From = 0;
	while (true)
	{
		Window.FillTo(From + QuickPeekSize);
		const std::string_view View = Window.GetView();
		const std::size_t Place = View.find(bRows ? '[' : '{', From);
		if (Place != std::string_view::npos && View.size() - Place < QuickPeekSize && !Window.IsComplete())
		{
			From = std::min(Place, LookBack);
			Window.Consume(Place - From);
			continue;
		}
		if (Place != std::string_view::npos)
		{
			if (MayBegin(View, Place) && (bRows ? IsRow(Place) : IsEntryObject(Place, QuickPeekSize)))
			{
				Window.Consume(Place);
				return;
			}
			From = Place + 1;
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

} // namespace Flitmark
