#pragma once

#include "CoreTypes.h"

#include <string>
#include <string_view>
#include <utility>

namespace ESearchCase
{
enum Type
{
	CaseSensitive,
	IgnoreCase,
};
}

/** A view of UTF-16 characters that someone else owns. */
class ENGINELAYER_API FStringView : public std::u16string_view
{
public:
	using std::u16string_view::u16string_view;
	constexpr FStringView(std::u16string_view InView)
		: std::u16string_view(InView)
	{
	}

	int32 Len() const { return static_cast<int32>(size()); }
	bool IsEmpty() const { return empty(); }
	const TCHAR* GetData() const { return data(); }
	bool Equals(FStringView Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const;
};

/**
 * A UTF-16 string: a thin wrapper around the standard one. Lengths are in 16-bit code units. It may hold any code unit,
 * including NUL and half a surrogate pair.
 */
class ENGINELAYER_API FString
{
public:
	FString() = default;
	FString(const TCHAR* InText)
		: Data(InText != nullptr ? InText : u"")
	{
	}
	explicit FString(FStringView InText)
		: Data(InText)
	{
	}
	explicit FString(std::u16string InText)
		: Data(std::move(InText))
	{
	}

	FString(const FString&) = default;
	FString& operator=(const FString&) = default;
	/** Leaves an empty string behind. */
	FString(FString&& Other) noexcept
		: Data(std::move(Other.Data))
	{
		Other.Data.clear();
	}
	FString& operator=(FString&& Other) noexcept
	{
		if (this != &Other)
		{
			Data = std::move(Other.Data);
			Other.Data.clear();
		}
		return *this;
	}

	int32 Len() const { return static_cast<int32>(Data.size()); }
	bool IsEmpty() const { return Data.empty(); }
	const TCHAR* operator*() const { return Data.c_str(); }
	TCHAR operator[](int32 Index) const { return Data[static_cast<std::size_t>(Index)]; }
	operator FStringView() const { return FStringView(std::u16string_view(Data)); }

	/** The underlying standard string, for the layer and the hosts. */
	const std::u16string& GetStd() const { return Data; }

	FString& operator+=(FStringView Other)
	{
		Data.append(Other);
		return *this;
	}
	FString& operator+=(TCHAR Character)
	{
		Data.push_back(Character);
		return *this;
	}
	FString& AppendChar(TCHAR Character) { return *this += Character; }

	FString Left(int32 Count) const { return Mid(0, Count); }
	FString Mid(int32 Start, int32 Count = MAX_int32) const;
	/** The string without its first Count characters. */
	FString RightChop(int32 Count) const { return Mid(Count > 0 ? Count : 0); }
	/** Uppercases ASCII letters; others stay. */
	FString ToUpper() const;

	bool Equals(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const
	{
		return FStringView(*this).Equals(Other, SearchCase);
	}

	/** A number in decimal digits. */
	static FString FromInt(int32 Number);
	/** What the engine reads as a number: not empty, an optional sign, digits, and at most one dot. */
	bool IsNumeric() const;

	/** As the engine compares strings: ignores the case of ASCII letters. */
	friend bool operator==(const FString& A, const FString& B) { return A.Equals(B, ESearchCase::IgnoreCase); }
	friend FString operator+(FString A, FStringView B)
	{
		A += B;
		return A;
	}

private:
	std::u16string Data;
};
