#pragma once

#include "Containers/UnrealString.h"

#include <string>

/**
 * Reads the text both by our reader and by RapidJSON alone, which sees every character, and compares verdict and
 * values; empty if they agree, else what differs. Texts that RapidJSON refuses and we don't (numbers beyond a double,
 * half surrogate pairs) are only read.
 */
std::string CompareWithReference(const FString& Text);
