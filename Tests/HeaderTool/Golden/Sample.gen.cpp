// Written by flitmark-header-tool out of Public/Sample.h. Edits are lost.
#include "Sample.h"
#include "Components/TextBlock.h"
#include "UObject/GeneratedCppIncludes.h"

#include <cstddef>

// Objects are not standard-layout types, but every compiler that we build with supports offsetof on them.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

using namespace UECodeGen_Private;

struct Z_Construct_UEnum_ESampleMode_Statics
{
	static constexpr FEnumeratorParam Enumerators[] = {
		{"ESampleMode::Still", static_cast<int64>(ESampleMode::Still)},
		{"ESampleMode::Moving", static_cast<int64>(ESampleMode::Moving)},
	};
	static constexpr FMetaDataPairParam Enum_MetaData[] = {
		{"Comment", "/** How it moves. */"},
		{"ModuleRelativePath", "Public/Sample.h"},
		{"ToolTip", "How it moves."},
	};
	static constexpr FEnumParams EnumParams = {"ESampleMode", Enumerators, 2, true, "int32", {Enum_MetaData, 3}};
};
static UEnum* Z_Storage_ESampleMode = nullptr;

template <>
UEnum* StaticEnum<ESampleMode>()
{
	return ConstructUEnum(Z_Storage_ESampleMode, Z_Construct_UEnum_ESampleMode_Statics::EnumParams);
}

struct Z_Construct_UDelegateFunction_FOnSampleMoved_Statics
{
	static constexpr FMetaDataPairParam Function_FOnSampleMoved_Parameters_Mode_MetaData[] = {
		{"NativeConst", ""},
	};
	static constexpr FPropertyParams Function_FOnSampleMoved_Parameters[] = {
		{"Mode", EPropertyGenKind::Enum, CPF_Parm | CPF_ConstParm | CPF_OutParm | CPF_ReferenceParm, 0, nullptr, &StaticEnum<ESampleMode>, "ESampleMode", nullptr, {Function_FOnSampleMoved_Parameters_Mode_MetaData, 1}},
	};
	static constexpr FMetaDataPairParam Function_FOnSampleMoved_MetaData[] = {
		{"Comment", "/** It was moved. */"},
		{"ModuleRelativePath", "Public/Sample.h"},
		{"ToolTip", "It was moved."},
	};
	static constexpr FFunctionParams FunctionParams = {"OnSampleMoved__DelegateSignature", nullptr, FUNC_MulticastDelegate | FUNC_Public | FUNC_Delegate, Function_FOnSampleMoved_Parameters, 1, {Function_FOnSampleMoved_MetaData, 3}};
};
static UFunction* Z_Storage_FOnSampleMoved = nullptr;

static UFunction* Z_Construct_UDelegateFunction_FOnSampleMoved()
{
	return ConstructUDelegateFunction(Z_Storage_FOnSampleMoved, Z_Construct_UDelegateFunction_FOnSampleMoved_Statics::FunctionParams);
}

void USample::execOnMoved(UObject* Context, FFrame& Stack, void* const)
{
	const auto& Z_Param_Mode = Stack.StepParam<ESampleMode>();
	const auto& Z_Param_By = Stack.StepParam<FString>();
	const auto& Z_Param_Other = Stack.StepParam<USample*>();
	static_cast<USample*>(Context)->OnMoved(Z_Param_Mode, Z_Param_By, Z_Param_Other);
}

struct Z_Construct_UClass_USample_Statics
{
	static constexpr FMetaDataPairParam Properties_Title_MetaData[] = {
		{"BindWidget", ""},
		{"Comment", "// Shown in the middle.\n"},
		{"EditInline", "true"},
		{"ModuleRelativePath", "Public/Sample.h"},
		{"ToolTip", "Shown in the middle."},
	};
	static constexpr FMetaDataPairParam Properties_Count_MetaData[] = {
		{"Category", "Sample"},
		{"ModuleRelativePath", "Public/Sample.h"},
	};
	static constexpr FPropertyParams Properties_Others_Inner = {"Others", EPropertyGenKind::Object, CPF_ExportObject | CPF_InstancedReference, 0, &USample::StaticClass, nullptr, nullptr, nullptr, {nullptr, 0}};
	static constexpr FMetaDataPairParam Properties_Others_MetaData[] = {
		{"EditInline", "true"},
		{"ModuleRelativePath", "Public/Sample.h"},
	};
	static constexpr FPropertyParams Properties[] = {
		{"Title", EPropertyGenKind::Object, CPF_TObjectPtr | CPF_ExportObject | CPF_InstancedReference, offsetof(USample, Title), &UTextBlock::StaticClass, nullptr, nullptr, nullptr, {Properties_Title_MetaData, 5}},
		{"Count", EPropertyGenKind::Int32, CPF_Edit, offsetof(USample, Count), nullptr, nullptr, nullptr, nullptr, {Properties_Count_MetaData, 2}},
		{"Others", EPropertyGenKind::Array, CPF_ExportObject | CPF_InstancedReference, offsetof(USample, Others), nullptr, nullptr, nullptr, &Properties_Others_Inner, {Properties_Others_MetaData, 2}},
	};
	static constexpr FMetaDataPairParam Function_OnMoved_Parameters_Mode_MetaData[] = {
		{"NativeConst", ""},
	};
	static constexpr FMetaDataPairParam Function_OnMoved_Parameters_By_MetaData[] = {
		{"NativeConst", ""},
	};
	static constexpr FMetaDataPairParam Function_OnMoved_Parameters_Other_MetaData[] = {
		{"EditInline", "true"},
	};
	static constexpr FPropertyParams Function_OnMoved_Parameters[] = {
		{"Mode", EPropertyGenKind::Enum, CPF_Parm | CPF_ConstParm | CPF_OutParm | CPF_ReferenceParm, 0, nullptr, &StaticEnum<ESampleMode>, "ESampleMode", nullptr, {Function_OnMoved_Parameters_Mode_MetaData, 1}},
		{"By", EPropertyGenKind::String, CPF_Parm, 0, nullptr, nullptr, nullptr, nullptr, {Function_OnMoved_Parameters_By_MetaData, 1}},
		{"Other", EPropertyGenKind::Object, CPF_Parm | CPF_InstancedReference, 0, &USample::StaticClass, nullptr, nullptr, nullptr, {Function_OnMoved_Parameters_Other_MetaData, 1}},
	};
	static constexpr FMetaDataPairParam Function_OnMoved_MetaData[] = {
		{"ModuleRelativePath", "Public/Sample.h"},
	};
	static constexpr FFunctionParams Functions[] = {
		{"OnMoved", &USample::execOnMoved, FUNC_Final | FUNC_Native | FUNC_Private | FUNC_HasOutParms, Function_OnMoved_Parameters, 3, {Function_OnMoved_MetaData, 1}},
	};
	static constexpr FMetaDataPairParam Class_MetaData[] = {
		{"Comment", "/**\n * One of each kind of record:\n * as small as it can be.\n */"},
		{"IncludePath", "Sample.h"},
		{"ModuleRelativePath", "Public/Sample.h"},
		{"ToolTip", "One of each kind of record:\nas small as it can be."},
	};
	static constexpr FClassParams ClassParams = {"Sample", "USample", &UUserWidget::StaticClass, CLASS_MatchedSerializers | CLASS_Native | CLASS_RequiredAPI | CLASS_HasInstancedReference, sizeof(USample), alignof(USample),
		&InternalConstructor<USample>, Properties, 3, Functions, 1, {Class_MetaData, 4}};
};
static UClass* Z_Storage_USample = nullptr;

UClass* USample::GetPrivateStaticClass()
{
	return ConstructUClass(Z_Storage_USample, Z_Construct_UClass_USample_Statics::ClassParams);
}

struct Z_CompiledIn_FID_Sample_Public_Sample_h_Statics
{
	static constexpr FClassRegisterCompiledInInfo Classes[] = {
		{&USample::StaticClass, &Z_Storage_USample, "Sample"},
	};
	static constexpr FEnumRegisterCompiledInInfo Enums[] = {
		{&StaticEnum<ESampleMode>, &Z_Storage_ESampleMode, "ESampleMode"},
	};
	static constexpr FDelegateRegisterCompiledInInfo Delegates[] = {
		{&Z_Construct_UDelegateFunction_FOnSampleMoved, &Z_Storage_FOnSampleMoved, "OnSampleMoved__DelegateSignature"},
	};
	static constexpr FCompiledInInfo Info = {"/Script/Sample", Classes, 1, Enums, 1, Delegates, 1};
};
static const FRegisterCompiledInInfo Z_CompiledIn_FID_Sample_Public_Sample_h(Z_CompiledIn_FID_Sample_Public_Sample_h_Statics::Info);
