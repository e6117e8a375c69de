#include "TokenReader.h"

std::string FTokenReader::Found() const
{
	return Now().Kind == ETokenKind::End ? "the end of the file" : "`" + Now().Text + "`";
}

void FTokenReader::FailExpected(std::string_view What) const
{
	Fail("expected " + std::string(What) + ", found " + Found());
}

void FTokenReader::RefuseMark() const
{
	if (IsOneOf(Now().Text, {"UPROPERTY", "UFUNCTION", "GENERATED_BODY"}))
	{
		Fail(Found() + " outside a UCLASS: mark the class around it with UCLASS() or remove this macro");
	}
	if (Now().Is("UCLASS") || Now().Is("UENUM") || Now().Text.starts_with("DECLARE_DYNAMIC_MULTICAST_DELEGATE"))
	{
		Fail(Found() + " must be at file scope: move it out of the brackets around it");
	}
	Fail(Found() + " is not supported here: the macros are UCLASS, UENUM, UPROPERTY, UFUNCTION, GENERATED_BODY and "
				   "DECLARE_DYNAMIC_MULTICAST_DELEGATE...; remove it");
}

bool FTokenReader::Accept(std::string_view Text)
{
	const bool bFound = Now().Is(Text);
	Pos += bFound ? 1 : 0;
	return bFound;
}

void FTokenReader::Expect(std::string_view Text, std::string_view Where)
{
	if (!Accept(Text))
	{
		FailExpected("`" + std::string(Text) + "` " + std::string(Where));
	}
}

std::string FTokenReader::ExpectName(std::string_view Where)
{
	if (Now().Kind != ETokenKind::Word || Now().IsMark())
	{
		FailExpected("a name " + std::string(Where));
	}
	return Tokens[Pos++].Text;
}

void FTokenReader::Skip()
{
	const std::size_t End = std::max(Pos, Now().Match);
	for (; Pos < End; ++Pos)
	{
		if (Now().IsMark())
		{
			RefuseMark();
		}
	}
	++Pos;
}

bool FTokenReader::SkipTo(std::initializer_list<std::string_view> Texts)
{
	while (Now().Kind == ETokenKind::Literal || !IsOneOf(Now().Text, Texts))
	{
		if (Now().Kind == ETokenKind::End || Now().IsMark() || Now().Is("}"))
		{
			return false;
		}
		Skip();
	}
	return true;
}

void FTokenReader::SkipAttributes()
{
	while ((Now().Is("[") && Now(1).Is("[")) || Now().Is("alignas"))
	{
		Accept("alignas");
		Skip();
	}
}

void FTokenReader::ReadSpecifiers(FDeclared& Record, const FSpecifiers& Known)
{
	const std::string Mark = Tokens[Pos++].Text;
	Expect("(", "after `" + Mark + "`");
	std::vector<std::string> Seen;
	while (!Accept(")"))
	{
		const auto Specifier = Known.find(Now().Text);
		if (Specifier == Known.end())
		{
			std::string Names;
			for (const auto& Each : Known)
			{
				Names += (Names.empty() ? "" : ", ") + Each.first;
			}
			Fail(Found() + " is not a specifier of " + Mark + " here: it takes " + Names);
		}
		const std::string& Name = Specifier->first;
		if (std::find(Seen.begin(), Seen.end(), Name) != Seen.end())
		{
			Fail(Found() + " is given twice: remove one");
		}
		Seen.push_back(Name);
		++Pos;
		const auto& [Flags, Keys] = Specifier->second;
		Record.Flags.insert(Record.Flags.end(), Flags.begin(), Flags.end());
		for (const std::string& Key : Keys)
		{
			Record.MetaData[Key] = "true";
		}
		if (Flags.empty() && Keys.empty())
		{
			Expect("=", "after `" + Name + "`");
			Name == "meta" ? ReadMetaData(Record, "") : void(Record.MetaData[Name] = ReadValue());
		}
		ExpectSeparator();
	}
}

void FTokenReader::ReadMetaData(FDeclared& Record, const std::string& KeyPrefix)
{
	Expect("(", "before metadata");
	while (!Accept(")"))
	{
		const std::string Key = KeyPrefix + ExpectName("of metadata");
		Record.MetaData[Key] = Accept("=") ? ReadValue() : "";
		ExpectSeparator();
	}
}

void FTokenReader::ExpectSeparator()
{
	if (!Now().Is(")") && !Accept(","))
	{
		FailExpected("`,` or `)`");
	}
}

std::string FTokenReader::ReadValue()
{
	const std::size_t Start = Pos;
	std::string Value;
	for (; Now().Kind == ETokenKind::Literal || !IsOneOf(Now().Text, {",", ")", "(", "}", ""}); ++Pos)
	{
		Value += Now().Text;
	}
	if (Pos == Start)
	{
		FailExpected("a value");
	}
	return Value;
}

std::vector<FToken> FTokenReader::ReadSpelling(std::initializer_list<std::string_view> Ends, std::string_view Expected)
{
	SkipAttributes();
	std::vector<FToken> Spelling;
	for (int Angles = 0; Angles > 0 || !IsOneOf(Now().Text, Ends); ++Pos)
	{
		if (Now().Kind == ETokenKind::Literal || Now().Kind == ETokenKind::End || Now().IsMark() ||
			IsOneOf(Now().Text, {";", "(", ")", "{", "}"}))
		{
			FailExpected(Expected);
		}
		Angles += Now().Is("<") ? 1 : Now().Is(">") ? -1 : 0;
		Spelling.push_back(Now());
	}
	if (Spelling.size() < 2 || Spelling.back().Kind != ETokenKind::Word)
	{
		FailExpected(Expected);
	}
	return Spelling;
}
