#pragma once

#include "CoreMinimal.h"

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * Writes one JSON text: members in the order in which they are given, numbers in the shortest form that reads back to
 * the same value of their type, half of a surrogate pair as an escape.
 */
class FJsonLine
{
public:
	void BeginObject(std::string_view InKey = {}) { Open('{', InKey); }
	void EndObject() { Close('}'); }
	void BeginArray(std::string_view InKey = {}) { Open('[', InKey); }
	void EndArray() { Close(']'); }

	/** Without a key: an element of an array. */
	void Add(std::string_view InKey, int64 InValue);
	void Add(std::string_view InKey, int32 InValue) { Add(InKey, static_cast<int64>(InValue)); }
	void Add(std::string_view InKey, float InValue);
	void Add(std::string_view InKey, double InValue);
	void Add(std::string_view InKey, bool bInValue);
	void Add(std::string_view InKey, const FString& InValue);
	void Add(std::string_view InKey, std::string_view InValue);

	/** The text so far. */
	const std::string& GetText() const { return Text; }
	void Clear();

private:
	void Open(char InBracket, std::string_view InKey);
	void Close(char InBracket);
	void Begin(std::string_view InKey);
	template <class T>
	void AddFloating(std::string_view InKey, T InValue);

	std::string Text;
	bool bNeedsComma = false;
};

} // namespace Flitmark
