#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

struct FFileHelper
{
	/**
	 * A text file's bytes as a string: UTF-16 in either byte order with a byte order mark, else UTF-8 with or without
	 * one. Invalid UTF-8 becomes U+FFFD. Size: in bytes.
	 */
	static ENGINELAYER_API void BufferToString(FString& Result, const uint8* Buffer, int32 Size);

	/** Reads a whole text file as BufferToString does; false, with Result untouched, if it can't be read. */
	static ENGINELAYER_API bool LoadFileToString(FString& Result, const TCHAR* Filename);
};
