#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

#include <map>
#include <string>

/** A text's translations. */
class FPolyglotTextData
{
public:
	FPolyglotTextData(const FString& InNamespace, const FString& InKey, const FString& InNativeString)
		: Namespace(InNamespace)
		, Key(InKey)
		, NativeString(InNativeString)
	{
	}

	const FString& GetNamespace() const { return Namespace; }
	const FString& GetKey() const { return Key; }
	/** The source text that was translated. */
	const FString& GetNativeString() const { return NativeString; }

	/** InCulture: covers the cultures below it too: "zh" also covers "zh-Hant-TW". */
	void AddLocalizedString(const FString& InCulture, const FString& InLocalizedString)
	{
		LocalizedStrings.insert_or_assign(InCulture.GetStd(), InLocalizedString);
	}
	const std::map<std::u16string, FString>& GetLocalizedStrings() const { return LocalizedStrings; }

private:
	FString Namespace;
	FString Key;
	FString NativeString;
	std::map<std::u16string, FString> LocalizedStrings;
};
