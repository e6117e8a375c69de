#pragma once

#include "CoreTypes.h"
#include "Formats/ByteSource.h"
#include "Formats/ServiceComment.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** The forms in which comments are found, by shape; Docs/formats.md describes each. */
enum class ECommentFormat : uint8
{
	Unknown,
	/** `<d p="...">text</d>` */
	ListXml,
	/** The same as binary messages. */
	ListProtobuf,
	/** JSON objects with `p` or `c`, and `m`. */
	ParametersJson,
	/** JSON arrays of five values. */
	RowsJson,
	/** `<chat vpos="..." mail="...">text</chat>` */
	ChatXml,
	/** The same as JSON objects or lines. */
	ChatJson,
	/** JSON objects with `position` and `content`. */
	ObjectsJson,
	/** Our own document. */
	Own
};

/** For people, such as "XML list"; never empty. */
std::string_view ToText(ECommentFormat InFormat);

/** One thing that was wrong with a file, and where. */
struct FImportFault
{
	/** From 1; 0 where the format has no lines. */
	uint64 Line = 0;

	/** The entry, from 1; 0 where it is about no single one. */
	uint64 Index = 0;

	std::string Reason;
};

/** What became of a file. */
struct FImportReport
{
	/** How many faults are told in full. */
	static constexpr std::size_t MaxFaults = 20;

	static constexpr std::size_t NumKinds = static_cast<std::size_t>(ECommentKind::Unknown) + 1;

	ECommentFormat Format = ECommentFormat::Unknown;

	/** Entries that became comments. */
	uint64 NumRead = 0;

	/** Entries that could not be read, and are lost. */
	uint64 NumBroken = 0;

	/** Entries that were damaged, but of which time and text could be read; they count as read, too. */
	uint64 NumMended = 0;

	/** Of those read, by ECommentKind. */
	std::array<uint64, NumKinds> NumOfKind{};

	/** The first MaxFaults, in the file's order. */
	std::vector<FImportFault> Faults;

	/** What is about the whole file, such as a wrong encoding or an early end. */
	std::vector<std::string> Warnings;
};

struct FImportResult
{
	/** In the file's order. */
	std::vector<FServiceComment> Comments;
	FImportReport Report;
};

/**
 * Tells the format by a file's first bytes (64 KiB are plenty), never by its name. A JSON object that is nothing else
 * counts as our own document, for that needs no key at all; anything else that is not recognised is Unknown.
 */
ECommentFormat DetectFormat(std::string_view InHead);

/**
 * Reads all comments of a file; needs no more memory than they do. False with what is wrong where the file cannot be
 * read, or is in no known format; entries that are broken are in the report and no reason to fail.
 */
bool ImportComments(const std::filesystem::path& InPath, FImportResult& OutResult, std::string& OutError);

/** The same from any source of bytes. */
bool ImportComments(IByteSource& InSource, FImportResult& OutResult, std::string& OutError);

} // namespace Flitmark
