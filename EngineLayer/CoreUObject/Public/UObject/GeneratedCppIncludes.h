#pragma once

#include "UObject/Class.h"
#include "UObject/Object.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Script.h"

/**
 * The records with which the header tool's `X.gen.cpp` files describe a module's types. They are constant data, from
 * which the registry builds UClass, UFunction and UEnum when a type is first asked for.
 */
namespace UECodeGen_Private
{

/** One key of an element's metadata; UTF-8. */
struct FMetaDataPairParam
{
	const char* Name;
	const char* Value;
};

struct FMetaDataList
{
	const FMetaDataPairParam* Pairs;
	int32 Num;
};

enum class EPropertyGenKind : uint8
{
	Int32,
	Int64,
	Float,
	Double,
	Bool,
	String,
	Text,
	Name,
	/** An enumeration; EnumGetter says which. A byte-sized `TEnumAsByte`-like or namespaced enum counts too. */
	Enum,
	/** A pointer or TObjectPtr to an engine object; ClassGetter says to which class. */
	Object,
	/** A TSubclassOf; ClassGetter gives the class it is restricted to. */
	Class,
	/** An engine structure; TypeName says which. */
	Struct,
	/** A dynamic multicast delegate; TypeName says which. */
	MulticastDelegate,
	/** A TArray; Inner describes its elements. */
	Array,
};

/** A property of a class, or a parameter of a function. */
struct FPropertyParams
{
	const char* Name;
	EPropertyGenKind Kind;
	/** EPropertyFlags. */
	uint64 Flags;
	/** Bytes from the object's start; 0 for a parameter. */
	uint32 Offset;
	/** The class an object or class reference is restricted to; else null. */
	UClass* (*ClassGetter)();
	/** The enumeration; else null. For one of the engine's own, only TypeName is set. */
	UEnum* (*EnumGetter)();
	const char* TypeName;
	/** An array's element; else null. */
	const FPropertyParams* Inner;
	FMetaDataList MetaData;
};

struct FFunctionParams
{
	const char* Name;
	/** The native entry point; null for a delegate's signature. */
	FNativeFuncPtr Native;
	/** EFunctionFlags. */
	uint32 Flags;
	/** The return value, if any, is marked CPF_ReturnParm. */
	const FPropertyParams* Parameters;
	int32 NumParameters;
	FMetaDataList MetaData;
};

struct FClassParams
{
	/** Without the prefix, as the engine names it: "DanmakuTrack". */
	const char* Name;
	/** With the prefix: "UDanmakuTrack". */
	const char* CppName;
	UClass* (*SuperGetter)();
	/** Its own EClassFlags; those in CLASS_Inherit come from the base. */
	uint32 Flags;
	uint32 Size;
	uint32 Alignment;
	/** Constructs an object in zeroed storage. */
	void (*Construct)(const FObjectInitializer& ObjectInitializer);
	const FPropertyParams* Properties;
	int32 NumProperties;
	const FFunctionParams* Functions;
	int32 NumFunctions;
	FMetaDataList MetaData;
};

struct FEnumeratorParam
{
	/** Qualified: "EDanmakuMode::SCROLL". */
	const char* Name;
	int64 Value;
};

struct FEnumParams
{
	const char* Name;
	const FEnumeratorParam* Enumerators;
	int32 NumEnumerators;
	/** True for an `enum class`. */
	bool bScoped;
	/** Name of the underlying type: "int32". */
	const char* UnderlyingType;
	FMetaDataList MetaData;
};

/** Builds the class on the first call and keeps it in OutClass. */
ENGINELAYER_API UClass* ConstructUClass(UClass*& OutClass, const FClassParams& Params);

/** Builds the enumeration on the first call and keeps it in OutEnum. */
ENGINELAYER_API UEnum* ConstructUEnum(UEnum*& OutEnum, const FEnumParams& Params);

/** Builds a delegate's signature ("OnSendX__DelegateSignature", package level) on the first call. */
ENGINELAYER_API UFunction* ConstructUDelegateFunction(UFunction*& OutFunction, const FFunctionParams& Params);

/** What one translation unit registers when its library is loaded. */
struct FClassRegisterCompiledInInfo
{
	UClass* (*Getter)();
	UClass** Storage;
	const char* Name;
};

struct FEnumRegisterCompiledInInfo
{
	UEnum* (*Getter)();
	UEnum** Storage;
	const char* Name;
};

struct FDelegateRegisterCompiledInInfo
{
	UFunction* (*Getter)();
	UFunction** Storage;
	const char* Name;
};

struct FCompiledInInfo
{
	/** "/Script/Flitmark". */
	const char* PackageName;
	const FClassRegisterCompiledInInfo* Classes;
	int32 NumClasses;
	const FEnumRegisterCompiledInInfo* Enums;
	int32 NumEnums;
	const FDelegateRegisterCompiledInInfo* Delegates;
	int32 NumDelegates;
};

/**
 * Keeps a header's types registered by name while it lives: a static object in each generated file. Its destruction,
 * when the library is unloaded, removes the types from the registry and clears their Storage; no objects of these types
 * may be left by then.
 */
class ENGINELAYER_API FRegisterCompiledInInfo
{
public:
	explicit FRegisterCompiledInInfo(const FCompiledInInfo& InInfo);
	~FRegisterCompiledInInfo();
	FRegisterCompiledInInfo(const FRegisterCompiledInInfo&) = delete;
	FRegisterCompiledInInfo& operator=(const FRegisterCompiledInInfo&) = delete;

private:
	const FCompiledInInfo& Info;
};

} // namespace UECodeGen_Private

/** Calls the constructor that a class's generated body declares; the class's record points to this. */
template <class T>
void InternalConstructor(const FObjectInitializer& ObjectInitializer)
{
	T::__DefaultConstructor(ObjectInitializer);
}
