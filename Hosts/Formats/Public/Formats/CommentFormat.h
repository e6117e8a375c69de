#pragma once

#include "CoreTypes.h"
#include "Files/ByteSource.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace Flitmark
{

class FImportSink;

enum class EFormatSyntax : uint8
{
	Xml,
	Json,
	/** The only one that is not text. */
	Protobuf
};

/** The beginning of a file, as formats look at it. */
struct FFileHead
{
	std::string_view Bytes;

	/** The same as UTF-8, without a byte order mark and leading blanks. */
	std::string_view Text;
};

/** What a file's head says about one format. */
struct FFormatProbe
{
	enum class EResult : uint8
	{
		No,
		/** Only if no other format claims the file. */
		Possible,
		Certain
	};

	EResult Result = EResult::No;

	/** Where in the head the evidence is: of two formats that are certain, the one seen first wins. */
	std::size_t Offset = 0;

	bool IsBetterThan(const FFormatProbe& InOther) const
	{
		return Result != InOther.Result ? Result > InOther.Result : Result != EResult::No && Offset < InOther.Offset;
	}
};

/**
 * A format of comment files: what it is called, how to recognize it and how to read it. There is one object of each, so
 * formats are compared by address.
 */
struct FCommentFormat
{
	/** For programs, such as "list-xml". */
	std::string_view Name;

	/** For people, such as "XML list". */
	std::string_view Title;

	EFormatSyntax Syntax;

	FFormatProbe (*Probe)(const FFileHead& InHead);

	/** Reads a whole file; text comes as UTF-8. False with OutError if the file is not in this format after all. */
	bool (*Read)(IByteSource& InSource, FImportSink& OutSink, std::string& OutError);
};

/** Our own document: its comments keep the text they were read from. */
extern const FCommentFormat OwnDocumentFormat;

/** Every format that can be read. */
std::span<const FCommentFormat* const> GetCommentFormats();

/** By its Name; null if there is none. */
const FCommentFormat* FindCommentFormat(std::string_view InName);

/** The format's Title; "unknown format" for null. */
std::string_view ToText(const FCommentFormat* InFormat);

/** How much of a file DetectFormat wants to see, in bytes. */
inline constexpr std::size_t DetectionSize = 65'536;

/**
 * Recognizes a format by a file's first DetectionSize bytes, never by its name. A JSON object that is nothing else
 * counts as our own document, which needs no key at all; null if no format fits.
 */
const FCommentFormat* DetectFormat(std::string_view InHead);

/** The same for a file; null for anything but a regular file: reading a pipe might wait forever, and uses it up. */
const FCommentFormat* DetectFile(const std::filesystem::path& InPath);

} // namespace Flitmark
