#include "Files/FileText.h"
#include "JsonLine.h"
#include "ModuleListing.h"

#include <string_view>

namespace Flitmark
{

namespace
{

std::string Join(const std::vector<std::string>& Words)
{
	std::string Result;
	for (const std::string& Word : Words)
	{
		Result += (Result.empty() ? "" : ", ") + Word;
	}
	return Result;
}

/** One line a key; a value of several lines is told on one. */
void AppendMetaData(std::string& Text, const FModuleListing::FMetaDataMap& MetaData, const std::string& Indent)
{
	for (const auto& [Key, Value] : MetaData)
	{
		std::string OneLine;
		for (const char Character : ToUtf8(Value))
		{
			OneLine += Character == '\n' ? std::string("\\n") : Character == '\t' ? "\\t" : std::string(1, Character);
		}
		Text += Indent + Key + (OneLine.empty() ? "" : " = " + OneLine) + "\n";
	}
}

void AppendFunction(std::string& Text, const FModuleListing::FFunctionEntry& Function, const std::string& Indent)
{
	Text += Indent + Function.Name + "(";
	const char* Comma = "";
	for (const FModuleListing::FPropertyEntry& Parameter : Function.Parameters)
	{
		const std::string Type = Parameter.bConstReference ? "const " + Parameter.Type + "&" : Parameter.Type;
		Text += Comma + Type + " " + Parameter.Name;
		Comma = ", ";
	}
	Text += ")" + (Function.Result.empty() ? "" : " -> " + Function.Result) + " [" + Join(Function.Flags) + "]\n";
	AppendMetaData(Text, Function.MetaData, Indent + "    ");
}

void AppendClass(std::string& Text, const FModuleListing::FClassEntry& Class)
{
	Text += "\nclass " + Class.Name + " : " + Class.Base + " [" + Join(Class.Flags) + "]\n";
	AppendMetaData(Text, Class.MetaData, "    ");
	for (const FModuleListing::FPropertyEntry& Property : Class.Properties)
	{
		Text += "  " + Property.Type + " " + Property.Name;
		Text += Property.Default ? " = " + std::to_string(*Property.Default) : "";
		Text += ": " + Property.Kind + (Property.Flags.empty() ? "" : " [" + Join(Property.Flags) + "]") + "\n";
		AppendMetaData(Text, Property.MetaData, "      ");
	}
	for (const FModuleListing::FFunctionEntry& Function : Class.Functions)
	{
		AppendFunction(Text, Function, "  ");
	}
}

void AddFlags(FJsonLine& Json, const std::vector<std::string>& Flags)
{
	Json.BeginArray("flags");
	for (const std::string& Flag : Flags)
	{
		Json.Add({}, std::string_view(Flag));
	}
	Json.EndArray();
}

void AddMetaData(FJsonLine& Json, const FModuleListing::FMetaDataMap& MetaData)
{
	Json.BeginObject("metadata");
	for (const auto& [Key, Value] : MetaData)
	{
		Json.Add(Key, Value);
	}
	Json.EndObject();
}

void AddProperty(FJsonLine& Json, const FModuleListing::FPropertyEntry& Property)
{
	Json.BeginObject();
	Json.Add("name", std::string_view(Property.Name));
	Json.Add("type", std::string_view(Property.Type));
	if (Property.Kind.empty())
	{
		Json.Add("const_reference", Property.bConstReference);
	}
	else
	{
		Json.Add("kind", std::string_view(Property.Kind));
	}
	if (const auto Category = Property.MetaData.find("Category"); Category != Property.MetaData.end())
	{
		Json.Add("category", Category->second);
	}
	if (Property.Default)
	{
		Json.Add("default", *Property.Default);
	}
	AddFlags(Json, Property.Flags);
	AddMetaData(Json, Property.MetaData);
	Json.EndObject();
}

void AddFunction(FJsonLine& Json, const FModuleListing::FFunctionEntry& Function)
{
	Json.BeginObject();
	Json.Add("name", std::string_view(Function.Name));
	AddFlags(Json, Function.Flags);
	Json.BeginArray("parameters");
	for (const FModuleListing::FPropertyEntry& Parameter : Function.Parameters)
	{
		AddProperty(Json, Parameter);
	}
	Json.EndArray();
	if (!Function.Result.empty())
	{
		Json.Add("result", std::string_view(Function.Result));
	}
	AddMetaData(Json, Function.MetaData);
	Json.EndObject();
}

void AddClass(FJsonLine& Json, const FModuleListing::FClassEntry& Class)
{
	Json.BeginObject();
	Json.Add("name", std::string_view(Class.Name));
	Json.Add("base", std::string_view(Class.Base));
	AddFlags(Json, Class.Flags);
	Json.BeginArray("properties");
	for (const FModuleListing::FPropertyEntry& Property : Class.Properties)
	{
		AddProperty(Json, Property);
	}
	Json.EndArray();
	Json.BeginArray("functions");
	for (const FModuleListing::FFunctionEntry& Function : Class.Functions)
	{
		AddFunction(Json, Function);
	}
	Json.EndArray();
	AddMetaData(Json, Class.MetaData);
	Json.EndObject();
}

void AddEnum(FJsonLine& Json, const FModuleListing::FEnumEntry& Enum)
{
	Json.BeginObject();
	Json.Add("name", std::string_view(Enum.Name));
	Json.Add("underlying_type", std::string_view(Enum.UnderlyingType));
	Json.BeginArray("enumerators");
	for (const auto& [Name, Value] : Enum.Enumerators)
	{
		Json.BeginObject();
		Json.Add("name", std::string_view(Name));
		Json.Add("value", Value);
		Json.EndObject();
	}
	Json.EndArray();
	AddMetaData(Json, Enum.MetaData);
	Json.EndObject();
}

void AddModule(FJsonLine& Json, const FModuleListing& Listing)
{
	Json.Add("module", std::string_view(Listing.Module));
	Json.Add("package", std::string_view(Listing.Package));
	Json.Add("supports_dynamic_reloading", Listing.bSupportsDynamicReloading);
	Json.Add("supports_automatic_shutdown", Listing.bSupportsAutomaticShutdown);
	Json.Add("is_game_module", Listing.bGameModule);
	Json.BeginArray("classes");
	for (const FModuleListing::FClassEntry& Class : Listing.Classes)
	{
		AddClass(Json, Class);
	}
	Json.EndArray();
	Json.BeginArray("enums");
	for (const FModuleListing::FEnumEntry& Enum : Listing.Enums)
	{
		AddEnum(Json, Enum);
	}
	Json.EndArray();
	Json.BeginArray("delegates");
	for (const FModuleListing::FFunctionEntry& Delegate : Listing.Delegates)
	{
		AddFunction(Json, Delegate);
	}
	Json.EndArray();
}

} // namespace

std::string FModuleListing::ToText() const
{
	const auto YesNo = [](bool bYes)
	{
		return bYes ? "yes" : "no";
	};
	std::string Text = "module " + Module + ", package " + Package + "\n";
	Text += std::string("  supports dynamic reloading: ") + YesNo(bSupportsDynamicReloading) + "\n";
	Text += std::string("  supports automatic shutdown: ") + YesNo(bSupportsAutomaticShutdown) + "\n";
	Text += std::string("  game module: ") + YesNo(bGameModule) + "\n";
	for (const FClassEntry& Class : Classes)
	{
		AppendClass(Text, Class);
	}
	for (const FEnumEntry& Enum : Enums)
	{
		Text += "\nenum " + Enum.Name + " : " + Enum.UnderlyingType + "\n";
		AppendMetaData(Text, Enum.MetaData, "    ");
		for (const auto& [Name, Value] : Enum.Enumerators)
		{
			Text += "  " + Name + " = " + std::to_string(Value) + "\n";
		}
	}
	for (const FFunctionEntry& Delegate : Delegates)
	{
		Text += "\ndelegate signature\n";
		AppendFunction(Text, Delegate, "  ");
	}
	return Text;
}

std::string FModuleListing::ToJson(const FModuleListing* ReadyMade) const
{
	FJsonLine Json;
	Json.BeginObject();
	AddModule(Json, *this);
	if (ReadyMade != nullptr)
	{
		Json.BeginObject("ready_made");
		AddModule(Json, *ReadyMade);
		Json.EndObject();
	}
	Json.EndObject();
	return Json.GetText() + "\n";
}

} // namespace Flitmark
