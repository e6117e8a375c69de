#pragma once

#include "CoreMinimal.h"

namespace Flitmark
{

/**
 * Brings the translations of the texts that the module shows (Chinese and Japanese; they are written in English) and
 * chooses the language. InCulture: a language tag such as "ja-JP", or a locale's name such as "ja_JP.UTF-8". False where
 * the hosts do not speak the language; texts are then shown in English.
 */
bool UseLanguage(const FString& InCulture);

} // namespace Flitmark
