#pragma once

#include "Dom/JsonObject.h"
#include "Serialization/JsonTypes.h"

/**
 * A JSON value: a light view on the document, kept alive by any pointer to it. It's converted when asked:
 * - to a number: numbers to the nearest double (infinity where they are too large), strings that are a plain decimal
 *   number (FString::IsNumeric), booleans as 0 and 1;
 * - to a string: strings as they are, numbers as decimal digits with six fractional ones at most, booleans as "true"
 *   and "false";
 * - nothing else converts.
 */
class FJsonValue
{
public:
	const EJson Type;

	/** 0 for what isn't a number. */
	ENGINELAYER_API double AsNumber() const;
	/** Empty for what isn't a string. */
	ENGINELAYER_API FString AsString() const;
	/** Empty for what isn't an array. */
	ENGINELAYER_API TArray<TSharedPtr<FJsonValue>> AsArray() const;
	/** An object without members for what isn't an object; never an empty pointer. */
	ENGINELAYER_API TSharedPtr<FJsonObject> AsObject() const;
	bool IsNull() const { return Type == EJson::Null; }

	/** These return false, with the output untouched, if the value doesn't convert. */
	ENGINELAYER_API bool TryGetNumber(double& OutNumber) const;
	/** For a number in int64's range, rounded to the nearest integer, halves away from zero. */
	ENGINELAYER_API bool TryGetNumber(int64& OutNumber) const;
	ENGINELAYER_API bool TryGetString(FString& OutString) const;

private:
	friend class FJsonObject;
	friend struct FJsonValueBlock;
	FJsonValue(EJson InType, FJsonValueBlock* InBlock, uint32 InWord)
		: Type(InType)
		, Members(InBlock, InWord)
	{
	}

	/** The value seen as an object; also records the value's position. */
	mutable FJsonObject Members;
};
