#include "Parser.h"

#include "TokenReader.h"
#include "ToolTip.h"

#include <algorithm>
#include <array>
#include <utility>

namespace
{

const FSpecifiers ClassSpecifiers{
	{"BlueprintType", {{}, {"BlueprintType"}}},
	{"Blueprintable", {{}, {"BlueprintType", "IsBlueprintBase"}}},
	{"meta", {}},
};
const FSpecifiers EnumSpecifiers{
	{"BlueprintType", {{}, {"BlueprintType"}}},
	{"meta", {}},
};
const FSpecifiers FunctionSpecifiers{
	{"BlueprintCallable", {{"FUNC_BlueprintCallable"}, {}}},
	{"BlueprintPure", {{"FUNC_BlueprintCallable", "FUNC_BlueprintPure"}, {}}},
	{"Category", {}},
	{"meta", {}},
};
const FSpecifiers PropertySpecifiers{
	{"BlueprintAssignable", {{"CPF_BlueprintAssignable"}, {}}},
	{"BlueprintReadOnly", {{"CPF_BlueprintVisible", "CPF_BlueprintReadOnly"}, {}}},
	{"BlueprintReadWrite", {{"CPF_BlueprintVisible"}, {}}},
	{"Category", {}},
	{"EditAnywhere", {{"CPF_Edit"}, {}}},
	{"EditDefaultsOnly", {{"CPF_Edit", "CPF_DisableEditOnInstance"}, {}}},
	{"Transient", {{"CPF_Transient"}, {}}},
	{"meta", {}},
};

constexpr std::string_view DelegateMacro = "DECLARE_DYNAMIC_MULTICAST_DELEGATE";
/** The suffix after DelegateMacro, by the number of parameters. */
constexpr std::array<std::string_view, 10> DelegateSuffixes = {
	"",			  "_OneParam",	  "_TwoParams",	  "_ThreeParams", "_FourParams", "_FiveParams",
	"_SixParams", "_SevenParams", "_EightParams", "_NineParams"};

void TakeName(std::vector<FToken>& Spelling, FDeclared& Record)
{
	Record.Name = Spelling.back().Text;
	Record.Line = Spelling.back().Line;
	Spelling.pop_back();
}

class FParser : private FTokenReader
{
public:
	FParser(std::vector<FToken> InTokens, FHeader& InHeader)
		: FTokenReader(std::move(InTokens))
		, Header(InHeader)
	{
	}

	void Run()
	{
		while (Now().Kind != ETokenKind::End)
		{
			if (Now().Is("UCLASS"))
			{
				ParseClass();
			}
			else if (Now().Is("UENUM"))
			{
				ParseEnum();
			}
			else if (Now().Text.starts_with(DelegateMacro) && Now().IsMark())
			{
				ParseDelegate();
			}
			else if (Now().IsMark())
			{
				RefuseMark();
			}
			else
			{
				Skip();
			}
		}
	}

private:
	/** Starts a record at its macro: doc comment and location. */
	void Begin(FDeclared& Record) const
	{
		Record.Line = Now().Line;
		Record.MetaData["ModuleRelativePath"] = Header.ModuleRelativePath;
		if (const std::string ToolTip = FormatToolTip(Now().Comment); !ToolTip.empty())
		{
			Record.MetaData["Comment"] = Now().Comment;
			Record.MetaData["ToolTip"] = ToolTip;
		}
	}

	void ParseClass()
	{
		FClass Class;
		Begin(Class);
		Class.MetaData["IncludePath"] = Header.IncludePath;
		ReadSpecifiers(Class, ClassSpecifiers);
		ParseClassHead(Class);
		const std::size_t End = Now().Match;
		Expect("{", "and the members of `" + Class.Name + "`");
		for (std::string Access = "Private"; Pos < End;)
		{
			ParseMember(Class, Access);
		}
		if (Class.BodyLine == 0)
		{
			throw FHeaderError{Class.Line, "`" + Class.Name + "` lacks GENERATED_BODY(): put it first in the class"};
		}
		Pos = End + 1;
		Expect(";", "after `" + Class.Name + "`");
		Header.Classes.push_back(std::move(Class));
	}

	void ParseClassHead(FClass& Class)
	{
		Expect("class", "after UCLASS(...)");
		SkipAttributes();
		Class.Line = Now().Line;
		Class.Name = ExpectName("of the class");
		if (Now().Kind == ETokenKind::Word && !Now().Is("final"))
		{
			Class.Api = std::exchange(Class.Name, ExpectName("of the class"));
		}
		Accept("final");
		if (!Accept(":"))
		{
			Fail("`" + Class.Name + "` has no base: derive it from UObject or a class derived from that");
		}
		Accept("virtual");
		Expect("public", "before the base class");
		Class.Base = ExpectName("of the base class");
		SkipTo({"{", ";"});
	}

	void ParseMember(FClass& Class, std::string& Access)
	{
		if (IsOneOf(Now().Text, {"public", "protected", "private"}) && Now(1).Is(":"))
		{
			Access = Now().Is("public") ? "Public" : Now().Is("protected") ? "Protected" : "Private";
			Pos += 2;
		}
		else if (Now().Is("GENERATED_BODY"))
		{
			ParseGeneratedBody(Class);
			Access = "Private";
		}
		else if (Now().Is("UPROPERTY"))
		{
			ParseProperty(Class, Access);
		}
		else if (Now().Is("UFUNCTION"))
		{
			ParseFunction(Class, Access);
		}
		else if (Now().IsMark())
		{
			RefuseMark();
		}
		else
		{
			NoteConstructor(Class);
			Skip();
		}
	}

	void ParseGeneratedBody(FClass& Class)
	{
		if (Class.BodyLine != 0 || !Class.Properties.empty() || !Class.Functions.empty())
		{
			Fail("GENERATED_BODY() must come exactly once, first in the class");
		}
		Class.BodyLine = Now().Line;
		++Pos;
		Expect("(", "after `GENERATED_BODY`");
		Expect(")", "after `GENERATED_BODY(`");
	}

	void NoteConstructor(FClass& Class) const
	{
		if (Now().Is(Class.Name) && Now(1).Is("(") && !IsOneOf(Before().Text, {"~", "::", "<", ",", "="}))
		{
			Class.bDefaultConstructor |= Now(2).Is(")") || (Now(2).Is("void") && Now(3).Is(")"));
			Class.bInitializerConstructor |= Now(2).Is("const") && Now(3).Is("FObjectInitializer");
		}
	}

	void ParseProperty(FClass& Class, const std::string& Access)
	{
		FProperty Property;
		Begin(Property);
		ReadSpecifiers(Property, PropertySpecifiers);
		Property.Spelling = ReadSpelling({";", "=", "{", "[", ":", ","}, "`Type Name;` after UPROPERTY(...)");
		TakeName(Property.Spelling, Property);
		Property.Access = Access;
		if (IsOneOf(Now().Text, {"[", ":", ","}))
		{
			Fail("`" + Property.Name +
				 "` is an array of fixed size, a bit field or one of several names: declare one plain "
				 "member after each UPROPERTY(), an array as TArray");
		}
		if (!SkipTo({";"}))
		{
			FailExpected("`;` after `" + Property.Name + "`");
		}
		++Pos;
		Class.Properties.push_back(std::move(Property));
	}

	void ParseFunction(FClass& Class, const std::string& Access)
	{
		FFunction Function;
		Begin(Function);
		ReadSpecifiers(Function, FunctionSpecifiers);
		std::vector<FToken> Result = ReadSpelling({"("}, "`Type Name(...);` after UFUNCTION(...)");
		TakeName(Result, Function);
		bool bVirtual = std::erase_if(Result, [](const FToken& Each) { return Each.Is("virtual"); }) > 0;
		std::erase_if(Result,
					  [](const FToken& Each) {
						  return IsOneOf(Each.Text, {"inline", "FORCEINLINE"}) || Each.Text.ends_with("_API");
					  });
		if (Result.empty() || std::ranges::any_of(Result,
												  [](const FToken& Each) {
													  return IsOneOf(Each.Text, {"static", "template", "constexpr"});
												  }))
		{
			Fail("`" + Function.Name + "` must be a plain member function to be a UFUNCTION");
		}
		ParseParameters(Function);
		if (Result.size() != 1 || !Result[0].Is("void"))
		{
			FProperty& Returned = Function.Parameters.emplace_back();
			Returned.Name = "ReturnValue";
			Returned.Line = Function.Line;
			Returned.Spelling = std::move(Result);
			Returned.Flags = {"CPF_ReturnParm"};
		}
		const bool bConst = Accept("const");
		while (!Now().Is(";") && !Now().Is("{"))
		{
			if (Now().Kind == ETokenKind::End || Now().IsMark() || Now().Is("}"))
			{
				FailExpected("`;` or a body after `" + Function.Name + "(...)`");
			}
			bVirtual |= Now().Is("override") || Now().Is("final");
			Skip();
		}
		Skip();
		std::vector<std::string> Flags{"FUNC_Native", "FUNC_" + Access};
		if (!bVirtual)
		{
			Flags.insert(Flags.begin(), "FUNC_Final");
		}
		Flags.insert(Flags.end(), Function.Flags.begin(), Function.Flags.end());
		if (bConst)
		{
			Flags.push_back("FUNC_Const");
		}
		Function.Flags = std::move(Flags);
		Class.Functions.push_back(std::move(Function));
	}

	void ParseParameters(FFunction& Function)
	{
		const std::size_t End = Now().Match;
		++Pos;
		Pos += Now().Is("void") && Pos + 1 == End ? 1 : 0;
		while (Pos < End)
		{
			FProperty& Parameter = Function.Parameters.emplace_back();
			Parameter.Spelling =
				ReadSpelling({",", ")", "=", "["}, "`Type Name` for each parameter of `" + Function.Name + "`");
			TakeName(Parameter.Spelling, Parameter);
			if (Now().Is("["))
			{
				FailExpected("`,` or `)` after `" + Parameter.Name + "`");
			}
			if (Now().Is("=") && Now(1).Is("nullptr"))
			{
				Function.MetaData["CPP_Default_" + Parameter.Name] = "None";
			}
			for (int Angles = 0; Pos < End && (Angles > 0 || !Now().Is(",")); Skip())
			{
				Angles += Now().Is("<") ? 1 : Now().Is(">") ? -1 : 0;
			}
			Accept(",");
		}
		Pos = End + 1;
	}

	void ParseEnum()
	{
		FEnum Enum;
		Begin(Enum);
		ReadSpecifiers(Enum, EnumSpecifiers);
		constexpr std::string_view Shape = "of `enum class Name : int32 {` (or `: uint8`) after UENUM()";
		Expect("enum", Shape);
		Expect("class", Shape);
		SkipAttributes();
		Enum.Line = Now().Line;
		Enum.Name = ExpectName(Shape);
		Expect(":", Shape);
		Enum.UnderlyingType = Now().Text;
		if (!Accept("uint8"))
		{
			Expect("int32", Shape);
		}
		const std::size_t End = Now().Match;
		Expect("{", Shape);
		while (Pos < End)
		{
			ParseEnumerator(Enum, End);
		}
		++Pos;
		Expect(";", "after `" + Enum.Name + "`");
		Header.Enums.push_back(std::move(Enum));
	}

	void ParseEnumerator(FEnum& Enum, std::size_t End)
	{
		FDeclared& Enumerator = Enum.Enumerators.emplace_back();
		Enumerator.Line = Now().Line;
		Enumerator.Name = ExpectName("of an enumerator");
		SkipAttributes();
		while (Pos < End && !Now().Is(","))
		{
			if (Accept("UMETA"))
			{
				// The engine stores it with the enumeration: "SCROLL.DisplayName".
				ReadMetaData(Enum, Enumerator.Name + ".");
			}
			else if (Now().IsMark())
			{
				RefuseMark();
			}
			else
			{
				Skip();
			}
		}
		Accept(",");
	}

	/** `DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnX, Type, Name, Type, Name)` */
	void ParseDelegate()
	{
		FFunction Delegate;
		Begin(Delegate);
		const std::string Macro = Tokens[Pos++].Text;
		Expect("(", "after `" + Macro + "`");
		Delegate.Line = Now().Line;
		Delegate.Name = ExpectName("of the delegate");
		while (Accept(","))
		{
			FProperty& Parameter = Delegate.Parameters.emplace_back();
			for (; !IsOneOf(Now().Text, {",", "(", ")", ";", "{", "}"}) && Now().Kind != ETokenKind::End; ++Pos)
			{
				Parameter.Spelling.push_back(Now());
			}
			Expect(",", "between type and name of a parameter of `" + Delegate.Name + "`");
			Parameter.Line = Now().Line;
			Parameter.Name = ExpectName("of a parameter of `" + Delegate.Name + "`");
		}
		Expect(")", "after the parameters of `" + Delegate.Name + "`");
		const std::size_t Count = Delegate.Parameters.size();
		if (Count >= DelegateSuffixes.size() || Macro.substr(DelegateMacro.size()) != DelegateSuffixes[Count])
		{
			throw FHeaderError{Delegate.Line, "`" + Macro + "` does not fit `" + Delegate.Name +
												  "`: take the macro for " + std::to_string(Count) + " parameters"};
		}
		Delegate.Flags = {"FUNC_MulticastDelegate", "FUNC_Public", "FUNC_Delegate"};
		Header.Delegates.push_back(std::move(Delegate));
	}

	FHeader& Header;
};

/** The generated header defines what GENERATED_BODY expands to, so it must be included last and before any macro. */
void CheckGeneratedInclude(const FTokenizedHeader& Tokenized, const FHeader& Header)
{
	const auto Mark = std::find_if(Tokenized.Tokens.begin(), Tokenized.Tokens.end(),
								   [](const FToken& Each) { return Each.IsMark(); });
	if (Mark == Tokenized.Tokens.end())
	{
		return;
	}
	const std::string Generated = Header.Stem + ".generated.h";
	const std::vector<FIncludeLine>& Includes = Tokenized.Includes;
	if (Includes.empty() || Includes.back().Path != Generated || Includes.back().Line > Mark->Line)
	{
		throw FHeaderError{Includes.empty() ? Mark->Line : Includes.back().Line,
						   "`#include \"" + Generated + "\"` must be the last include, before the first macro"};
	}
}

} // namespace

void ParseHeader(std::string_view Source, FHeader& Header)
{
	FTokenizedHeader Tokenized = TokenizeHeader(Source);
	CheckGeneratedInclude(Tokenized, Header);
	FParser(std::move(Tokenized.Tokens), Header).Run();
}
