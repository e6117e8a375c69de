#include "Utf8.h"
#include "HAL/LargePages.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace
{
constexpr TCHAR ReplacementCharacter = 0xFFFD;

/** Copies the ASCII characters at the start of the source, in blocks of 16 where SIMD is available. */
void CopyAscii(const uint8*& Source, const uint8* SourceEnd, TCHAR*& Target, const TCHAR* TargetEnd)
{
#ifdef __SSE2__
	while (SourceEnd - Source >= 16 && TargetEnd - Target >= 16)
	{
		const __m128i Bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(Source));
		if (_mm_movemask_epi8(Bytes) != 0)
		{
			break;
		}
		const __m128i Zero = _mm_setzero_si128();
		_mm_storeu_si128(reinterpret_cast<__m128i*>(Target), _mm_unpacklo_epi8(Bytes, Zero));
		_mm_storeu_si128(reinterpret_cast<__m128i*>(Target + 8), _mm_unpackhi_epi8(Bytes, Zero));
		Source += 16;
		Target += 16;
	}
#endif
	while (Source != SourceEnd && *Source < 0x80 && Target != TargetEnd)
	{
		*Target++ = *Source++;
	}
}

/** Decodes three-byte characters, which make up most of a CJK text, for as long as they are valid. */
void CopyTriples(const uint8*& Source, const uint8* SourceEnd, TCHAR*& Target, const TCHAR* TargetEnd)
{
	while (SourceEnd - Source >= 3 && Target < TargetEnd && (Source[0] & 0xF0) == 0xE0 && (Source[1] & 0xC0) == 0x80 &&
		   (Source[2] & 0xC0) == 0x80)
	{
		const uint32 Codepoint = (Source[0] & 0x0Fu) << 12 | (Source[1] & 0x3Fu) << 6 | (Source[2] & 0x3Fu);
		if (Codepoint < 0x800 || (Codepoint & 0xF800) == 0xD800)
		{
			return;
		}
		*Target++ = static_cast<TCHAR>(Codepoint);
		Source += 3;
	}
}

struct FLead
{
	int32 Continuations;
	/** The range of valid second bytes: rules out overlong forms, surrogates, and anything beyond U+10FFFF. */
	uint8 SecondFirst;
	uint8 SecondLast;
};

/** Table 3-7 of the Unicode standard; no continuations for bytes that can't start a character. */
FLead ClassifyLead(uint8 Lead)
{
	if (Lead < 0xC2 || Lead > 0xF4)
	{
		return {0, 0, 0};
	}
	if (Lead < 0xE0)
	{
		return {1, 0x80, 0xBF};
	}
	if (Lead < 0xF0)
	{
		return {2, Lead == 0xE0 ? uint8(0xA0) : uint8(0x80), Lead == 0xED ? uint8(0x9F) : uint8(0xBF)};
	}
	return {3, Lead == 0xF0 ? uint8(0x90) : uint8(0x80), Lead == 0xF4 ? uint8(0x8F) : uint8(0xBF)};
}

/** Decodes one character that isn't ASCII; writes one unit or two. */
void DecodeCharacter(const uint8*& Source, const uint8* SourceEnd, TCHAR*& Target)
{
	const uint8 LeadByte = *Source++;
	const FLead Lead = ClassifyLead(LeadByte);
	uint32 Codepoint = LeadByte & (0x3Fu >> Lead.Continuations);
	for (int32 Index = 0; Index < Lead.Continuations; ++Index)
	{
		const uint8 First = Index == 0 ? Lead.SecondFirst : uint8(0x80);
		const uint8 Last = Index == 0 ? Lead.SecondLast : uint8(0xBF);
		if (Source == SourceEnd || *Source < First || *Source > Last)
		{
			*Target++ = ReplacementCharacter;
			return;
		}
		Codepoint = Codepoint << 6 | (*Source++ & 0x3Fu);
	}
	if (Lead.Continuations == 0)
	{
		*Target++ = ReplacementCharacter;
	}
	else if (Codepoint < 0x10000)
	{
		*Target++ = static_cast<TCHAR>(Codepoint);
	}
	else
	{
		*Target++ = static_cast<TCHAR>(0xD7C0 + (Codepoint >> 10));
		*Target++ = static_cast<TCHAR>(0xDC00 + (Codepoint & 0x3FF));
	}
}
} // namespace

std::u16string DecodeUtf8(const uint8* Bytes, std::size_t Size)
{
	std::u16string Units;
	// A byte yields at most one unit. Pages of a large string that are never written to take no memory.
	Units.reserve(Size);
	PreferLargePages(Units.data(), Units.capacity() * sizeof(TCHAR));
	const uint8* Source = Bytes;
	const uint8* const End = Bytes + Size;
	// Through a block that stays in the cache: cheaper than filling the whole string with zeros first.
	TCHAR Block[4096];
	while (Source != End)
	{
		TCHAR* Target = Block;
		// A character takes at most two units.
		const TCHAR* const TargetEnd = Block + 4096 - 2;
		while (Source != End && Target < TargetEnd)
		{
			if (*Source < 0x80)
			{
				CopyAscii(Source, End, Target, TargetEnd);
			}
			else
			{
				const uint8* const Before = Source;
				CopyTriples(Source, End, Target, TargetEnd);
				if (Source == Before)
				{
					DecodeCharacter(Source, End, Target);
				}
			}
		}
		Units.append(Block, Target);
	}
	return Units;
}
