#pragma once

#include "Model.h"

/** The meaning of a macro's specifier. */
struct FSpecifier
{
	std::vector<std::string> Flags;
	/** Metadata keys, each "true". */
	std::vector<std::string> Keys;
};

/** The specifiers that a macro takes; one with an empty meaning takes a value. */
using FSpecifiers = std::map<std::string, FSpecifier>;

/** Walks through a header's tokens; the parser's building blocks. Failures throw FHeaderError. */
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

	/** The current token, for a message. */
	std::string Found() const;
	[[noreturn]] void Fail(std::string Message) const { throw FHeaderError{Now().Line, std::move(Message)}; }
	[[noreturn]] void FailExpected(std::string_view What) const;
	/** For a macro where it does not belong. */
	[[noreturn]] void RefuseMark() const;

	bool Accept(std::string_view Text);
	void Expect(std::string_view Text, std::string_view Where);
	std::string ExpectName(std::string_view Where);
	/** Skips one token, or a bracketed group, which must contain no macro. */
	void Skip();
	/** Advances to Text; false if the declaration ends before it. */
	bool SkipTo(std::initializer_list<std::string_view> Texts);
	void SkipAttributes();

	/** `MACRO(Name, Name=Value, meta=(...))` into flags and metadata. */
	void ReadSpecifiers(FDeclared& Record, const FSpecifiers& Known);
	/** `(Key, Key=Value)`, each key prefixed with KeyPrefix. */
	void ReadMetaData(FDeclared& Record, const std::string& KeyPrefix);
	/** A declarator's tokens up to one of Ends outside `<...>`: at least a type and a name. */
	std::vector<FToken> ReadSpelling(std::initializer_list<std::string_view> Ends, std::string_view Expected);

	std::vector<FToken> Tokens;
	std::size_t Pos = 0;

private:
	void ExpectSeparator();
	std::string ReadValue();
};
