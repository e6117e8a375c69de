#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

struct FFileHelper
{
	/**
	 * A text file's bytes as a string: UTF-16 of either byte order with its mark, else UTF-8 with or without one.
	 * Wrong UTF-8 becomes U+FFFD. Size: in bytes.
	 */
	static ENGINELAYER_API void BufferToString(FString& Result, const uint8* Buffer, int32 Size);

	/** Reads a whole text file as BufferToString does; false with Result untouched where it can't be read. */
	static ENGINELAYER_API bool LoadFileToString(FString& Result, const TCHAR* Filename);
};
