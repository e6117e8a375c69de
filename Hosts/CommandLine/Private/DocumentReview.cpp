#include "DocumentReview.h"

#include "Comments/CommentsReport.h"
#include "Formats/CommentTraits.h"
#include "OptionValues.h"
#include "Text/TextLimits.h"

#include <algorithm>
#include <cstdio>

namespace Flitmark
{

namespace
{

/** Findings that are not about one key. */
enum class EFinding : uint8
{
	NotAnObject,
	EmptyText,
	UnservedMode,
	InvisibleColor,
	SizeNotPositive,
	SizeTooLarge,
	NeverReached,
	TextCut,
	Num
};

constexpr std::size_t NumFindings = static_cast<std::size_t>(EFinding::Num);
constexpr std::size_t NumKeys = static_cast<std::size_t>(ECommentKey::Num);

/** Lines that end at LF, CR LF or CR. */
int32 CountLines(std::u16string_view InText)
{
	int32 Lines = 1;
	for (std::size_t Index = 0; Index < InText.size(); ++Index)
	{
		const bool bFeed = InText[Index] == u'\n' && (Index == 0 || InText[Index - 1] != u'\r');
		Lines += bFeed || InText[Index] == u'\r' ? 1 : 0;
	}
	return Lines;
}

/** What a key that can't be read is taken for, and whether the comment is seen anyway. */
struct FKeyEffect
{
	std::string_view Text;
	bool bSeen = true;
};

FKeyEffect GetEffect(ECommentKey InKey)
{
	switch (InKey)
	{
	case ECommentKey::SpawnTime:
		return {"read as 0, so the comment comes at the start"};
	case ECommentKey::Mode:
		return {"read as 0, so the comment scrolls"};
	case ECommentKey::Content:
		return {"read as empty", false};
	case ECommentKey::FontSize:
		return {"read as 0", false};
	case ECommentKey::FontColor:
		return {"read as transparent", false};
	default:
		return {"which changes nothing on the screen"};
	}
}

class FReviewer
{
public:
	FReviewer(const FCommentDocument& InDocument, FSizeProbe& InProbe)
		: Document(InDocument)
		, Probe(InProbe)
	{
		NameFindings();
	}

	FDocumentReview Review()
	{
		const std::vector<FCommentEntry>& Entries = Document.GetEntries();
		Result.NumComments = static_cast<int64>(Entries.size());
		std::vector<int64> Seconds;
		for (Index = 0; Index < Result.NumComments; ++Index)
		{
			const FCommentEntry& Entry = Entries[static_cast<std::size_t>(Index)];
			bSeen = true;
			ReviewEntry(Entry);
			Result.NumUnseen += bSeen ? 0 : 1;
			++Result.NumOfMode[IsServed(Entry.Kind) ? static_cast<std::size_t>(Entry.Kind) : 3];
			if (Entry.IsReached())
			{
				Seconds.push_back(Entry.GetSecond());
			}
		}
		CountSeconds(std::move(Seconds));
		GatherFindings();
		return std::move(Result);
	}

private:
	void NameFindings()
	{
		char Canvas[64];
		std::snprintf(Canvas, sizeof(Canvas), "%g x %g", static_cast<double>(Probe.GetCanvasSize().X),
					  static_cast<double>(Probe.GetCanvasSize().Y));
		const auto Name = [this](EFinding InFinding, std::string_view InKind, std::string InText, bool bInSeen = false)
		{
			Found[static_cast<std::size_t>(InFinding)] = {InKind, {}, std::move(InText), bInSeen, 0, {}};
		};
		Name(EFinding::NotAnObject, "not-an-object", "is not a JSON object, so not a comment");
		Name(EFinding::EmptyText, "empty-text", "text is empty or blank");
		Name(EFinding::UnservedMode, "unserved-mode", "mode is not 0 (scroll), 1 (top) or 2 (bottom)");
		Name(EFinding::InvisibleColor, "invisible-color", "color is transparent, or not a color such as #FFFFFF");
		Name(EFinding::SizeNotPositive, "size-not-positive", "font size is 0 or less");
		Name(EFinding::SizeTooLarge, "size-too-large",
			 std::string("font size needs more lanes than a canvas of ") + Canvas + " has");
		Name(EFinding::NeverReached, "never-reached", "spawn time is before 0, or 24 hours or later");
		Name(EFinding::TextCut, "text-cut",
			 "text is cut: only " + FormatCount(static_cast<int64>(FTextLimits::MaxCodeUnits)) + " characters and " +
				 FormatCount(FTextLimits::MaxLines) + " lines are painted",
			 true);
		for (std::size_t Key = 0; Key < NumKeys; ++Key)
		{
			const FKeyEffect Effect = GetEffect(static_cast<ECommentKey>(Key));
			const std::string_view KeyName = ToText(static_cast<ECommentKey>(Key));
			const std::string Quoted = "\"" + std::string(KeyName) + "\" ";
			const std::string End = ", " + std::string(Effect.Text);
			Missing[Key] = {"missing-key", KeyName, Quoted + "is missing" + End, Effect.bSeen, 0, {}};
			Mistyped[Key] = {"mistyped-key", KeyName, Quoted + "can't be read" + End, Effect.bSeen, 0, {}};
		}
	}

	void Add(FFinding& InOutFinding)
	{
		bSeen = bSeen && InOutFinding.bSeen;
		++InOutFinding.Count;
		if (InOutFinding.Elements.size() < FFinding::MaxNamed)
		{
			InOutFinding.Elements.push_back(Index);
		}
	}
	void Add(EFinding InFinding) { Add(Found[static_cast<std::size_t>(InFinding)]); }

	void ReviewEntry(const FCommentEntry& InEntry)
	{
		if (!InEntry.Keys.bIsObject)
		{
			Add(EFinding::NotAnObject);
			return;
		}
		for (std::size_t Key = 0; (InEntry.Keys.Missing | InEntry.Keys.Mistyped) != 0 && Key < NumKeys; ++Key)
		{
			if (InEntry.Keys.IsMissing(static_cast<ECommentKey>(Key)))
			{
				Add(Missing[Key]);
			}
			else if (InEntry.Keys.IsMistyped(static_cast<ECommentKey>(Key)))
			{
				Add(Mistyped[Key]);
			}
		}
		ReviewLook(InEntry);
		if (!InEntry.IsReached())
		{
			Add(EFinding::NeverReached);
		}
	}

	/** What was read; a value that was not is not reported twice. */
	void ReviewLook(const FCommentEntry& InEntry)
	{
		const FCommentKeys& Keys = InEntry.Keys;
		const std::u16string_view Text = Document.GetText(InEntry);
		const int32 Lines = CountLines(Text.substr(0, FTextLimits::MaxCodeUnits));
		if (Keys.IsRead(ECommentKey::Content) && !HasText(Text))
		{
			Add(EFinding::EmptyText);
		}
		if (Text.size() > FTextLimits::MaxCodeUnits || Lines > FTextLimits::MaxLines)
		{
			Add(EFinding::TextCut);
		}
		if (Keys.IsRead(ECommentKey::FontColor) && !HasColor(InEntry.Color))
		{
			Add(EFinding::InvisibleColor);
		}
		if (!IsServed(InEntry.Kind))
		{
			Add(EFinding::UnservedMode);
		}
		if (!HasSize(InEntry.FontSize))
		{
			if (Keys.IsRead(ECommentKey::FontSize))
			{
				Add(EFinding::SizeNotPositive);
			}
		}
		else if (IsServed(InEntry.Kind) && InEntry.FontSize > Probe.GetLargest(static_cast<int32>(InEntry.Kind),
																			   std::min(Lines, FTextLimits::MaxLines)))
		{
			Add(EFinding::SizeTooLarge);
		}
	}

	void CountSeconds(std::vector<int64> InSeconds)
	{
		if (InSeconds.empty())
		{
			return;
		}
		std::ranges::sort(InSeconds);
		Result.FirstSecond = InSeconds.front();
		Result.LastSecond = InSeconds.back();
		for (auto Begin = InSeconds.begin(); Begin != InSeconds.end();)
		{
			const auto End = std::upper_bound(Begin, InSeconds.end(), *Begin);
			++Result.NumSeconds;
			if (End - Begin > Result.NumInBusiest)
			{
				Result.NumInBusiest = End - Begin;
				Result.BusiestSecond = *Begin;
			}
			Begin = End;
		}
	}

	void GatherFindings()
	{
		const auto Gather = [this](bool bInSeen, auto& InOutFindings)
		{
			for (FFinding& Finding : InOutFindings)
			{
				if (Finding.Count > 0 && Finding.bSeen == bInSeen)
				{
					Result.Findings.push_back(std::move(Finding));
				}
			}
		};
		for (const bool bWanted : {false, true})
		{
			Gather(bWanted, Found);
			Gather(bWanted, Missing);
			Gather(bWanted, Mistyped);
		}
	}

	const FCommentDocument& Document;
	FSizeProbe& Probe;
	FDocumentReview Result;
	std::array<FFinding, NumFindings> Found;
	std::array<FFinding, NumKeys> Missing;
	std::array<FFinding, NumKeys> Mistyped;

	/** The element that is looked at, and whether it will be seen as far as was looked. */
	int64 Index = 0;
	bool bSeen = true;
};

} // namespace

FDocumentReview ReviewDocument(const FCommentDocument& InDocument, FSizeProbe& InProbe)
{
	return FReviewer(InDocument, InProbe).Review();
}

} // namespace Flitmark
