#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "CoreTypes.h"

#include <memory>
#include <utility>

class FFormatArgumentValue;
class FTextFormat;
typedef TArray<FFormatArgumentValue> FFormatOrderedArguments;

/** The source of an FText's string. */
class ENGINELAYER_API ITextData
{
public:
	virtual ~ITextData() = default;

	/** In the current culture; the reference is valid until the culture or its translations change. */
	virtual const FString& GetDisplayString() = 0;
};

/** A text shown to people. Copies share the string. */
class ENGINELAYER_API FText
{
public:
	FText() = default;
	static FText FromString(const FString& InString) { return FromString(FString(InString)); }
	static FText FromString(FString&& InString);
	static FText GetEmpty() { return FText(); }

	/** A text identified by namespace and key; reads as its source where the culture has no translation. */
	static FText AsLocalizable_Advanced(const TCHAR* InNamespace, const TCHAR* InKey, const TCHAR* InString);

	/** A number's digits, grouped as in the current culture. */
	static FText AsNumber(int32 Val) { return AsNumber(static_cast<int64>(Val)); }
	static FText AsNumber(int64 Val);

	/**
	 * The format with "{0}", "{1}" replaced by the arguments; a placeholder without an argument stays as written. A
	 * backtick escapes the brace or backtick after it. Formatted again when the culture changes.
	 */
	static FText Format(FTextFormat Fmt, const FFormatOrderedArguments& InArguments);
	template <class... ArgumentTypes>
	static FText Format(FTextFormat Fmt, ArgumentTypes... Arguments);

	/** In the current culture; the reference is valid until the text is destroyed or the culture changes. */
	const FString& ToString() const;
	bool IsEmpty() const { return ToString().IsEmpty(); }
	/** True for an empty text and for one with nothing but Unicode white space. */
	bool IsEmptyOrWhitespace() const;

private:
	explicit FText(std::shared_ptr<ITextData> InData)
		: Data(std::move(InData))
	{
	}

	/** Null: empty. */
	std::shared_ptr<ITextData> Data;
};

/** A text to be formatted. */
class FTextFormat
{
public:
	FTextFormat(const FText& InText)
		: Text(InText)
	{
	}
	static FTextFormat FromString(const FString& InString) { return FTextFormat(FText::FromString(InString)); }

	const FText& GetSourceText() const { return Text; }

private:
	FText Text;
};

/** The value for a placeholder: a text, or a number, which is written as by FText::AsNumber. */
class FFormatArgumentValue
{
public:
	FFormatArgumentValue(const int32 Value)
		: Text(FText::AsNumber(Value))
	{
	}
	FFormatArgumentValue(const int64 Value)
		: Text(FText::AsNumber(Value))
	{
	}
	FFormatArgumentValue(const FText& Value)
		: Text(Value)
	{
	}

	const FText& GetTextValue() const { return Text; }

private:
	FText Text;
};

template <class... ArgumentTypes>
FText FText::Format(FTextFormat Fmt, ArgumentTypes... Arguments)
{
	return Format(std::move(Fmt), FFormatOrderedArguments{FFormatArgumentValue(std::move(Arguments))...});
}

#define NSLOCTEXT(InNamespace, InKey, InTextLiteral)                                                                   \
	FText::AsLocalizable_Advanced(TEXT(InNamespace), TEXT(InKey), TEXT(InTextLiteral))
/** A source file defines LOCTEXT_NAMESPACE before it uses this, and undefines it at its end. */
#define LOCTEXT(InKey, InTextLiteral) NSLOCTEXT(LOCTEXT_NAMESPACE, InKey, InTextLiteral)
