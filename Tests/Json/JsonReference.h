#pragma once

#include "Containers/UnrealString.h"

#include <string>

/**
 * Reads the text with our reader and with plain RapidJSON, which sees every character, and compares verdicts and
 * values; empty if they agree, else what differs. Texts that only RapidJSON refuses (numbers beyond a double, half
 * surrogate pairs) are read but not compared.
 */
std::string CompareWithReference(const FString& Text);
