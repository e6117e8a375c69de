#pragma once

#include "CoreTypes.h"
#include "Files/ByteSource.h"
#include "Formats/CommentFormat.h"
#include "Formats/ServiceComment.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace Flitmark
{

/** One thing that was wrong with a file, and where. */
struct FImportFault
{
	/** From 1; 0 if the format has no lines. */
	uint64 Line = 0;

	/** The entry, from 1; 0 if it is not about a single one. */
	uint64 Index = 0;

	std::string Reason;
};

/** Entries of one sort that are nothing for viewers. */
struct FSkippedEntries
{
	/** For people, in the plural, such as "service commands". */
	std::string What;
	uint64 Num = 0;
};

/** How reading a file went. Every entry is either read, broken or skipped. */
struct FImportReport
{
	/** How many faults are reported in full. */
	static constexpr std::size_t MaxFaults = 20;

	/** How many sorts of skipped entries are told apart: a file may make up as many as it likes. */
	static constexpr std::size_t MaxSkippedSorts = 20;

	static constexpr std::size_t NumKinds = static_cast<std::size_t>(ECommentKind::Unknown) + 1;

	/** Null if it is not known. */
	const FCommentFormat* Format = nullptr;

	/** Entries that were found. */
	uint64 NumEntries = 0;

	/** Entries that became comments. */
	uint64 NumRead = 0;

	/** Entries that could not be read, and are lost. */
	uint64 NumBroken = 0;

	/** Entries that were damaged, but whose time and text could be read; they count as read, too. */
	uint64 NumRepaired = 0;

	/** Entries that are nothing for viewers, such as commands to the service, by sort, in the order of their first. */
	std::vector<FSkippedEntries> Skipped;

	uint64 CountSkipped() const;

	/** Pictures within texts of which only the names are shown. */
	uint64 NumEmotes = 0;

	/** Of those read, by ECommentKind. */
	std::array<uint64, NumKinds> NumOfKind{};

	/** The first MaxFaults, in the file's order. */
	std::vector<FImportFault> Faults;

	/** About the file as a whole, such as a wrong encoding or an early end. */
	std::vector<std::string> Warnings;
};

struct FImportResult
{
	/** In the file's order. */
	std::vector<FServiceComment> Comments;
	FImportReport Report;
};

/**
 * Reads all comments of a file; needs no more memory than they do. False with OutError if the file cannot be read or its
 * format is not known; broken entries are in the report and no reason to fail.
 */
bool ImportComments(const std::filesystem::path& InPath, FImportResult& OutResult, std::string& OutError);

/** The same from any source of bytes. */
bool ImportComments(IByteSource& InSource, FImportResult& OutResult, std::string& OutError);

} // namespace Flitmark
