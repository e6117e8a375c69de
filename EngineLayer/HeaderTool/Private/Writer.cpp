#include "Writer.h"

#include "RecordWriter.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace
{

std::string FileId(const FModuleInfo& Module, const FHeader& Header)
{
	std::string Id = "FID_" + Module.Name + "_" + Header.ModuleRelativePath;
	std::replace_if(
		Id.begin(), Id.end(), [](char C) { return !std::isalnum(static_cast<unsigned char>(C)); }, '_');
	return Id;
}

std::string SignatureName(const FFunction& Delegate)
{
	return Delegate.Name.substr(1) + "__DelegateSignature";
}

std::string WriteThunk(const FClass& Class, const FFunction& Function)
{
	FList Values;
	std::string Steps;
	std::string Store;
	for (const FProperty& Parameter : Function.Parameters)
	{
		if (Parameter.IsResult())
		{
			Store = Fill("*static_cast<$1*>(Z_Param__Result) = ", {Parameter.Type.CppName});
			continue;
		}
		Values.push_back("Z_Param_" + Parameter.Name);
		Steps += Fill("\tconst auto& $1 = Stack.StepParam<$2>();\n", {Values.back(), Parameter.Type.CppName});
	}
	return Fill(
		"void $1::exec$2(UObject* Context, FFrame&$3, void* const$6)\n{\n$4\t$7static_cast<$1*>(Context)->$2($5);"
		"\n}\n\n",
		{Class.Name, Function.Name, Values.empty() ? "" : " Stack", Steps, Join(Values, ", ", ""),
		 Store.empty() ? "" : " Z_Param__Result", Store});
}

std::string WriteClass(const FClass& Class)
{
	FRecordWriter Records;
	const std::string Properties = Records.WriteProperties(Class.Properties, "Properties", Class.Name);
	const std::string Functions = Records.WriteFunctions(Class);
	const std::string MetaData = Records.WriteMetaData(Class, "Class");
	std::string Text;
	for (const FFunction& Function : Class.Functions)
	{
		Text += WriteThunk(Class, Function);
	}
	return Text +
		   Fill(R"(struct Z_Construct_UClass_$1_Statics
{
$2	static constexpr FClassParams ClassParams = {$3, $4, &$5::StaticClass, $6, sizeof($1), alignof($1),
		&InternalConstructor<$1>, $7, $8, $9};
};
static UClass* Z_Storage_$1 = nullptr;
)",
				{Class.Name, Records.GetText(), Literal(Class.Name.substr(1)), Literal(Class.Name), Class.Base,
				 Join(Class.Flags, " | ", ""), Properties, Functions, MetaData}) +
		   Fill(R"(
UClass* $1::GetPrivateStaticClass()
{
	return ConstructUClass(Z_Storage_$1, Z_Construct_UClass_$1_Statics::ClassParams);
}

)",
				{Class.Name});
}

std::string WriteEnum(const FEnum& Enum)
{
	FRecordWriter Records;
	FList Entries;
	for (const FDeclared& Enumerator : Enum.Enumerators)
	{
		const std::string Name = Enum.Name + "::" + Enumerator.Name;
		Entries.push_back(Fill("{$1, static_cast<int64>($2)}", {Literal(Name), Name}));
	}
	const std::string Enumerators = Records.WriteArray("FEnumeratorParam", "Enumerators", Entries);
	const std::string MetaData = Records.WriteMetaData(Enum, "Enum");
	return Fill(
		R"(struct Z_Construct_UEnum_$1_Statics
{
$2	static constexpr FEnumParams EnumParams = {$3, $4, true, $5, $6};
};
static UEnum* Z_Storage_$1 = nullptr;

template <>
UEnum* StaticEnum<$1>()
{
	return ConstructUEnum(Z_Storage_$1, Z_Construct_UEnum_$1_Statics::EnumParams);
}

)",
		{Enum.Name, Records.GetText(), Literal(Enum.Name), Enumerators, Literal(Enum.UnderlyingType), MetaData});
}

std::string WriteDelegate(const FFunction& Delegate)
{
	FRecordWriter Records;
	const std::string Value = Records.WriteFunction(Delegate, SignatureName(Delegate), "nullptr");
	return Fill(R"(struct Z_Construct_UDelegateFunction_$1_Statics
{
$2	static constexpr FFunctionParams FunctionParams = $3;
};
static UFunction* Z_Storage_$1 = nullptr;

static UFunction* Z_Construct_UDelegateFunction_$1()
{
	return ConstructUDelegateFunction(Z_Storage_$1, Z_Construct_UDelegateFunction_$1_Statics::FunctionParams);
}

)",
				{Delegate.Name, Records.GetText(), Value});
}

/** The object that registers the header's types. */
std::string WriteRegistration(const FModuleInfo& Module, const FHeader& Header)
{
	FRecordWriter Records;
	FList Classes;
	FList Enums;
	FList Delegates;
	for (const FClass& Class : Header.Classes)
	{
		Classes.push_back(Fill("{&$1::StaticClass, &Z_Storage_$1, $2}", {Class.Name, Literal(Class.Name.substr(1))}));
	}
	for (const FEnum& Enum : Header.Enums)
	{
		Enums.push_back(Fill("{&StaticEnum<$1>, &Z_Storage_$1, $2}", {Enum.Name, Literal(Enum.Name)}));
	}
	for (const FFunction& Delegate : Header.Delegates)
	{
		Delegates.push_back(Fill("{&Z_Construct_UDelegateFunction_$1, &Z_Storage_$1, $2}",
								 {Delegate.Name, Literal(SignatureName(Delegate))}));
	}
	const std::string ClassArray = Records.WriteArray("FClassRegisterCompiledInInfo", "Classes", Classes);
	const std::string EnumArray = Records.WriteArray("FEnumRegisterCompiledInInfo", "Enums", Enums);
	const std::string DelegateArray = Records.WriteArray("FDelegateRegisterCompiledInInfo", "Delegates", Delegates);
	return Fill(
		R"(struct Z_CompiledIn_$1_Statics
{
$2	static constexpr FCompiledInInfo Info = {$3, $4, $5, $6};
};
static const FRegisterCompiledInInfo Z_CompiledIn_$1(Z_CompiledIn_$1_Statics::Info);
)",
		{FileId(Module, Header), Records.GetText(), Literal(Module.Package), ClassArray, EnumArray, DelegateArray});
}

/** The headers of all classes and enumerations that the records point to. */
std::set<std::string> FindIncludes(const FHeader& Header, const FSymbols& Symbols)
{
	std::set<std::string> Includes;
	const auto Add = [&](const std::vector<FProperty>& Properties)
	{
		for (const FProperty& Property : Properties)
		{
			const FType& Type = Property.Type.Inner.empty() ? Property.Type : Property.Type.Inner[0];
			if (const auto Found = Symbols.find(Type.Referred); Found != Symbols.end())
			{
				Includes.insert(Found->second.Include);
			}
		}
	};
	for (const FClass& Class : Header.Classes)
	{
		Add(Class.Properties);
		std::for_each(Class.Functions.begin(), Class.Functions.end(),
					  [&](const FFunction& Each) { Add(Each.Parameters); });
	}
	std::for_each(Header.Delegates.begin(), Header.Delegates.end(),
				  [&](const FFunction& Each) { Add(Each.Parameters); });
	Includes.erase(Header.IncludePath);
	return Includes;
}

/**
 * Makes an object through the constructor that the class declares, or through one of our own where it declares none.
 */
std::string WriteConstructor(const FClass& Class)
{
	const bool bInitializer = Class.bInitializerConstructor || !Class.bDefaultConstructor;
	std::string Text;
	if (!Class.bInitializerConstructor && !Class.bDefaultConstructor)
	{
		Text = Fill("\t$1(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get()) : "
					"Super(ObjectInitializer) {} \\\n",
					{Class.Name});
	}
	return Text +
		   Fill("\tstatic void __DefaultConstructor(const FObjectInitializer& X) { ::new (X.GetObj()) $1($2); } \\\n",
				{Class.Name, bInitializer ? "X" : ""});
}

std::string WriteBody(const FClass& Class, const std::string& Id)
{
	std::string Text = Fill("\n#define $1_$2_GENERATED_BODY \\\nprivate: \\\n", {Id, std::to_string(Class.BodyLine)});
	for (const FFunction& Function : Class.Functions)
	{
		Text += Fill("\tstatic void exec$1(UObject* Context, FFrame& Stack, void* const Z_Param__Result); \\\n",
					 {Function.Name});
	}
	return Text + Fill(R"(	static UClass* GetPrivateStaticClass(); \
	friend struct Z_Construct_UClass_$1_Statics; \
public: \
	typedef $2 Super; \
	typedef $1 ThisClass; \
	$1($1&&) = delete; \
	$1(const $1&) = delete; \
	$1& operator=($1&&) = delete; \
	$1& operator=(const $1&) = delete; \
	static UClass* StaticClass() { return GetPrivateStaticClass(); } \
$3private:
)",
					   {Class.Name, Class.Base, WriteConstructor(Class)});
}

} // namespace

std::string WriteGeneratedHeader(const FModuleInfo& Module, const FHeader& Header)
{
	const std::string Id = FileId(Module, Header);
	std::string Text = Fill(R"(// Written by flitmark-header-tool out of $1. Edits are lost.
#ifdef $2_generated
#error "$3.generated.h is included twice: $3.h lacks #pragma once"
#endif
#define $2_generated

#include "UObject/Class.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Script.h"
)",
							{Header.ModuleRelativePath, Id, Header.Stem});
	for (const FClass& Class : Header.Classes)
	{
		Text += WriteBody(Class, Id);
	}
	Text += Fill("\n#undef CURRENT_FILE_ID\n#define CURRENT_FILE_ID $1\n", {Id});
	for (const FEnum& Enum : Header.Enums)
	{
		Text += Fill("\nenum class $1 : $2;\ntemplate <>\n$3UEnum* StaticEnum<$1>();\n",
					 {Enum.Name, Enum.UnderlyingType, Module.Api.empty() ? "" : Module.Api + " "});
	}
	return Text;
}

std::string WriteGeneratedSource(const FModuleInfo& Module, const FHeader& Header, const FSymbols& Symbols)
{
	std::string Text = Fill("// Written by flitmark-header-tool out of $1. Edits are lost.\n#include \"$2\"\n",
							{Header.ModuleRelativePath, Header.IncludePath});
	for (const std::string& Include : FindIncludes(Header, Symbols))
	{
		Text += Fill("#include \"$1\"\n", {Include});
	}
	Text += R"(#include "UObject/GeneratedCppIncludes.h"

#include <cstddef>

// Objects are not standard-layout types, but every compiler that we build with supports offsetof on them.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

using namespace UECodeGen_Private;

)";
	for (const FEnum& Enum : Header.Enums)
	{
		Text += WriteEnum(Enum);
	}
	for (const FFunction& Delegate : Header.Delegates)
	{
		Text += WriteDelegate(Delegate);
	}
	for (const FClass& Class : Header.Classes)
	{
		Text += WriteClass(Class);
	}
	return Text + WriteRegistration(Module, Header);
}
