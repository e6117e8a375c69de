#pragma once

#include "ByteWindow.h"
#include "ImportSink.h"
#include "JsonForm.h"
#include "JsonValueReader.h"

#include <string>
#include <vector>

namespace Flitmark
{

/**
 * Finds the entries of a form in a JSON text, wherever in it they are, and goes on behind those that are damaged. Only
 * one entry at a time is read as a whole, so texts may be of any size; what is around them is never checked.
 */
class FJsonEntries
{
public:
	FJsonEntries(IByteSource& InSource, IJsonForm& InForm, FImportSink& OutSink)
		: Window(InSource)
		, Form(InForm)
		, Sink(OutSink)
		, bKeepsSource(!InForm.GetListName().empty())
	{
	}

	void ReadAll();

	/** Whether the list that the form names was there. */
	bool HasFoundList() const { return bFoundList; }

private:
	/** An object or a list that is open. */
	struct FLevel
	{
		bool bList = false;
		bool bHasEntries = false;
	};

	void OnToken();
	void OnOpening();
	void OnClosing(bool bInList);
	void OnString();
	void OnScalar();
	void TellStray();

	bool IsEntryHere();
	bool IsRow(std::size_t InPlace) const;
	bool IsEntryObject(std::size_t InPlace, std::size_t InSize) const;
	bool IsInList() const { return !Levels.empty() && Levels.back().bList; }
	bool IsAmongEntries() const { return IsInList() && Levels.back().bHasEntries; }

	void ReadEntry();
	FJsonValueReader::FRead ReadValue(bool bInStrict);
	void AddEntry(std::string_view InSource, std::size_t InSize);
	void OnDamage(const FJsonValueReader::FRead& InRead);
	bool ReadMended();
	void SkipToNextEntry();
	bool MayGrow() const;

	FByteWindow Window;
	IJsonForm& Form;
	FImportSink& Sink;
	const bool bKeepsSource;
	FJsonValueReader Reader;
	std::string Mended;

	std::vector<FLevel> Levels;
	/** The string that was read last, a member's name where a colon follows. */
	std::string LastString;
	bool bAfterColon = false;
	bool bFoundList = false;

	/** What stands among the entries and is none was told already. */
	bool bToldStray = false;

	/** The rest was given up in search of an entry. */
	bool bGaveUp = false;
};

} // namespace Flitmark
