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
	void BeginObject(std::string_view Key = {}) { Open('{', Key); }
	void EndObject() { Close('}'); }
	void BeginArray(std::string_view Key = {}) { Open('[', Key); }
	void EndArray() { Close(']'); }

	/** Without a key: an element of an array. */
	void Add(std::string_view Key, int64 Value);
	void Add(std::string_view Key, int32 Value) { Add(Key, static_cast<int64>(Value)); }
	void Add(std::string_view Key, float Value);
	void Add(std::string_view Key, double Value);
	void Add(std::string_view Key, bool bValue);
	void Add(std::string_view Key, const FString& Value);
	void Add(std::string_view Key, std::string_view Value);

	/** The text so far. */
	const std::string& GetText() const { return Text; }
	void Clear();

private:
	void Open(char Bracket, std::string_view Key);
	void Close(char Bracket);
	void Begin(std::string_view Key);
	template <class T>
	void AddFloating(std::string_view Key, T Value);

	std::string Text;
	bool bNeedsComma = false;
};

} // namespace Flitmark
