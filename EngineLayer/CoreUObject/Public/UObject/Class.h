#pragma once

#include "UObject/Object.h"
#include "UObject/Script.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class UEnum;

namespace UECodeGen_Private
{
struct FPropertyParams;
struct FFunctionParams;
struct FClassParams;
struct FEnumParams;
struct FMetaDataList;
enum class EPropertyGenKind : uint8;
} // namespace UECodeGen_Private

/** Documentation and editor keys of a type, a property or a function. */
class ENGINELAYER_API FMetaData
{
public:
	FMetaData() = default;
	explicit FMetaData(const UECodeGen_Private::FMetaDataList& InList);

	/** Null if there is no such key. */
	const FString* Find(std::string_view InKey) const;
	const std::map<std::string, FString, std::less<>>& GetAll() const { return Values; }

private:
	std::map<std::string, FString, std::less<>> Values;
};

/** A reflected member of a class, or a parameter of a function. */
class ENGINELAYER_API FProperty
{
public:
	using EKind = UECodeGen_Private::EPropertyGenKind;

	explicit FProperty(const UECodeGen_Private::FPropertyParams& InParams);
	virtual ~FProperty() = default;
	FProperty(FProperty&&) = default;

	FName GetFName() const { return Name; }
	FString GetName() const { return Name.ToString(); }
	EKind GetKind() const { return Kind; }
	uint64 GetFlags() const { return Flags; }
	bool HasAnyFlags(uint64 InFlags) const { return (Flags & InFlags) != 0; }
	const FMetaData& GetMetaData() const { return MetaData; }
	/** The class that an object or class reference is restricted to; else null. */
	UClass* GetReferencedClass() const;
	/** The name of an enumeration, a structure or a delegate; empty for other kinds. */
	FString GetTypeName() const;
	/** An array's element; else null. */
	const FProperty* GetInner() const { return Inner.get(); }
	uint32 GetOffset() const { return Offset; }

	template <class T>
	T* ContainerPtrToValuePtr(UObject* Object) const
	{
		return reinterpret_cast<T*>(reinterpret_cast<std::byte*>(Object) + Offset);
	}
	template <class T>
	const T* ContainerPtrToValuePtr(const UObject* Object) const
	{
		return ContainerPtrToValuePtr<T>(const_cast<UObject*>(Object));
	}

	/** Copies the value of this property from one object to another of the same class. */
	void CopyValue(UObject* To, const UObject* From) const;
	/** The value of an object reference. */
	UObject* GetObjectValue(const UObject* Object) const;
	void SetObjectValue(UObject* Object, UObject* Value) const;
	/** The objects of an array of object references. */
	std::vector<UObject*> GetObjectArray(const UObject* Object) const;

private:
	FName Name;
	EKind Kind;
	uint64 Flags;
	uint32 Offset;
	const UECodeGen_Private::FPropertyParams& Params;
	std::unique_ptr<FProperty> Inner;
	FMetaData MetaData;
};

/** A class's reflected function, or a delegate's signature. */
class ENGINELAYER_API UFunction
{
public:
	explicit UFunction(const UECodeGen_Private::FFunctionParams& InParams);

	FName GetFName() const { return Name; }
	FString GetName() const { return Name.ToString(); }
	uint32 GetFunctionFlags() const { return Flags; }
	bool HasAnyFunctionFlags(uint32 InFlags) const { return (Flags & InFlags) != 0; }
	/** Excluding the return value. */
	const std::vector<FProperty>& GetParameters() const { return Parameters; }
	/** Null for a function that returns nothing. */
	const FProperty* GetReturnProperty() const { return Result.get(); }
	const FMetaData& GetMetaData() const { return MetaData; }

	/**
	 * Calls it with one pointer to a value of the right type for each parameter. OutResult: receives the return value,
	 * if any.
	 */
	void Invoke(UObject* Context, const void* const* InParameters, void* OutResult = nullptr) const;

private:
	FName Name;
	uint32 Flags;
	FNativeFuncPtr Native;
	std::vector<FProperty> Parameters;
	std::unique_ptr<FProperty> Result;
	FMetaData MetaData;
};

/** The record of a class. Lives until its library is unloaded. */
class ENGINELAYER_API UClass : public UObject
{
public:
	UClass(const UECodeGen_Private::FClassParams& InParams, UClass* InSuper);
	~UClass() override;

	static UClass* StaticClass();

	UClass* GetSuperClass() const { return Super; }
	bool IsChildOf(const UClass* SomeBase) const
	{
		for (const UClass* Each = this; Each != nullptr; Each = Each->Super)
		{
			if (Each == SomeBase)
			{
				return true;
			}
		}
		return false;
	}
	bool HasAnyClassFlags(uint32 InFlags) const { return (ClassFlags & InFlags) != 0; }
	uint32 GetClassFlags() const { return ClassFlags; }
	/** With its prefix, as in the code. */
	const std::string& GetCppName() const { return CppName; }
	const FMetaData& GetMetaData() const { return MetaData; }

	/** Those of this class alone, in order of declaration. */
	const std::vector<std::unique_ptr<FProperty>>& GetOwnProperties() const { return Properties; }
	const std::vector<std::unique_ptr<UFunction>>& GetOwnFunctions() const { return Functions; }
	/** From this class or a base; null if there is none. */
	FProperty* FindPropertyByName(FName InName) const;
	UFunction* FindFunctionByName(FName InName) const;

	/** The object whose values new objects start with; made on demand. */
	UObject* GetDefaultObject();
	template <class T>
	T* GetDefaultObject()
	{
		return static_cast<T*>(GetDefaultObject());
	}

	uint32 GetPropertiesSize() const { return Size; }

protected:
	/** A class made at run time from a native one. */
	UClass(FName InName, UClass* InSuper);

	/** Finishes an object that was just constructed, for example by copying edited defaults. */
	virtual void PostConstruct(UObject& Object);

private:
	friend class FGarbageCollector;
	friend ENGINELAYER_API UObject* StaticConstructObject_Internal(UClass*, UObject*, FName, EObjectFlags);

	/** A reflected reference that the collector follows. */
	struct FReferenceToken
	{
		uint32 Offset;
		bool bArray;
	};

	void AddReferenceTokens();

	UClass* Super;
	std::string CppName;
	uint32 ClassFlags;
	uint32 Size;
	uint32 Alignment;
	void (*Construct)(const FObjectInitializer&);
	std::vector<std::unique_ptr<FProperty>> Properties;
	std::vector<std::unique_ptr<UFunction>> Functions;
	/** Including those of the bases. */
	std::vector<FReferenceToken> References;
	FMetaData MetaData;
	UObject* DefaultObject = nullptr;
	/** Numbers objects made without a name. */
	int32 NextObjectNumber = 0;
};

/** The record of an enumeration. */
class ENGINELAYER_API UEnum
{
public:
	explicit UEnum(const UECodeGen_Private::FEnumParams& InParams);

	FString GetName() const { return Name; }
	int32 NumEnums() const { return static_cast<int32>(Names.size()); }
	/** Qualified: "EDanmakuMode::SCROLL". */
	FName GetNameByIndex(int32 Index) const { return Names[static_cast<std::size_t>(Index)].first; }
	int64 GetValueByIndex(int32 Index) const { return Names[static_cast<std::size_t>(Index)].second; }
	const std::string& GetUnderlyingType() const { return UnderlyingType; }
	bool IsScoped() const { return bScoped; }
	const FMetaData& GetMetaData() const { return MetaData; }

private:
	FString Name;
	std::vector<std::pair<FName, int64>> Names;
	std::string UnderlyingType;
	bool bScoped;
	FMetaData MetaData;
};

template <class EnumType>
UEnum* StaticEnum();

/** What a library registered under one package name. */
struct FPackageContents
{
	std::vector<UClass*> Classes;
	std::vector<UEnum*> Enums;
	std::vector<UFunction*> Delegates;
};

/**
 * Everything registered under the package, built if necessary and sorted by name. Empty for a package that is not
 * loaded.
 */
ENGINELAYER_API FPackageContents FindPackageContents(std::string_view InPackageName);

/** The native class of that name, prefix included; null if no loaded library has it. */
ENGINELAYER_API UClass* FindClassByName(std::string_view InCppName);

/** Gives one of the layer's own classes its record; goes in the class's .cpp. */
#define IMPLEMENT_LAYER_CLASS_FLAGS(TClass, InName, InFlags)                                                           \
	UClass* TClass::StaticClass()                                                                                      \
	{                                                                                                                  \
		static UClass* Class = nullptr;                                                                                \
		static const UECodeGen_Private::FClassParams Params{InName,                                                    \
															#TClass,                                                   \
															&TClass::Super::StaticClass,                               \
															CLASS_Native | (InFlags),                                  \
															sizeof(TClass),                                            \
															alignof(TClass),                                           \
															&InternalConstructor<TClass>,                              \
															nullptr,                                                   \
															0,                                                         \
															nullptr,                                                   \
															0,                                                         \
															{}};                                                       \
		return UECodeGen_Private::ConstructUClass(Class, Params);                                                      \
	}
#define IMPLEMENT_LAYER_CLASS(TClass, InName) IMPLEMENT_LAYER_CLASS_FLAGS(TClass, InName, CLASS_None)
