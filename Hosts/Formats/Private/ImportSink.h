#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** Collects what a format reads. */
class FImportSink
{
public:
	FImportSink(FImportResult& InResult, uint64 InFileSize)
		: Result(InResult)
		, FileSize(InFileSize)
	{
	}

	/** An entry was found; one of the next three says what became of it. */
	void BeginEntry() { ++Result.Report.NumEntries; }

	/** It became a comment; InOffset is where it ends in the file. */
	void Add(FServiceComment&& InComment, uint64 InOffset);

	/** It is lost. */
	void AddBroken(uint64 InLine, std::string InReason);

	/** It is nothing for viewers. InWhat: what such entries are; see FSkippedEntries. */
	void AddSkipped(std::string_view InWhat);

	/** The entry added last was damaged, but could be read. */
	void AddRepaired(uint64 InLine, std::string InReason);

	/** The next entry added has so many pictures that became their names. */
	void AddEmotes(uint64 InNum) { Result.Report.NumEmotes += InNum; }

	/** All that was added. */
	std::vector<FServiceComment>& GetComments() { return Result.Comments; }

	void AddWarning(std::string InText) { Result.Report.Warnings.push_back(std::move(InText)); }

private:
	void AddFault(uint64 InLine, std::string&& InReason);
	void Reserve(uint64 InOffset);

	FImportResult& Result;
	uint64 FileSize;
};

} // namespace Flitmark
