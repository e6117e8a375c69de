#include "RecordWriter.h"

namespace
{

/** The initializer of one FPropertyParams. */
std::string PropertyValue(const FProperty& Property, const FType& Type, const FList& Flags, const std::string& Offset,
						  const std::string& Inner, const std::string& MetaData)
{
	const bool bEnum = Type.Kind == "Enum";
	const bool bNamed = bEnum || Type.Kind == "Struct" || Type.Kind == "MulticastDelegate";
	const bool bClass = Type.Kind == "Object" || Type.Kind == "Class";
	return Fill("{$1, EPropertyGenKind::$2, $3, $4, $5, $6, $7, $8, $9}",
				{Literal(Property.Name), Type.Kind, Join(Flags, " | ", "CPF_None"), Offset,
				 bClass ? "&" + Type.Referred + "::StaticClass" : "nullptr",
				 bEnum && !Type.Referred.empty() ? "&StaticEnum<" + Type.Referred + ">" : "nullptr",
				 bNamed ? Literal(Type.CppName.substr(0, Type.CppName.find("::"))) : "nullptr", Inner, MetaData});
}

} // namespace

std::string Fill(std::string_view Template, std::initializer_list<std::string> Values)
{
	std::string Text;
	for (std::size_t Index = 0; Index < Template.size(); ++Index)
	{
		const bool bPlace = Template[Index] == '$';
		Text += bPlace ? Values.begin()[Template[++Index] - '1'] : std::string(1, Template[Index]);
	}
	return Text;
}

std::string Join(const FList& List, const std::string& Separator, const std::string& IfEmpty)
{
	std::string Text;
	for (const std::string& Each : List)
	{
		Text += (Text.empty() ? "" : Separator) + Each;
	}
	return List.empty() ? IfEmpty : Text;
}

std::string Literal(const std::string& Text)
{
	std::string Quoted = "\"";
	for (const char C : Text)
	{
		const unsigned Byte = static_cast<unsigned char>(C);
		if (C == '\n')
		{
			Quoted += "\\n";
		}
		else if (Byte < 0x20 || Byte >= 0x7F)
		{
			Quoted += {'\\', static_cast<char>('0' + Byte / 64), static_cast<char>('0' + Byte / 8 % 8),
					   static_cast<char>('0' + Byte % 8)};
		}
		else
		{
			Quoted += (C == '"' || C == '\\' || C == '?') ? std::string{'\\', C} : std::string(1, C);
		}
	}
	return Quoted + "\"";
}

std::string FRecordWriter::WriteMetaData(const FDeclared& Record, const std::string& Name)
{
	if (Record.MetaData.empty())
	{
		return "{nullptr, 0}";
	}
	Text += Fill("\tstatic constexpr FMetaDataPairParam $1_MetaData[] = {\n", {Name});
	for (const auto& [Key, Value] : Record.MetaData)
	{
		Text += Fill("\t\t{$1, $2},\n", {Literal(Key), Literal(Value)});
	}
	Text += "\t};\n";
	return Fill("{$1_MetaData, $2}", {Name, std::to_string(Record.MetaData.size())});
}

std::string FRecordWriter::WriteProperties(const std::vector<FProperty>& Properties, const std::string& Name,
										   const std::string& Class)
{
	FList Entries;
	for (const FProperty& Property : Properties)
	{
		const std::string Offset = Class.empty() ? "0" : Fill("offsetof($1, $2)", {Class, Property.Name});
		const std::string Record = Name + "_" + Property.Name;
		std::string Inner = "nullptr";
		if (!Property.Type.Inner.empty())
		{
			Inner = Fill("&$1_Inner", {Record});
			Text += Fill("\tstatic constexpr FPropertyParams $1_Inner = $2;\n",
						 {Record, PropertyValue(Property, Property.Type.Inner[0], Property.InnerFlags, "0", "nullptr",
												"{nullptr, 0}")});
		}
		const std::string MetaData = WriteMetaData(Property, Record);
		Entries.push_back(PropertyValue(Property, Property.Type, Property.Flags, Offset, Inner, MetaData));
	}
	return WriteArray("FPropertyParams", Name, Entries);
}

std::string FRecordWriter::WriteFunctions(const FClass& Class)
{
	FList Entries;
	for (const FFunction& Function : Class.Functions)
	{
		Entries.push_back(WriteFunction(Function, Function.Name, Fill("&$1::exec$2", {Class.Name, Function.Name})));
	}
	return WriteArray("FFunctionParams", "Functions", Entries);
}

std::string FRecordWriter::WriteFunction(const FFunction& Function, const std::string& Name, const std::string& Native)
{
	const std::string Parameters =
		WriteProperties(Function.Parameters, "Function_" + Function.Name + "_Parameters", "");
	const std::string MetaData = WriteMetaData(Function, "Function_" + Function.Name);
	return Fill("{$1, $2, $3, $4, $5}",
				{Literal(Name), Native, Join(Function.Flags, " | ", "FUNC_None"), Parameters, MetaData});
}

std::string FRecordWriter::WriteArray(const std::string& Type, const std::string& Name, const FList& Entries)
{
	if (Entries.empty())
	{
		return "nullptr, 0";
	}
	Text += Fill("\tstatic constexpr $1 $2[] = {\n\t\t$3,\n\t};\n", {Type, Name, Join(Entries, ",\n\t\t", "")});
	return Name + ", " + std::to_string(Entries.size());
}
