#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

#include <bit>
#include <string>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/** First quote, backslash or control character at or after At; End if there is none. */
inline const TCHAR* FindStringStop(const TCHAR* At, const TCHAR* End)
{
#ifdef __SSE2__
	const __m128i Quote = _mm_set1_epi16(u'"');
	const __m128i Backslash = _mm_set1_epi16(u'\\');
	const __m128i LastControl = _mm_set1_epi16(0x1F);
	for (; End - At >= 8; At += 8)
	{
		const __m128i Units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(At));
		const __m128i Mark = _mm_or_si128(_mm_cmpeq_epi16(Units, Quote), _mm_cmpeq_epi16(Units, Backslash));
		const __m128i Control = _mm_cmpeq_epi16(_mm_subs_epu16(Units, LastControl), _mm_setzero_si128());
		const int Found = _mm_movemask_epi8(_mm_or_si128(Mark, Control));
		if (Found != 0)
		{
			return At + std::countr_zero(static_cast<unsigned>(Found)) / 2;
		}
	}
#endif
	while (At != End && *At != u'"' && *At != u'\\' && *At > 0x1F)
	{
		++At;
	}
	return At;
}

/**
 * The text as RapidJSON reads it. RapidJSON rules on the grammar and undoes escapes; what makes up the bulk of a text
 * and needs neither is kept from it, which doubles the speed and leaves values to be converted when they are asked for:
 * - a string without escapes looks empty to it: after the opening quote comes the closing one;
 * - of a number's digits from the first non-zero one on it sees that one only, so that no number is too large for it;
 * - an escape of a surrogate (\uD83D) looks like the unit itself, for RapidJSON refuses half pairs.
 */
class FJsonTextStream
{
public:
	using Ch = TCHAR;

	explicit FJsonTextStream(const FString& Text)
		: Begin(*Text)
		, End(Begin + Text.Len())
		, Current(Begin)
	{
	}

	Ch Peek() const { return *Current; }
	Ch Take()
	{
		const Ch Character = *Current++;
		if (Character == u'"')
		{
			if (!bInString)
			{
				OpenString();
			}
		}
		else if (Character >= u'1' && Character <= u'9' && !bInString)
		{
			while (*Current >= u'0' && *Current <= u'9')
			{
				++Current;
			}
		}
		return Character;
	}
	std::size_t Tell() const { return GetOffset(Rest == nullptr ? Current : StringBegin); }

	/** Call this when RapidJSON is done with a string. */
	void CloseString()
	{
		bInString = false;
		if (Rest != nullptr)
		{
			Current = Rest;
			Rest = nullptr;
		}
	}
	/** Whether the last opened string has no escapes, so that it can be read from the text. */
	bool IsStringPlain() const { return bPlain; }
	const TCHAR* GetStringBegin() const { return StringBegin; }
	/** For a plain string only. */
	const TCHAR* GetStringEnd() const { return StringEnd; }
	const TCHAR* GetCurrent() const { return Current; }
	/** The first character of the number that ends at the stream's position. */
	const TCHAR* FindNumberBegin() const
	{
		const TCHAR* At = Current;
		while (At != Begin && ((At[-1] >= u'0' && At[-1] <= u'9') || At[-1] == u'-' || At[-1] == u'+' ||
							   At[-1] == u'.' || At[-1] == u'e' || At[-1] == u'E'))
		{
			--At;
		}
		return At;
	}

	uint32 GetOffset(const TCHAR* At) const { return static_cast<uint32>(At - Begin); }
	bool IsAtEnd() const { return Current == End; }

	// RapidJSON asks for these, but uses them only where it writes into the text.
	Ch* PutBegin() { return nullptr; }
	void Put(Ch) {}
	std::size_t PutEnd(Ch*) { return 0; }

private:
	void OpenString()
	{
		bInString = true;
		StringBegin = Current;
		StringEnd = FindStringStop(Current, End);
		bPlain = *StringEnd == u'"';
		if (bPlain)
		{
			Current = StringEnd;
		}
		else if (*StringEnd == u'\\')
		{
			ReplaceSurrogateEscapes(StringEnd);
		}
	}
	void ReplaceSurrogateEscapes(const TCHAR* FirstEscape);

	const TCHAR* Begin;
	const TCHAR* End;
	const TCHAR* Current;
	const TCHAR* StringBegin = nullptr;
	const TCHAR* StringEnd = nullptr;
	/** Where the text continues while Current runs through Replaced; else null. */
	const TCHAR* Rest = nullptr;
	std::u16string Replaced;
	bool bInString = false;
	bool bPlain = false;
};
