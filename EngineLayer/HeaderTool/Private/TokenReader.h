#pragma once

#include "Model.h"

/** What a specifier of a mark stands for. */
struct FSpecifier
{
	std::vector<std::string> Flags;
	/** Metadata keys, each "true". */
	std::vector<std::string> Keys;
};

/** The specifiers that a mark takes; one that stands for nothing takes a value. */
using FSpecifiers = std::map<std::string, FSpecifier>;

/** Walks through a header's tokens; what the parser's rules are made of. Failures throw FHeaderError. */
class FTokenReader
{
public:
	explicit FTokenReader(std::vector<FToken> InTokens)
		: Tokens(std::move(InTokens))
	{
	}

protected:
	const FToken& Now(std::size_t Ahead = 0) const { return Tokens[std::min(Pos + Ahead, Tokens.size() - 1)]; }
	const FToken& Before() const { return Tokens[Pos - 1]; }

	/** The present token for a message. */
	std::string Found() const;
	[[noreturn]] void Fail(std::string Message) const { throw FHeaderError{Now().Line, std::move(Message)}; }
	[[noreturn]] void FailExpected(std::string_view What) const;
	/** For a mark where it has no business. */
	[[noreturn]] void RefuseMark() const;

	bool Accept(std::string_view Text);
	void Expect(std::string_view Text, std::string_view Where);
	std::string ExpectName(std::string_view Where);
	/** Steps over one token, or over a bracketed stretch, in which no mark may stand. */
	void Skip();
	/** Steps to Text; false where the declaration breaks off before. */
	bool SkipTo(std::initializer_list<std::string_view> Texts);
	void SkipAttributes();

	/** `MARK(Name, Name=Value, meta=(...))` into flags and metadata. */
	void ReadSpecifiers(FDeclared& Record, const FSpecifiers& Known);
	/** `(Key, Key=Value)`, each key behind KeyPrefix. */
	void ReadMetaData(FDeclared& Record, const std::string& KeyPrefix);
	/** A declarator's tokens up to one of Ends outside `<...>`: at least a type and a name. */
	std::vector<FToken> ReadSpelling(std::initializer_list<std::string_view> Ends, std::string_view Expected);

	std::vector<FToken> Tokens;
	std::size_t Pos = 0;

private:
	void ExpectSeparator();
	std::string ReadValue();
};
