#pragma once

#include "Containers/Array.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Templates/SharedPointer.h"

/**
 * Reads one JSON value, an object or an array, that makes up the whole text (RFC 8259). Half surrogate pairs, escaped
 * or not, stay as they are. Returns false with the output untouched for any other text; the reader then tells place and
 * reason. Neither depth nor size of the text endangers the stack; memory grows linearly with the text.
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
