#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

/** The culture in which texts are shown. Game thread. */
class ENGINELAYER_API FInternationalization
{
public:
	static FInternationalization& Get();

	/**
	 * InCultureName: a language tag with "-" between its parts, such as "en-US" or "zh-Hant-TW". False, and nothing
	 * changes, for a language whose numbers the layer does not know how to write.
	 */
	bool SetCurrentCulture(const FString& InCultureName);
	/** "en-US" by default. */
	const FString& GetCurrentCultureName() const { return CultureName; }
	/** Separates a number's groups of three digits. */
	TCHAR GetGroupSeparator() const { return GroupSeparator; }

private:
	FString CultureName{TEXT("en-US")};
	TCHAR GroupSeparator = u',';
};
