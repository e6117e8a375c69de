#pragma once

#include "ByteWindow.h"
#include "ImportSink.h"
#include "JsonSchema.h"
#include "JsonValueReader.h"

#include <string>
#include <vector>

namespace Flitmark
{

/**
 * Finds the entries of a schema anywhere in a JSON text, and picks up again after damaged ones. Only one entry at a time
 * is parsed, so texts may be of any size; what is around the entries is never checked.
 */
class FJsonEntries
{
public:
	FJsonEntries(IByteSource& InSource, IJsonSchema& InSchema, FImportSink& OutSink)
		: Window(InSource)
		, Schema(InSchema)
		, Sink(OutSink)
	{
	}

	void ReadAll();

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
	void SkipLongString();
	void OnScalar();
	void ReportStray();

	bool IsEntryHere();
	bool IsRow(std::size_t InOffset) const;
	bool IsEntryObject(std::size_t InOffset, std::size_t InSize) const;
	bool IsInList() const { return !Levels.empty() && Levels.back().bList; }
	bool IsAmongEntries() const { return IsInList() && Levels.back().bHasEntries; }

	void ReadEntry();
	FJsonValueReader::FRead ReadValue();
	void AddEntry(std::size_t InSize);
	bool SettleEntry(std::size_t InSize);
	bool SettlePart(std::size_t InSize);
	void OnDamage(const FJsonValueReader::FRead& InRead);
	bool ReadRepaired();
	void SkipToNextEntry();
	bool MayGrow() const;

	FByteWindow Window;
	IJsonSchema& Schema;
	FImportSink& Sink;
	FJsonValueReader Reader;
	std::string Repaired;

	std::vector<FLevel> Levels;
	bool bAfterColon = false;

	/** Something else among the entries was reported already. */
	bool bReportedStray = false;

	/** No further entry was found after damage. */
	bool bGaveUp = false;
};

} // namespace Flitmark
