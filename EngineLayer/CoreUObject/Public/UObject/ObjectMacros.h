#pragma once

#include "CoreTypes.h"

/**
 * The macros that the header tool reads. To the compiler they are empty, except for GENERATED_BODY, which expands to
 * what the tool wrote for that line of that header.
 */
#define UCLASS(...)
#define UENUM(...)
#define UPROPERTY(...)
#define UFUNCTION(...)
#define UMETA(...)

#define BODY_MACRO_COMBINE_INNER(A, B, C, D) A##B##C##D
#define BODY_MACRO_COMBINE(A, B, C, D) BODY_MACRO_COMBINE_INNER(A, B, C, D)
#define GENERATED_BODY(...) BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_BODY)

/** Class flags; the values are the engine's. */
enum EClassFlags : uint32
{
	CLASS_None = 0x00000000u,
	CLASS_Abstract = 0x00000001u,
	CLASS_MatchedSerializers = 0x00000020u,
	CLASS_Native = 0x00000080u,
	CLASS_EditInlineNew = 0x00001000u,
	CLASS_RequiredAPI = 0x00100000u,
	CLASS_DefaultToInstanced = 0x00200000u,
	CLASS_HasInstancedReference = 0x00800000u,
};

/** Flags that a class inherits from its base. */
constexpr uint32 CLASS_Inherit = CLASS_EditInlineNew | CLASS_DefaultToInstanced;

/** Property flags; the values are the engine's. */
enum EPropertyFlags : uint64
{
	CPF_None = 0,
	CPF_Edit = 0x0000000000000001u,
	CPF_ConstParm = 0x0000000000000002u,
	CPF_BlueprintVisible = 0x0000000000000004u,
	CPF_ExportObject = 0x0000000000000008u,
	CPF_BlueprintReadOnly = 0x0000000000000010u,
	CPF_Parm = 0x0000000000000080u,
	CPF_OutParm = 0x0000000000000100u,
	CPF_ReturnParm = 0x0000000000000400u,
	CPF_Transient = 0x0000000000002000u,
	CPF_DisableEditOnInstance = 0x0000000000010000u,
	CPF_InstancedReference = 0x0000000000080000u,
	CPF_ReferenceParm = 0x0000000008000000u,
	CPF_BlueprintAssignable = 0x0000000010000000u,
	CPF_TObjectPtr = 0x0100000000000000u,
};

/** Function flags; the values are the engine's. */
enum EFunctionFlags : uint32
{
	FUNC_None = 0x00000000u,
	FUNC_Final = 0x00000001u,
	FUNC_Native = 0x00000400u,
	FUNC_MulticastDelegate = 0x00010000u,
	FUNC_Public = 0x00020000u,
	FUNC_Private = 0x00040000u,
	FUNC_Protected = 0x00080000u,
	FUNC_Delegate = 0x00100000u,
	FUNC_HasOutParms = 0x00400000u,
	FUNC_BlueprintCallable = 0x04000000u,
	FUNC_BlueprintPure = 0x10000000u,
	FUNC_Const = 0x40000000u,
};

/** State of an object that its users may query. */
enum EObjectFlags : uint32
{
	RF_NoFlags = 0x00000000u,
	RF_Public = 0x00000001u,
	RF_Standalone = 0x00000002u,
	RF_Transactional = 0x00000008u,
	RF_ClassDefaultObject = 0x00000010u,
	RF_Transient = 0x00000040u,
	RF_BeginDestroyed = 0x00008000u,
};
