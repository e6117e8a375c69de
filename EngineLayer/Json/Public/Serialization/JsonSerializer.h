#pragma once

#include "Containers/Array.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Templates/SharedPointer.h"

/**
 * Reads a text that is one JSON object or array (RFC 8259). Half surrogate pairs, escaped or not, stay as they are.
 * Returns false, with the output untouched, for any other text; the reader then says where and why. The stack is safe
 * at any depth and size; memory grows linearly with the text.
 */
class FJsonSerializer
{
public:
	static ENGINELAYER_API bool Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader,
											TSharedPtr<FJsonValue>& OutValue);
	/** Also false for an array. */
	static ENGINELAYER_API bool Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader,
											TSharedPtr<FJsonObject>& OutObject);
	/** Also false for an object. */
	static ENGINELAYER_API bool Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader,
											TArray<TSharedPtr<FJsonValue>>& OutArray);
};
