#include "Resolver.h"

#include "TypeReader.h"

#include <cctype>

namespace
{

/** The engine classes from which a module may derive or to which it may refer, as far as the layer has them. */
const FSymbols EngineClasses{
	{"UObject", {"", "UObject/Object.h"}},
	{"USaveGame", {"UObject", "GameFramework/SaveGame.h"}},
	{"UWorld", {"UObject", "Engine/World.h"}},
	{"UMediaPlayer", {"UObject", "MediaPlayer.h"}},
	{"UMediaTexture", {"UObject", "MediaTexture.h"}},
	{"UVisual", {"UObject", "Components/Widget.h"}},
	{"UPanelSlot", {"UVisual", "Components/PanelWidget.h"}},
	{"UCanvasPanelSlot", {"UPanelSlot", "Components/CanvasPanelSlot.h"}},
	{"UWidget", {"UVisual", "Components/Widget.h"}},
	{"UUserWidget", {"UWidget", "Blueprint/UserWidget.h"}},
	{"UPanelWidget", {"UWidget", "Components/PanelWidget.h"}},
	{"UCanvasPanel", {"UPanelWidget", "Components/CanvasPanel.h"}},
	{"UWrapBox", {"UPanelWidget", "Components/WrapBox.h"}},
	{"UTextBlock", {"UWidget", "Components/TextBlock.h"}},
	{"UButton", {"UWidget", "Components/Button.h"}},
	{"UCheckBox", {"UWidget", "Components/CheckBox.h"}},
	{"UEditableText", {"UWidget", "Components/EditableText.h"}},
	{"UImage", {"UWidget", "Components/Image.h"}},
};

class FResolver
{
public:
	FResolver(std::vector<FHeader>& InHeaders, std::vector<std::string>& InErrors)
		: Headers(InHeaders)
		, Errors(InErrors)
		, Symbols(EngineClasses)
	{
	}

	FSymbols Run(std::vector<FHeader>& Used)
	{
		for (FHeader& Header : Used)
		{
			Current = &Header;
			DeclareTypes(Header);
		}
		for (FHeader& Header : Headers)
		{
			Current = &Header;
			DeclareTypes(Header);
		}
		for (FHeader& Header : Headers)
		{
			Current = &Header;
			for (FEnum& Enum : Header.Enums)
			{
				FNames Names;
				std::for_each(Enum.Enumerators.begin(), Enum.Enumerators.end(),
							  [&](FDeclared& Each) { Declare(Names, Each); });
				Check(!Enum.Enumerators.empty(), Enum, "`" + Enum.Name + "` has no enumerators: give it one");
			}
			for (FFunction& Delegate : Header.Delegates)
			{
				ResolveParameters(Delegate);
			}
			for (FClass& Class : Header.Classes)
			{
				ResolveClass(Class);
			}
		}
		return Symbols;
	}

private:
	/** Where each name was declared, keyed in lowercase, since the engine's names ignore case. */
	using FNames = std::map<std::string, std::string>;

	static std::string ToLower(std::string Text)
	{
		std::transform(Text.begin(), Text.end(), Text.begin(),
					   [](char C) { return static_cast<char>(std::tolower(C)); });
		return Text;
	}

	bool Check(bool bFine, const FDeclared& Where, const std::string& Message)
	{
		if (!bFine)
		{
			Errors.push_back(Current->Path + ":" + std::to_string(Where.Line) + ": " + Message);
		}
		return bFine;
	}

	void Declare(FNames& Names, const FDeclared& Record)
	{
		const std::string Place = Current->Stem + ".h:" + std::to_string(Record.Line);
		const auto [Found, bNew] = Names.emplace(ToLower(Record.Name), Place);
		Check(bNew, Record,
			  "`" + Record.Name + "` is declared already, at " + Found->second +
				  ": rename one (neither letter case nor "
				  "parameters tell reflected names apart)");
	}

	void DeclareTypes(FHeader& Header)
	{
		const auto Add = [&](const FDeclared& Type, char Prefix, const std::string& Base)
		{
			Check(Type.Name.size() > 1 && Type.Name[0] == Prefix, Type,
				  "`" + Type.Name + "` must begin with `" + Prefix + "`: rename it");
			const auto [Found, bNew] = Symbols.emplace(Type.Name, FSymbol{Base, Header.IncludePath, Prefix});
			Check(bNew, Type, "`" + Type.Name + "` is declared already, in " + Found->second.Include + ": rename one");
		};
		for (const FClass& Class : Header.Classes)
		{
			Add(Class, 'U', Class.Base);
		}
		for (const FEnum& Enum : Header.Enums)
		{
			Add(Enum, 'E', "");
		}
		for (const FFunction& Delegate : Header.Delegates)
		{
			Add(Delegate, 'F', "");
		}
	}

	/** The class and its bases, the class first; stops at an unknown base or at a cycle. */
	std::vector<std::string> GetBases(std::string Name) const
	{
		std::vector<std::string> Bases;
		for (auto Found = Symbols.find(Name); Found != Symbols.end() && Found->second.Prefix == 'U';
			 Found = Symbols.find(Name))
		{
			if (std::find(Bases.begin(), Bases.end(), Name) != Bases.end())
			{
				break;
			}
			Bases.push_back(Name);
			Name = Found->second.Base;
		}
		return Bases;
	}

	bool IsA(const std::string& Class, const std::string& Base) const
	{
		const std::vector<std::string> Bases = GetBases(Class);
		return std::find(Bases.begin(), Bases.end(), Base) != Bases.end();
	}

	void ResolveClass(FClass& Class)
	{
		const auto Base = Symbols.find(Class.Base);
		Check(IsA(Class.Name, "UObject"), Class,
			  "base `" + Class.Base + "` of `" + Class.Name + "` " +
				  (Base == Symbols.end()
					   ? "is not a known class: mark it with UCLASS() and give its header to the same run"
					   : "does not derive from UObject: choose one that does"));
		Class.Flags = {"CLASS_MatchedSerializers", "CLASS_Native"};
		if (!Class.Api.empty())
		{
			Class.Flags.push_back("CLASS_RequiredAPI");
		}
		FNames Names;
		for (const std::string& Each : GetBases(Class.Base))
		{
			DeclareMembersOf(Each, Names);
		}
		for (FProperty& Property : Class.Properties)
		{
			Declare(Names, Property);
			ResolveProperty(Class, Property);
		}
		for (FFunction& Function : Class.Functions)
		{
			Declare(Names, Function);
			ResolveParameters(Function);
		}
	}

	/** The names that a class of the module denies the classes derived from it. */
	void DeclareMembersOf(const std::string& Name, FNames& Names) const
	{
		for (const FHeader& Header : Headers)
		{
			for (const FClass& Class : Header.Classes)
			{
				const auto Take = [&](const FDeclared& Each)
				{
					Names.emplace(ToLower(Each.Name), Header.Stem + ".h:" + std::to_string(Each.Line));
				};
				if (Class.Name == Name)
				{
					std::for_each(Class.Properties.begin(), Class.Properties.end(), Take);
					std::for_each(Class.Functions.begin(), Class.Functions.end(), Take);
				}
			}
		}
	}

	bool ResolveType(FProperty& Property)
	{
		std::string Fault;
		const std::optional<FType> Type = ReadType(Property.Spelling, Symbols, Fault);
		std::string Spelling;
		for (const FToken& Each : Property.Spelling)
		{
			const bool bSpace = !Spelling.empty() && Each.Kind == ETokenKind::Word &&
								Property.Spelling.front().Text != Each.Text &&
								std::isalnum(static_cast<unsigned char>(Spelling.back()));
			Spelling += (bSpace ? " " : "") + Each.Text;
		}
		Property.Type = Type.value_or(FType());
		return Check(Type.has_value(), Property,
					 "type `" + Spelling + "` of `" + Property.Name + "` cannot be reflected: " + Fault);
	}

	void ResolveProperty(FClass& Class, FProperty& Property)
	{
		const bool bPlain =
			std::none_of(Property.Spelling.begin(), Property.Spelling.end(),
						 [](const FToken& Each) {
							 return IsOneOf(Each.Text, {"static", "constexpr", "mutable", "volatile", "inline"});
						 });
		if (!Check(bPlain, Property,
				   "`" + Property.Name +
					   "` must be a plain member to be a UPROPERTY: static, constexpr, mutable, "
					   "volatile and inline cannot be reflected") ||
			!ResolveType(Property))
		{
			return;
		}
		const FType& Type = Property.Type;
		const FType& Element = Type.Inner.empty() ? Type : Type.Inner[0];
		Check(!Type.bConst && !Type.bReference, Property,
			  "`" + Property.Name + "` is const or a reference: a UPROPERTY must be neither");
		if (Property.MetaData.contains("BindWidget") || Property.MetaData.contains("BindWidgetOptional"))
		{
			Check(Type.Kind == "Object" && IsA(Type.Referred, "UWidget"), Property,
				  "`" + Property.Name +
					  "` is a BindWidget but does not refer to a widget: give it a class derived from UWidget");
			Check(IsA(Class.Name, "UUserWidget"), Property,
				  "`" + Property.Name + "` is a BindWidget in `" + Class.Name +
					  "`, which is not a user widget: derive that from UUserWidget");
		}
		ResolveEditing(Class, Property);
		const bool bAssignable = std::ranges::find(Property.Flags, "CPF_BlueprintAssignable") != Property.Flags.end();
		Check(bAssignable == (Type.Kind == "MulticastDelegate"), Property,
			  "`" + Property.Name +
				  (bAssignable ? "` is BlueprintAssignable but no dynamic multicast delegate: remove the specifier"
							   : "` is a dynamic multicast delegate: mark it BlueprintAssignable, or not at all"));
		if (bAssignable)
		{
			Property.Flags.push_back("CPF_InstancedReference");
		}
		if (Element.bObjectPtr)
		{
			Property.Flags.push_back("CPF_TObjectPtr");
			Property.InnerFlags.push_back("CPF_TObjectPtr");
		}
		if (Element.Kind == "Object" && IsA(Element.Referred, "UVisual"))
		{
			Property.MetaData["EditInline"] = "true";
			for (std::vector<std::string>* Flags : {&Property.Flags, &Property.InnerFlags})
			{
				Flags->insert(Flags->end(), {"CPF_ExportObject", "CPF_InstancedReference"});
			}
			if (Class.Flags.back() != "CLASS_HasInstancedReference")
			{
				Class.Flags.push_back("CLASS_HasInstancedReference");
			}
		}
	}

	void ResolveEditing(const FClass& Class, FProperty& Property)
	{
		const auto Count = [&](const char* Flag)
		{
			return std::count(Property.Flags.begin(), Property.Flags.end(), Flag);
		};
		Check(Count("CPF_Edit") < 2, Property,
			  "`" + Property.Name + "` has two edit specifiers: keep EditAnywhere or EditDefaultsOnly");
		const bool bVisible = Count("CPF_BlueprintVisible") > 0;
		Check(!bVisible || Property.Access != "Private", Property,
			  "`" + Property.Name +
				  "` is private but visible to blueprints: remove the specifier or make it protected or public");
		if (bVisible || Count("CPF_Edit") > 0 || Count("CPF_BlueprintAssignable") > 0)
		{
			Property.MetaData.emplace("Category", Class.Name.substr(1));
		}
	}

	void ResolveParameters(FFunction& Function)
	{
		FNames Names;
		bool bOut = false;
		for (FProperty& Parameter : Function.Parameters)
		{
			Declare(Names, Parameter);
			if (ResolveType(Parameter))
			{
				ResolveParameter(Parameter);
				bOut |=
					!Parameter.IsResult() && std::ranges::find(Parameter.Flags, "CPF_OutParm") != Parameter.Flags.end();
			}
		}
		// A delegate's signature has no native entry point that could write to its parameters.
		const bool bDelegate =
			std::find(Function.Flags.begin(), Function.Flags.end(), "FUNC_Delegate") != Function.Flags.end();
		if (bOut && !bDelegate)
		{
			Function.Flags.push_back("FUNC_HasOutParms");
		}
	}

	void ResolveParameter(FProperty& Parameter)
	{
		const FType& Type = Parameter.Type;
		const FType& Element = Type.Inner.empty() ? Type : Type.Inner[0];
		if (Parameter.IsResult())
		{
			Check(!Type.bReference && !Type.bConst, Parameter, "the result is const or a reference: return a value");
			Parameter.Flags = {"CPF_Parm", "CPF_OutParm", "CPF_ReturnParm"};
			return;
		}
		Check(Type.Kind != "MulticastDelegate", Parameter,
			  "`" + Parameter.Name + "` is a dynamic multicast delegate, which no parameter can be");
		Check(!Type.bReference || Type.bConst, Parameter,
			  "`" + Parameter.Name + "` is a reference that is not const: take it by value or constant reference");
		Check(!Element.bObjectPtr, Parameter,
			  "`" + Parameter.Name + "` takes a TObjectPtr: a parameter must be a plain pointer");
		Parameter.Flags = {"CPF_Parm"};
		if (Type.bConst)
		{
			Parameter.MetaData["NativeConst"] = "";
		}
		// A const reference to a string counts as a value.
		if (Type.bConst && Type.Kind != "String")
		{
			Parameter.Flags.push_back("CPF_ConstParm");
			if (Type.bReference)
			{
				Parameter.Flags.insert(Parameter.Flags.end(), {"CPF_OutParm", "CPF_ReferenceParm"});
			}
		}
		if (Element.Kind == "Object" && IsA(Element.Referred, "UVisual"))
		{
			Parameter.MetaData["EditInline"] = "true";
			Parameter.Flags.push_back("CPF_InstancedReference");
			Parameter.InnerFlags.push_back("CPF_InstancedReference");
		}
	}

	std::vector<FHeader>& Headers;
	std::vector<std::string>& Errors;
	FSymbols Symbols;
	const FHeader* Current = nullptr;
};

} // namespace

FSymbols ResolveHeaders(std::vector<FHeader>& Headers, std::vector<FHeader>& Used, std::vector<std::string>& Errors)
{
	return FResolver(Headers, Errors).Run(Used);
}
