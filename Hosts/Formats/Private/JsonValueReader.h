#pragma once

#include "JsonSchema.h"

#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** Reads one JSON value, an entry, from the start of a text that may go on behind it or break off in it. */
class FJsonValueReader
{
public:
	enum class EOutcome
	{
		Whole,
		/** The text ends in it. */
		Cut,
		/** It is no JSON. */
		Damaged
	};

	struct FRead
	{
		EOutcome Outcome = EOutcome::Whole;
		/** Where it ends, or where it stops being JSON. */
		std::size_t End = 0;
		/** For people; null where nothing is wrong but that it may go on. */
		const char* Reason = nullptr;
		/** It is only in what strings may hold that it is no JSON. */
		bool bInString = false;
	};

	FJsonValueReader();
	~FJsonValueReader();
	FJsonValueReader(const FJsonValueReader&) = delete;
	FJsonValueReader& operator=(const FJsonValueReader&) = delete;

	/**
	 * Hands the value's fields to the form. A NUL has to stand behind the text. Strict takes only what every reader
	 * takes; otherwise comments, commas at a list's end and numbers like NaN pass, too.
	 */
	FRead Read(std::string_view InText, IJsonSchema& OutSchema, bool bInStrict);

private:
	struct FImplementation;
	std::unique_ptr<FImplementation> Implementation;
};

} // namespace Flitmark
