#pragma once

#include "CoreMinimal.h"

/** Strings as blueprints handle them. */
class UKismetStringLibrary
{
public:
	/** Length characters from StartIndex on, or what there is of them; empty for a negative length. */
	static FString GetSubstring(const FString& SourceString, int32 StartIndex = 0, int32 Length = 1)
	{
		return SourceString.Mid(StartIndex, Length);
	}
};
