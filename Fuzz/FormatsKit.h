#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

#include <string_view>

namespace Flitmark
{

/** Reads bytes as each format of a syntax, and stops the program if the result breaks a promise. */
void ImportChecked(std::string_view InBytes, EFormatSyntax InSyntax);

/** What a result promises whatever the input: clean texts, and counts that add up. */
void CheckResult(const FImportResult& InResult);

/** Stops the program with a message where something that always holds does not. */
void Require(bool bInHolds, const char* InWhat);

inline std::string_view ToBytes(const uint8* InData, std::size_t InSize)
{
	return {reinterpret_cast<const char*>(InData), InSize};
}

} // namespace Flitmark
