#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

inline bool IsOneOf(std::string_view Text, std::initializer_list<std::string_view> Others)
{
	return std::find(Others.begin(), Others.end(), Text) != Others.end();
}

/** Thrown where a header cannot be read on; caught in GenerateReflection, which names the file. */
struct FHeaderError
{
	int Line;
	std::string Message;
};

enum class ETokenKind
{
	Word,
	Number,
	Literal,
	Symbol,
	End,
};

struct FToken
{
	ETokenKind Kind = ETokenKind::End;
	/** A literal's is its content. */
	std::string Text;
	int Line = 0;
	/** The comment right above, with its marks; one at the end of the line before belongs to that line. */
	std::string Comment;
	/** Of an opening bracket: index of the closing one. */
	std::size_t Match = 0;

	bool Is(std::string_view Other) const { return Kind != ETokenKind::Literal && Text == Other; }
	/** True for a word that only this tool gives a meaning. */
	bool IsMark() const;
};

struct FIncludeLine
{
	std::string Path;
	int Line;
};

struct FTokenizedHeader
{
	/** Ends with one of kind End. */
	std::vector<FToken> Tokens;
	std::vector<FIncludeLine> Includes;
};

/**
 * Splits a header into tokens with matched brackets. `#if 0` and what `#if 1` leaves out are skipped; of any other condition,
 * which only the compiler knows, the first branch is read and a mark in any branch is refused. Throws FHeaderError.
 */
FTokenizedHeader TokenizeHeader(std::string_view Source);
