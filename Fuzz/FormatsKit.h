#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"
#include "FuzzKit.h"

#include <string_view>

namespace Flitmark
{

/** Reads bytes as each format of a syntax, and stops the program if the result breaks a promise. */
void ImportChecked(std::string_view InBytes, EFormatSyntax InSyntax);

/** What a report promises whatever the input: counts that add up. */
void CheckReport(const FImportReport& InReport);

/** What a result promises whatever the input: clean texts, and counts that add up. */
void CheckResult(const FImportResult& InResult);

} // namespace Flitmark
