#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

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

/** One shape of comments in JSON: takes an entry's values one by one and makes a comment of them. */
class IJsonForm
{
public:
	/** A value of an entry. */
	struct FField
	{
		/** The member's name, or that of the list it stands in; empty in an entry that is a list itself. */
		std::string_view Key;
		/** Its place in an entry that is a list itself. */
		std::size_t Index = 0;
		EJsonValue Type = EJsonValue::Null;
		/** It stands in a list that is the member's value. */
		bool bInList = false;
		/** A string's text, a number as it is written, "true" or "false". */
		std::string_view Text;

		/** Whether there is anything that a text can be read from. */
		bool IsText() const { return Type == EJsonValue::String || Type == EJsonValue::Number; }
	};

	IJsonForm() = default;
	virtual ~IJsonForm() = default;
	IJsonForm(const IJsonForm&) = delete;
	IJsonForm& operator=(const IJsonForm&) = delete;

	void Begin()
	{
		Comment = FServiceComment();
		bHasTime = false;
		Restart();
	}

	virtual void OnField(const FField& InField) = 0;

	/** To be asked when the entry is through: why it is no comment, or null where Comment is one. */
	virtual const char* Finish() = 0;

	/** Whether an object that has this member is an entry, and does not just hold some. */
	virtual bool IsEntryKey(std::string_view InKey, char InValueStart) const = 0;

	/** Whether entries are lists. */
	virtual bool HasListEntries() const { return false; }

	/** Whether what stands beside entries in a list and has none of their members is damaged, and not just something else. */
	virtual bool StandsAlone() const { return true; }

	/** The one list that holds the entries, and keeps each as it is written; empty where they may be anywhere. */
	virtual std::string_view GetListName() const { return {}; }

	/** What was read since Begin. */
	FServiceComment Comment;

protected:
	/** Forgets what is kept beside the comment. */
	virtual void Restart() {}

	void SetTime(std::string_view InText, double InTicksPerUnit);

	/** Cleans the text; why the entry is no comment where time or text are missing. */
	const char* FinishText();

	bool bHasTime = false;
};

std::unique_ptr<IJsonForm> MakeParametersForm();
std::unique_ptr<IJsonForm> MakeRowsForm();
std::unique_ptr<IJsonForm> MakeChatForm();
std::unique_ptr<IJsonForm> MakeObjectsForm();

/** Of our own document. */
std::unique_ptr<IJsonForm> MakeOwnForm();

} // namespace Flitmark
