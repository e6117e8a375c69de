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

/** Thrown when the rest of a header can't be read; caught in GenerateReflection, which names the file. */
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
	/** For a literal, its content. */
	std::string Text;
	int Line = 0;
	/** The comment right above, with its delimiters. A comment at the end of the previous line belongs to that line. */
	std::string Comment;
	/** For an opening bracket, the index of the closing one. */
	std::size_t Match = 0;

	bool Is(std::string_view Other) const { return Kind != ETokenKind::Literal && Text == Other; }
	/** Whether it is a word that means something only to this tool. */
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
 * Splits a header into tokens with matched brackets. Skips what `#if 0` and `#if 1` exclude. For any other condition,
 * which only the compiler can evaluate, it reads the first branch and refuses a macro in any branch. Throws
 * FHeaderError.
 */
FTokenizedHeader TokenizeHeader(std::string_view Source);
