#pragma once

#include "CoreMinimal.h"

/** Strings as blueprints handle them. */
class UKismetStringLibrary
{
public:
	/** Up to Length characters from StartIndex; empty for a negative length. */
	static FString GetSubstring(const FString& SourceString, int32 StartIndex = 0, int32 Length = 1)
	{
		return SourceString.Mid(StartIndex, Length);
	}
};
