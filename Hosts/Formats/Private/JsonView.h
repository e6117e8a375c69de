#pragma once

#include <cstddef>
#include <string_view>

namespace Flitmark
{

/**
 * A look at a value of a JSON tree, which must stay. Any question may be asked: what is not there is empty, and so is all
 * that is asked of it.
 */
class FJsonView
{
public:
	FJsonView() = default;
	/** InValue: a RapidJSON value. */
	explicit FJsonView(const void* InValue)
		: Value(InValue)
	{
	}

	/** False also for null. */
	bool IsThere() const;
	bool IsObject() const;
	bool IsList() const;
	bool IsTrue() const;

	/** A string, or a number as it is written. */
	std::string_view GetText() const;

	/** An object's member. */
	FJsonView operator[](std::string_view InName) const;

	/** A list's elements. */
	std::size_t Num() const;
	FJsonView At(std::size_t InIndex) const;

private:
	const void* Value = nullptr;
};

} // namespace Flitmark
