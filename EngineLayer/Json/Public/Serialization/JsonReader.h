#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"
#include "Templates/SharedPointer.h"

#include <memory>
#include <utility>

template <class CharType = TCHAR>
class TJsonReaderFactory;

/**
 * A JSON text to be read and, after a failure, where and why it failed. Unlike the engine's, it doesn't copy a text
 * that the caller keeps: the reader and the values refer to it, so it must stay unchanged for as long as they are used.
 * They keep a text that was moved in.
 */
template <class CharType = TCHAR>
class TJsonReader
{
public:
	/** Why the last read failed; empty if it didn't. */
	const FString& GetErrorMessage() const { return ErrorMessage; }
	/** Line of the failure, from 1. */
	uint32 GetLineNumber() const { return LineNumber; }
	/** Character (UTF-16 unit) of the failure in its line, from 1. */
	uint32 GetCharacterNumber() const { return CharacterNumber; }

private:
	friend class FJsonSerializer;
	friend class TJsonReaderFactory<CharType>;
	explicit TJsonReader(std::shared_ptr<const FString> InText)
		: Text(std::move(InText))
	{
	}

	std::shared_ptr<const FString> Text;
	FString ErrorMessage;
	uint32 LineNumber = 0;
	uint32 CharacterNumber = 0;
};

template <class CharType>
class TJsonReaderFactory
{
public:
	/** Refers to the text: see TJsonReader. */
	static TSharedRef<TJsonReader<CharType>> Create(const FString& JsonString)
	{
		return Make(std::shared_ptr<const FString>(std::shared_ptr<void>(), &JsonString));
	}
	/** Takes ownership of the text. */
	static TSharedRef<TJsonReader<CharType>> Create(FString&& JsonString)
	{
		return Make(std::make_shared<const FString>(std::move(JsonString)));
	}

private:
	static TSharedRef<TJsonReader<CharType>> Make(std::shared_ptr<const FString> Text)
	{
		using FReader = TJsonReader<CharType>;
		return TSharedRef<FReader>(std::shared_ptr<FReader>(new FReader(std::move(Text))));
	}
};
