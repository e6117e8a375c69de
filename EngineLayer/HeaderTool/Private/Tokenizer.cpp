#include "Tokenizer.h"

#include <cctype>
#include <iterator>

namespace
{

bool IsWordChar(char C)
{
	return std::isalnum(static_cast<unsigned char>(C)) || C == '_' || static_cast<unsigned char>(C) >= 0x80;
}

/** One open `#if`. */
struct FConditional
{
	int Line;
	std::string Text;
	/** Whether the condition is the literal 0 or 1. */
	bool bKnown = false;
	/** Whether the current branch is read. */
	bool bActive = true;
	/** Whether this branch or an earlier one was read. */
	bool bTaken = true;

	void Evaluate(const std::string& Condition)
	{
		bKnown = Condition == "0" || Condition == "1";
		bActive = bTaken = Condition != "0";
	}
};

class FTokenizer
{
public:
	explicit FTokenizer(std::string_view InSource)
	{
		constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
		InSource.remove_prefix(InSource.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
		for (std::size_t Index = 0; Index < InSource.size(); ++Index)
		{
			if (InSource[Index] != '\r' || Index + 1 == InSource.size() || InSource[Index + 1] != '\n')
			{
				Source += InSource[Index];
			}
		}
	}

	FTokenizedHeader Run()
	{
		bool bLineStart = true;
		while (!AtEnd())
		{
			const char C = Peek();
			if (C == '\0' || std::isspace(static_cast<unsigned char>(C)))
			{
				bLineStart = bLineStart || C == '\n';
				Take();
			}
			else if (AtComment())
			{
				KeepComment();
			}
			else if (C == '#' && bLineStart)
			{
				ReadDirective();
			}
			else
			{
				bLineStart = false;
				ReadToken();
			}
		}
		if (!Conditionals.empty())
		{
			throw FHeaderError{Conditionals.back().Line,
							   "`" + Conditionals.back().Text + "` is never closed: add `#endif`"};
		}
		Result.Tokens.emplace_back().Line = Line;
		MatchBrackets();
		return std::move(Result);
	}

private:
	/** Skips line continuations, which the language removes before anything else. */
	std::size_t SkipSplices(std::size_t At) const
	{
		while (Source[At] == '\\' && Source[At + 1] == '\n')
		{
			At += 2;
		}
		return At;
	}

	bool AtEnd() const { return SkipSplices(Pos) >= Source.size(); }

	char Peek(int Ahead = 0) const
	{
		std::size_t At = SkipSplices(Pos);
		for (; Ahead > 0 && At < Source.size(); --Ahead)
		{
			At = SkipSplices(At + 1);
		}
		return Source[At];
	}

	char Take()
	{
		const std::size_t At = SkipSplices(Pos);
		const std::size_t End = std::min(At + 1, Source.size());
		Line += static_cast<int>(std::count(Source.begin() + static_cast<std::ptrdiff_t>(Pos),
											Source.begin() + static_cast<std::ptrdiff_t>(End), '\n'));
		Pos = End;
		return Source[At];
	}

	bool AtComment() const { return Peek() == '/' && (Peek(1) == '/' || Peek(1) == '*'); }

	/** True in a branch that is certainly excluded, where even a lone quote is fine. */
	bool IsSkipping() const
	{
		return std::any_of(Conditionals.begin(), Conditionals.end(),
						   [](const FConditional& Each) { return Each.bKnown && !Each.bActive; });
	}

	std::string TakeComment()
	{
		const int StartLine = Line;
		const bool bBlock = Peek(1) == '*';
		std::string Text{Take()};
		Text += Take();
		while (!AtEnd() && (bBlock || Peek() != '\n'))
		{
			Text += Take();
			if (bBlock && Text.size() >= 4 && Text.ends_with("*/"))
			{
				return Text;
			}
		}
		if (bBlock)
		{
			throw FHeaderError{StartLine, "this comment is never closed: add `*/`"};
		}
		return Text + "\n";
	}

	void KeepComment()
	{
		const bool bTrailing = !Result.Tokens.empty() && Result.Tokens.back().Line == Line;
		const bool bJoins = Line <= CommentLine + 1 && Comment.starts_with("//") && Peek(1) == '/';
		const std::string Text = TakeComment();
		if (!bTrailing && !IsSkipping() && !Text.starts_with("//~"))
		{
			Comment = bJoins ? Comment + Text : Text;
			CommentLine = Line;
		}
	}

	void ReadDirective()
	{
		const int StartLine = Line;
		std::string Text;
		for (bool bQuoted = false; !AtEnd() && Peek() != '\n';)
		{
			if (!bQuoted && AtComment())
			{
				TakeComment();
				continue;
			}
			bQuoted = bQuoted != (Peek() == '"');
			Text += Take();
		}
		std::string Packed;
		std::copy_if(Text.begin() + 1, Text.end(), std::back_inserter(Packed),
					 [](char C) { return !std::isspace(static_cast<unsigned char>(C)); });
		Comment.clear();
		const std::size_t Quote = Packed.find('"');
		if (!Packed.starts_with("include"))
		{
			FollowCondition(StartLine, Text, Packed);
		}
		else if (!IsSkipping() && Quote != std::string::npos)
		{
			Result.Includes.push_back({Packed.substr(Quote + 1, Packed.find('"', Quote + 1) - Quote - 1), StartLine});
		}
	}

	void FollowCondition(int StartLine, const std::string& Text, const std::string& Packed)
	{
		if (Packed.starts_with("if"))
		{
			Conditionals.push_back({StartLine, Text.substr(0, Text.find_last_not_of(" \t") + 1)});
			Conditionals.back().Evaluate(Packed.substr(2));
			return;
		}
		if (!Packed.starts_with("el") && !Packed.starts_with("endif"))
		{
			return;
		}
		if (Conditionals.empty())
		{
			throw FHeaderError{StartLine, "`" + Text + "` without `#if`: remove it or add the `#if`"};
		}
		FConditional& Open = Conditionals.back();
		if (Packed.starts_with("endif"))
		{
			Conditionals.pop_back();
		}
		else if (Open.bTaken)
		{
			Open.bActive = false;
		}
		else
		{
			Open.Evaluate(Packed.starts_with("elif") ? Packed.substr(4) : "1");
		}
	}

	void ReadToken()
	{
		FToken Token;
		Token.Line = Line;
		const char First = Peek();
		if (std::isdigit(static_cast<unsigned char>(First)))
		{
			Token.Kind = ETokenKind::Number;
			ReadNumber(Token.Text);
		}
		else if (IsWordChar(First))
		{
			Token.Kind = ETokenKind::Word;
			while (IsWordChar(Peek()))
			{
				Token.Text += Take();
			}
			ReadLiteralWithPrefix(Token);
		}
		else if (First == '"' || First == '\'')
		{
			ReadLiteral(Token);
		}
		else
		{
			Token.Kind = ETokenKind::Symbol;
			Token.Text = Take();
			if ((First == ':' && Peek() == ':') || (First == '-' && Peek() == '>'))
			{
				Token.Text += Take();
			}
		}
		Keep(std::move(Token));
	}

	void ReadNumber(std::string& Text)
	{
		const auto IsExponent = [](char C)
		{
			return IsOneOf(std::string_view(&C, 1), {"e", "E", "p", "P"});
		};
		while (IsWordChar(Peek()) || Peek() == '.' || (Peek() == '\'' && IsWordChar(Peek(1))) ||
			   ((Peek() == '+' || Peek() == '-') && IsExponent(Text.back())))
		{
			Text += Take();
		}
	}

	void ReadLiteralWithPrefix(FToken& Token)
	{
		if (Peek() == '"' && IsOneOf(Token.Text, {"R", "u8R", "uR", "UR", "LR"}))
		{
			ReadRawLiteral(Token);
		}
		else if ((Peek() == '"' || Peek() == '\'') && IsOneOf(Token.Text, {"u8", "u", "U", "L"}))
		{
			ReadLiteral(Token);
		}
	}

	void ReadLiteral(FToken& Token)
	{
		Token.Kind = ETokenKind::Literal;
		Token.Text.clear();
		const char Quote = Take();
		while (!AtEnd() && Peek() != '\n' && Peek() != Quote)
		{
			const char C = Take();
			const char Escaped = C == '\\' ? Take() : C;
			Token.Text += C == '\\' && Escaped == 'n' ? '\n' : Escaped;
		}
		if (Peek() == Quote)
		{
			Take();
		}
		else if (!IsSkipping())
		{
			throw FHeaderError{Token.Line, std::string("this literal is never closed: add `") + Quote + "`"};
		}
	}

	/** Line continuations stay in a raw literal. */
	void ReadRawLiteral(FToken& Token)
	{
		Token.Kind = ETokenKind::Literal;
		Take();
		const std::size_t Open = Source.find('(', Pos);
		std::string End(1, ')');
		End.append(Source, Pos, Open == std::string::npos ? 0 : Open - Pos).append(1, '"');
		const std::size_t Close = Open == std::string::npos ? Open : Source.find(End, Open);
		if (Close == std::string::npos)
		{
			throw FHeaderError{Token.Line, "this raw literal is never closed: add `" + End + "`"};
		}
		Token.Text = Source.substr(Open + 1, Close - Open - 1);
		Line += static_cast<int>(std::count(Token.Text.begin(), Token.Text.end(), '\n'));
		Pos = Close + End.size();
	}

	void Keep(FToken Token)
	{
		Token.Comment = std::move(Comment);
		Comment.clear();
		const auto Unknown = std::find_if(Conditionals.begin(), Conditionals.end(),
										  [](const FConditional& Each) { return !Each.bKnown; });
		if (Token.IsMark() && Unknown != Conditionals.end() && !IsSkipping())
		{
			throw FHeaderError{Token.Line, "`" + Token.Text + "` under `" + Unknown->Text +
											   "`: macros may be under no condition but `#if 0` and `#if 1`; move it "
											   "out (against double inclusion use `#pragma once`)"};
		}
		if (std::all_of(Conditionals.begin(), Conditionals.end(),
						[](const FConditional& Each) { return Each.bActive; }))
		{
			Result.Tokens.push_back(std::move(Token));
		}
	}

	void MatchBrackets()
	{
		constexpr std::string_view Opening = "({[";
		constexpr std::string_view Closing = ")}]";
		std::vector<std::size_t> Open;
		for (std::size_t Index = 0; Index < Result.Tokens.size(); ++Index)
		{
			const FToken& Token = Result.Tokens[Index];
			const bool bBracket = Token.Kind == ETokenKind::Symbol && Token.Text.size() == 1;
			if (bBracket && Opening.find(Token.Text) != std::string_view::npos)
			{
				Open.push_back(Index);
			}
			else if (bBracket && Closing.find(Token.Text) != std::string_view::npos)
			{
				if (Open.empty())
				{
					throw FHeaderError{Token.Line,
									   "`" + Token.Text + "` closes nothing: remove it or add its opening one"};
				}
				const FToken& Opened = Result.Tokens[Open.back()];
				if (Opening.find(Opened.Text) != Closing.find(Token.Text))
				{
					throw FHeaderError{Token.Line, "`" + Token.Text + "` comes before the end of `" + Opened.Text +
													   "` in line " + std::to_string(Opened.Line) +
													   ": close that first"};
				}
				Result.Tokens[Open.back()].Match = Index;
				Open.pop_back();
			}
		}
		if (!Open.empty())
		{
			const FToken& Token = Result.Tokens[Open.back()];
			throw FHeaderError{Token.Line, "`" + Token.Text + "` is never closed: add its closing one"};
		}
	}

	std::string Source;
	std::size_t Pos = 0;
	int Line = 1;
	std::string Comment;
	int CommentLine = 0;
	std::vector<FConditional> Conditionals;
	FTokenizedHeader Result;
};

} // namespace

bool FToken::IsMark() const
{
	return Kind == ETokenKind::Word &&
		   (Text.starts_with("DECLARE_DYNAMIC_") ||
			IsOneOf(Text, {"UCLASS", "UENUM", "USTRUCT", "UINTERFACE", "UDELEGATE", "UPROPERTY", "UFUNCTION", "UPARAM",
						   "UMETA", "GENERATED_BODY", "GENERATED_UCLASS_BODY"}));
}

FTokenizedHeader TokenizeHeader(std::string_view Source)
{
	return FTokenizer(Source).Run();
}
