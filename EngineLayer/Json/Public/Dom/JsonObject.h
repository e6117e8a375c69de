#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "CoreTypes.h"
#include "Templates/SharedPointer.h"

class FJsonValue;
struct FJsonValueBlock;

/**
 * The members of a JSON object: a light view on the document, kept alive by any pointer to it. Names are looked up
 * regardless of the case of ASCII letters; where names repeat, the last one holds. The Get functions give an empty
 * value where the member is missing or can't be read as the type asked for; the TryGet functions return false then and
 * leave the output untouched. What converts into what is told at FJsonValue.
 *
 * A document is read by one thread at a time: look-ups remember where they found what.
 */
class FJsonObject
{
public:
	/** An object without members. */
	FJsonObject() = default;

	ENGINELAYER_API bool HasField(FStringView FieldName) const;
	/** The member's value; empty if there is none. */
	ENGINELAYER_API TSharedPtr<FJsonValue> TryGetField(FStringView FieldName) const;

	ENGINELAYER_API double GetNumberField(FStringView FieldName) const;
	ENGINELAYER_API bool TryGetNumberField(FStringView FieldName, double& OutNumber) const;
	ENGINELAYER_API bool TryGetNumberField(FStringView FieldName, int64& OutNumber) const;

	ENGINELAYER_API FString GetStringField(FStringView FieldName) const;
	ENGINELAYER_API bool TryGetStringField(FStringView FieldName, FString& OutString) const;

	ENGINELAYER_API TArray<TSharedPtr<FJsonValue>> GetArrayField(FStringView FieldName) const;
	/** An object without members if there is none. */
	ENGINELAYER_API TSharedPtr<FJsonObject> GetObjectField(FStringView FieldName) const;

private:
	friend class FJsonValue;
	friend struct FJsonValueBlock;
	FJsonObject(FJsonValueBlock* InBlock, uint32 InWord)
		: Block(InBlock)
		, Word(InWord)
	{
	}
	/** The tape word of the member's value; 0 if there is none. */
	uint32 Find(FStringView FieldName) const;
	/** The member's value, of type None if there is none; for immediate use only. */
	FJsonValue GetField(FStringView FieldName) const;

	FJsonValueBlock* Block = nullptr;
	/** The value's position on the document's tape. */
	uint32 Word = 0;
};
