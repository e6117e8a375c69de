#pragma once

#include "Formats/CommentDocument.h"
#include "Filtering/CommentFilter.h"
#include "Comments/CommentsReport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** What is done to comments between the file and the overlay. */
struct FCommentsOptions
{
	FKindPolicy Kinds;

	/** May be null. */
	const FCommentFilter* Filter = nullptr;

	/** Whether the overlay will be handed the text; other formats are not written as a document without need. */
	bool bWithText = true;
};

/** Names standard input where a file is asked for. */
constexpr std::string_view StandardInput = "-";

/** One file as it was read, in whatever format it is. */
struct FCommentsInput
{
	FCommentsReport Report;

	/** What the file is instead, for people, if it can be no comments at all; empty for others. */
	std::string Foreign;

	/** The whole file, unpacked, if it may be our own document; its beginning if it is foreign. */
	std::optional<std::string> Bytes;

	/** Of Bytes, once ReadDocument read them. */
	std::optional<FString> Text;
	FCommentDocument Document;

	/**
	 * Comments of kinds that the overlay serves; those of other formats are ordered by time. Our own document's are only
	 * read by ImportOwn.
	 */
	std::vector<FServiceComment> Comments;

	/** InPath: a file, or StandardInput. Empty with OutError set where it cannot be read. A file in no known format is not refused here. */
	static std::optional<FCommentsInput> Read(const std::string& InPath, const FKindPolicy& InKinds,
											  std::string& OutError);

	/** Reads Bytes as our own document, unless that was done; false with OutError set if they are not one. */
	bool ReadDocument(std::string& OutError, bool bInKeepBytes = true);

	/** Why ReadDocument failed; nothing if it did not. */
	std::optional<FDocumentFault> GetFault() const;

	/** ReadDocument, and its comments into Comments; the text goes. */
	bool ImportOwn(std::string& OutError);
};

/** A file's comments, ready for the overlay. */
struct FCommentsFile
{
	/** What the overlay is handed: our own document as it is, or a document written in memory. */
	FString Text;
	FCommentDocument Document;
	FCommentsReport Report;
	/** One a rule of the filter. */
	std::vector<FFilterRule> Rules;

	/** For people, a line each: what was lost, and what the filter took. */
	std::vector<std::string> MakeNotes() const;
};

/** "FILE:LINE:COLUMN: what is wrong" of a text that is no comment document. InText: the file's. */
std::string DescribeFault(const std::string& InPath, const FString& InText, const FDocumentFault& InFault);

/**
 * Comments of any format, ready for the overlay: our own document without a filter byte for byte, everything else as a
 * document that is written in memory. Empty with OutError set where the file cannot be read or has no comments; with
 * OutFault set too where it was read, and is no comment document.
 */
std::optional<FCommentsFile> LoadComments(const std::string& InPath, const FCommentsOptions& InOptions,
										  std::string& OutError, std::optional<FDocumentFault>* OutFault = nullptr);

/** The same for a host that hands the overlay any text: one that is not a comment document is given as it is. */
std::optional<FCommentsFile> LoadAnyText(const std::string& InPath, const FCommentsOptions& InOptions,
										 std::string& OutError);

} // namespace Flitmark
