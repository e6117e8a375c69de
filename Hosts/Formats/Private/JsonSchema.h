#pragma once

#include "CoreTypes.h"
#include "Formats/FieldValues.h"
#include "Formats/ServiceComment.h"
#include "JsonView.h"

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string_view>

namespace Flitmark
{

enum class EJsonValue : uint8
{
	Null,
	Boolean,
	Number,
	String
};

/** How comments are written in one JSON format: takes an entry's values one by one and makes a comment of them. */
class IJsonSchema
{
public:
	/** A value of an entry. */
	struct FField
	{
		/** The member's name, or that of the list it stands in; empty in an entry that is a list itself. */
		std::string_view Key;
		/** Its index in an entry that is a list itself. */
		std::size_t Index = 0;
		EJsonValue Type = EJsonValue::Null;
		/** It stands in a list that is the member's value. */
		bool bInList = false;
		/** A string's text, a number as it is written, "true" or "false". */
		std::string_view Text;

		/** Whether it can be read as a text. */
		bool IsText() const { return Type == EJsonValue::String || Type == EJsonValue::Number; }
	};

	IJsonSchema() = default;
	virtual ~IJsonSchema() = default;
	IJsonSchema(const IJsonSchema&) = delete;
	IJsonSchema& operator=(const IJsonSchema&) = delete;

	void Begin()
	{
		Comment = FServiceComment();
		Skipped = {};
		NumEmotes = 0;
		bHasTime = false;
		Restart();
	}

	virtual void OnField(const FField& InField) = 0;

	/** Whether it takes an entry as a whole, by OnTree, rather than its fields. */
	virtual bool WantsTree() const { return false; }

	/** An entry that is whole. The tree stays until the next Begin. */
	virtual void OnTree(FJsonView) {}

	/** Called after the last field: why the entry is not a comment, or null if Comment is one. */
	virtual const char* Finish() = 0;

	/** Moves on to the entry's next comment, for Finish; false if it has no more. */
	virtual bool NextPart() { return false; }

	/** Whether an object that has this member is an entry, rather than something that contains entries. */
	virtual bool IsEntryKey(std::string_view InKey, char InValueStart) const = 0;

	/** Whether entries are lists. */
	virtual bool HasListEntries() const { return false; }

	/** Whether other objects in a list of entries are damaged entries, rather than something else that belongs there. */
	virtual bool StandsAlone() const { return true; }

	/** What was read since Begin. */
	FServiceComment Comment;

	/** Set by Finish where the entry is nothing for viewers: what such entries are; see FSkippedEntries. */
	std::string_view Skipped;

	/** How many pictures in its text stand there as their names. */
	uint64 NumEmotes = 0;

protected:
	/** Resets what a schema keeps besides the comment. */
	virtual void Restart() {}

	void SetTime(std::string_view InText, ETimeUnit InUnit);

	static bool IsOneOf(std::string_view InKey, std::initializer_list<std::string_view> InKeys)
	{
		return std::find(InKeys.begin(), InKeys.end(), InKey) != InKeys.end();
	}

	static bool IsScalar(char InValueStart) { return InValueStart != '{' && InValueStart != '['; }

	/** Cleans the text; why the entry is not a comment if time or text are missing. */
	const char* FinishText();

	bool bHasTime = false;
};

} // namespace Flitmark
