#pragma once

#include "JsonSchema.h"

#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** Reads one JSON value, an entry, from the start of a text that may continue after it or end inside it. */
class FJsonValueReader
{
public:
	enum class EOutcome
	{
		Whole,
		/** The text ends inside it. */
		Cut,
		/** It is not JSON. */
		Damaged
	};

	struct FRead
	{
		EOutcome Outcome = EOutcome::Whole;
		/** Where it ends, or where it stops being JSON. */
		std::size_t End = 0;
		/** For people; null if nothing is wrong except that it may continue. */
		const char* Reason = nullptr;
		/** Only the contents of a string are wrong. */
		bool bInString = false;
	};

	FJsonValueReader();
	~FJsonValueReader();
	FJsonValueReader(const FJsonValueReader&) = delete;
	FJsonValueReader& operator=(const FJsonValueReader&) = delete;

	/**
	 * Passes the value's fields to the schema. A NUL must follow the text. Comments, trailing commas and numbers like NaN
	 * pass, too.
	 */
	FRead Read(std::string_view InText, IJsonSchema& OutSchema);

private:
	struct FImplementation;
	std::unique_ptr<FImplementation> Implementation;
};

} // namespace Flitmark
