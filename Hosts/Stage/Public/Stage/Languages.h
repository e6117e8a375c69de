#pragma once

#include "CoreMinimal.h"

namespace Flitmark
{

/**
 * Registers the translations of the module's own English texts (Chinese and Japanese) and picks the language. InCulture:
 * a language tag such as "ja-JP", or a locale's name such as "ja_JP.UTF-8". False where there is no translation; texts
 * are then shown in English.
 */
bool UseLanguage(const FString& InCulture);

} // namespace Flitmark
