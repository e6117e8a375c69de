#pragma once

#include "CommentImport.h"

namespace Flitmark
{

/** Gathers what an importer finds. */
class FImportSink
{
public:
	FImportSink(FImportResult& InResult, std::uint64_t InFileSize)
		: Result(InResult)
		, FileSize(InFileSize)
	{
	}

	/** A next entry that became a comment; InOffset is where in the file it ends. */
	void Add(FServiceComment&& InComment, std::uint64_t InOffset);

	/** A next entry that is lost. */
	void AddBroken(std::uint64_t InLine, std::string InReason);

	/** Something was wrong with the entry that was added last, but it was read. */
	void AddMended(std::uint64_t InLine, std::string InReason);

	void AddWarning(std::string InText) { Result.Report.Warnings.push_back(std::move(InText)); }

private:
	void AddFault(std::uint64_t InLine, std::string&& InReason);
	void Reserve(std::uint64_t InOffset);

	FImportResult& Result;
	std::uint64_t FileSize;
};

} // namespace Flitmark
