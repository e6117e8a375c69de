#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

namespace Flitmark
{

/** Gathers what an importer finds. */
class FImportSink
{
public:
	FImportSink(FImportResult& InResult, uint64 InFileSize)
		: Result(InResult)
		, FileSize(InFileSize)
	{
	}

	/** A next entry that became a comment; InOffset is where in the file it ends. */
	void Add(FServiceComment&& InComment, uint64 InOffset);

	/** A next entry that is lost. */
	void AddBroken(uint64 InLine, std::string InReason);

	/** Something was wrong with the entry that was added last, but it was read. */
	void AddRepaired(uint64 InLine, std::string InReason);

	void AddWarning(std::string InText) { Result.Report.Warnings.push_back(std::move(InText)); }

private:
	void AddFault(uint64 InLine, std::string&& InReason);
	void Reserve(uint64 InOffset);

	FImportResult& Result;
	uint64 FileSize;
};

} // namespace Flitmark
