#include "TypeReader.h"

namespace
{

/** Types that stand for themselves, with their EPropertyGenKind. */
const std::map<std::string, std::string> PlainTypes{
	{"bool", "Bool"},		 {"int32", "Int32"},		 {"int64", "Int64"},
	{"float", "Float"},		 {"double", "Double"},		 {"FString", "String"},
	{"FText", "Text"},		 {"FName", "Name"},			 {"ETextCommit::Type", "Enum"},
	{"FTimespan", "Struct"}, {"FLinearColor", "Struct"},
};

constexpr const char* ReflectableTypes =
	"take bool, int32, int64, float, double, FString, FText, FName, FTimespan, FLinearColor, a UENUM, a pointer "
	"or TObjectPtr to a UCLASS, a TSubclassOf, "
	"or a TArray of one of these";

/** Reads a type's tokens. */
class FTypeReader
{
public:
	FTypeReader(const std::vector<FToken>& InTokens, const FSymbols& InSymbols)
		: Tokens(InTokens)
		, Symbols(InSymbols)
	{
	}

	/** Empty if the type can't be reflected; GetFault then says what to do. */
	std::optional<FType> Read()
	{
		std::optional<FType> Type = ReadOne(false);
		if (Type && Accept("&"))
		{
			Type->bReference = true;
		}
		return Type && Pos == Tokens.size() ? Type : std::nullopt;
	}

	const std::string& GetFault() const { return Fault; }

private:
	bool Accept(std::string_view Text)
	{
		const bool bFound = Pos < Tokens.size() && Tokens[Pos].Is(Text);
		Pos += bFound ? 1 : 0;
		return bFound;
	}

	std::optional<FType> ReadOne(bool bInArray)
	{
		FType Type;
		Type.bConst = Accept("const");
		Accept("class") || Accept("enum");
		std::string Name;
		while (Pos < Tokens.size() && (Tokens[Pos].Kind == ETokenKind::Word || Tokens[Pos].Is("::")) &&
			   !Tokens[Pos].Is("const"))
		{
			Name += Tokens[Pos++].Text;
		}
		const bool bTemplate = (Name == "TArray" && !bInArray) || Name == "TObjectPtr" || Name == "TSubclassOf";
		const bool bKnown = bTemplate ? ReadTemplate(Name, Type) : ReadName(Name, Type);
		Type.bConst |= Accept("const");
		return bKnown ? std::optional(Type) : std::nullopt;
	}

	bool ReadTemplate(const std::string& Name, FType& Type)
	{
		if (!Accept("<"))
		{
			return false;
		}
		if (Name == "TArray")
		{
			const std::optional<FType> Inner = ReadOne(true);
			if (!Inner || Inner->bConst)
			{
				return false;
			}
			Type.Kind = "Array";
			Type.CppName = "TArray<" + Inner->CppName + ">";
			Type.Inner = {*Inner};
			return Accept(">");
		}
		Accept("class");
		const std::string Class = Pos < Tokens.size() ? Tokens[Pos++].Text : "";
		Type.bObjectPtr = Name == "TObjectPtr";
		Type.Kind = Type.bObjectPtr ? "Object" : "Class";
		Type.CppName = Name + "<" + Class + ">";
		return ReferTo(Class, Type) && Accept(">");
	}

	bool ReadName(const std::string& Name, FType& Type)
	{
		Type.CppName = Name;
		const auto Plain = PlainTypes.find(Name);
		const auto Symbol = Symbols.find(Name);
		if (Plain != PlainTypes.end())
		{
			Type.Kind = Plain->second;
			return !(Pos < Tokens.size() && Tokens[Pos].Is("*"));
		}
		if (Symbol != Symbols.end() && Symbol->second.Prefix == 'E')
		{
			Type.Kind = "Enum";
			Type.Referred = Name;
			return true;
		}
		if (Symbol != Symbols.end() && Symbol->second.Prefix == 'F')
		{
			Type.Kind = "MulticastDelegate";
			return true;
		}
		Type.Kind = "Object";
		Type.CppName += "*";
		Accept("const");
		return Accept("*") && ReferTo(Name, Type);
	}

	bool ReferTo(const std::string& Class, FType& Type)
	{
		const auto Symbol = Symbols.find(Class);
		Type.Referred = Class;
		if (Symbol == Symbols.end() || Symbol->second.Prefix != 'U')
		{
			Fault = "`" + Class + "` is not a known class: mark it with UCLASS() and give its header to the same run";
			return false;
		}
		return true;
	}

	const std::vector<FToken>& Tokens;
	const FSymbols& Symbols;
	std::size_t Pos = 0;
	std::string Fault = ReflectableTypes;
};

} // namespace

std::optional<FType> ReadType(const std::vector<FToken>& Spelling, const FSymbols& Symbols, std::string& Fault)
{
	FTypeReader Reader(Spelling, Symbols);
	const std::optional<FType> Type = Reader.Read();
	Fault = Reader.GetFault();
	return Type;
}
