#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

/**
 * A name in the process-wide table: compared by index, ignoring the case of ASCII letters. A trailing number
 * ("Node_12") is stored apart from the text, so numbering objects creates no strings.
 */
class ENGINELAYER_API FName
{
public:
	constexpr FName() = default;
	FName(const TCHAR* InText);
	explicit FName(FStringView InText);
	/** Base's text followed by "_Number". */
	constexpr FName(FName InBase, int32 InNumber)
		: Index(InBase.Index)
		, Number(InNumber + 1)
	{
	}

	bool IsNone() const { return Index == 0 && Number == 0; }
	FString ToString() const;
	/** The text without its number. */
	FName GetPlainName() const { return FName(Index, 0, FInternal()); }

	friend constexpr bool operator==(FName A, FName B) { return A.Index == B.Index && A.Number == B.Number; }
	friend uint32 GetTypeHash(FName Name)
	{
		return static_cast<uint32>(Name.Index) * 31u + static_cast<uint32>(Name.Number);
	}

private:
	struct FInternal
	{
	};
	constexpr FName(int32 InIndex, int32 InNumber, FInternal)
		: Index(InIndex)
		, Number(InNumber)
	{
	}

	/** Index in the table; 0 is "None". */
	int32 Index = 0;
	/** The number plus 1; 0 for no number. */
	int32 Number = 0;
};

constexpr FName NAME_None;
