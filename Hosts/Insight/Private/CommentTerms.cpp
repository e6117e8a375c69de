#include "Insight/CommentTerms.h"

#include "Formats/CommentTraits.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <memory>
#include <set>
#include <unordered_map>

namespace Flitmark
{

namespace
{

/** Code points: a longer text is a sentence, of which the words are looked at. */
constexpr int32 LongestText = 24;

/** A text of pages says no more about its minute than its beginning does. */
constexpr std::size_t LongestLookedAt = 1'000;

/** With runs of more than three of the same code point cut to three. */
icu::UnicodeString CutRuns(const icu::UnicodeString& InText)
{
	constexpr int32 LongestRun = 3;
	icu::UnicodeString Result;
	UChar32 Last = 0;
	int32 Run = 0;
	for (int32 Index = 0; Index < InText.length(); Index = InText.moveIndex32(Index, 1))
	{
		const UChar32 Character = InText.char32At(Index);
		Run = Character == Last ? Run + 1 : 1;
		Last = Character;
		if (Run <= LongestRun)
		{
			Result.append(Character);
		}
	}
	return Result;
}

/** Without punctuation at the ends, unless there is nothing else: an exclamation mark makes no other word. */
icu::UnicodeString TrimMarks(const icu::UnicodeString& InText)
{
	int32 Begin = 0;
	int32 End = InText.length();
	while (Begin < End && u_ispunct(InText.char32At(Begin)))
	{
		Begin = InText.moveIndex32(Begin, 1);
	}
	while (End > Begin && u_ispunct(InText.char32At(End - 1)))
	{
		End = InText.moveIndex32(End, -1);
	}
	return Begin < End ? InText.tempSubStringBetween(Begin, End) : InText;
}

/** Whether a text says something: drawings made of blocks and lines do not. */
bool SaysSomething(const icu::UnicodeString& InText)
{
	for (int32 Index = 0; Index < InText.length(); Index = InText.moveIndex32(Index, 1))
	{
		const UChar32 Character = InText.char32At(Index);
		if (u_isalnum(Character) || u_ispunct(Character) || u_hasBinaryProperty(Character, UCHAR_EMOJI_PRESENTATION))
		{
			return true;
		}
	}
	return false;
}

/** A term as it is compared, and itself. */
using FCandidate = std::pair<icu::UnicodeString, const FCommentTerm*>;

class FTermCounter
{
public:
	FTermCounter()
	{
		UErrorCode Code = U_ZERO_ERROR;
		Words.reset(icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), Code));
		if (U_FAILURE(Code))
		{
			Words.reset();
		}
	}

	void Add(const FServiceComment& InComment)
	{
		const std::string Whole = NormalizeSpace(std::string_view(InComment.Text).substr(0, LongestLookedAt));
		const icu::UnicodeString Text = CutRuns(icu::UnicodeString::fromUTF8(Whole));
		InThisComment.clear();
		if (SaysSomething(Text) && Text.countChar32() <= LongestText)
		{
			AddTerm(Text);
		}
		if (Words)
		{
			AddWords(Text);
		}
	}

	std::vector<FCommentTerm> Choose(std::size_t InMost) const
	{
		std::vector<FCandidate> Candidates;
		for (const auto& [Key, Term] : Terms)
		{
			if (Term.Count > 1)
			{
				Candidates.emplace_back(icu::UnicodeString::fromUTF8(Key), &Term);
			}
		}
		std::ranges::sort(Candidates, &FTermCounter::IsBefore);
		std::vector<FCommentTerm> Chosen;
		std::vector<icu::UnicodeString> Keys;
		for (const FCandidate& Candidate : Candidates)
		{
			const auto Overlaps = [&Candidate](const icu::UnicodeString& InOther)
			{
				return InOther.indexOf(Candidate.first) >= 0 || Candidate.first.indexOf(InOther) >= 0;
			};
			if (Chosen.size() < InMost && std::ranges::none_of(Keys, Overlaps))
			{
				const FCandidate& Fuller = FindFuller(Candidate, Candidates);
				Chosen.push_back(*Fuller.second);
				Keys.push_back(Fuller.first);
			}
		}
		return Chosen;
	}

private:
	/** The most frequent text that has a term in it and makes up a good part of its count; else the term itself. */
	static const FCandidate& FindFuller(const FCandidate& InTerm, const std::vector<FCandidate>& InCandidates)
	{
		constexpr int64 LeastPercent = 40;
		const auto Found =
			std::ranges::find_if(InCandidates,
								 [&InTerm](const FCandidate& InOther)
								 {
									 return InOther.second->Count * 100 >= InTerm.second->Count * LeastPercent &&
											InOther.first.length() > InTerm.first.length() &&
											InOther.first.indexOf(InTerm.first) >= 0;
								 });
		return Found != InCandidates.end() ? *Found : InTerm;
	}

	/** Of equally frequent terms the longer one says more. */
	static bool IsBefore(const FCandidate& InLeft, const FCandidate& InRight)
	{
		if (InLeft.second->Count != InRight.second->Count)
		{
			return InLeft.second->Count > InRight.second->Count;
		}
		const int32 Left = InLeft.first.countChar32();
		const int32 Right = InRight.first.countChar32();
		return Left != Right ? Left > Right : InLeft.first < InRight.first;
	}

	void AddWords(const icu::UnicodeString& InText)
	{
		Words->setText(InText);
		for (int32 Begin = Words->first(), End = Words->next(); End != icu::BreakIterator::DONE;
			 Begin = End, End = Words->next())
		{
			// Scripts without spaces have shorter words.
			const int32 Status = Words->getRuleStatus();
			const int32 Shortest = Status >= UBRK_WORD_KANA ? 2 : 3;
			if (Status >= UBRK_WORD_LETTER && InText.countChar32(Begin, End - Begin) >= Shortest)
			{
				AddTerm(InText.tempSubStringBetween(Begin, End));
			}
		}
	}

	/** A comment counts once for each of its terms. */
	void AddTerm(const icu::UnicodeString& InTerm)
	{
		std::string Key;
		TrimMarks(InTerm).foldCase().toUTF8String(Key);
		if (InThisComment.insert(Key).second)
		{
			FCommentTerm& Term = Terms[Key];
			if (Term.Count == 0)
			{
				InTerm.toUTF8String(Term.Text);
			}
			++Term.Count;
		}
	}

	std::unique_ptr<icu::BreakIterator> Words;
	std::unordered_map<std::string, FCommentTerm> Terms;
	std::set<std::string> InThisComment;
};

} // namespace

std::vector<FCommentTerm> FindTerms(std::span<const FServiceComment* const> InComments, std::size_t InMost)
{
	FTermCounter Counter;
	for (const FServiceComment* Comment : InComments)
	{
		Counter.Add(*Comment);
	}
	return Counter.Choose(InMost);
}

} // namespace Flitmark
