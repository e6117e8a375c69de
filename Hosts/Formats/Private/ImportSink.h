#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

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

	/** The next entry, which became a comment; InOffset is where it ends in the file. */
	void Add(FServiceComment&& InComment, uint64 InOffset);

	/** The next entry, which is lost. */
	void AddBroken(uint64 InLine, std::string InReason);

	/** The entry added last was damaged, but could be read. */
	void AddRepaired(uint64 InLine, std::string InReason);

	void AddWarning(std::string InText) { Result.Report.Warnings.push_back(std::move(InText)); }

private:
	void AddFault(uint64 InLine, std::string&& InReason);
	void Reserve(uint64 InOffset);

	FImportResult& Result;
	uint64 FileSize;
};

} // namespace Flitmark
