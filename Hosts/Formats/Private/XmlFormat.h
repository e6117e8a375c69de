#pragma once

#include "Formats/CommentFormat.h"
#include "ImportSink.h"

#include <string>
#include <string_view>

namespace Flitmark
{

/** An entry while it is read. */
struct FXmlComment
{
	FServiceComment Comment;

	/** What was paid, as it is written. */
	std::string Amount;

	/** What the entry is if it is nothing for viewers; see FSkippedEntries. */
	std::string_view Skipped;
};

/** An element that becomes a comment: attributes and a text. */
struct FXmlElement
{
	std::string_view Name;

	/** False if there is no readable time. */
	bool (*ReadTag)(std::string_view InTag, FXmlComment& OutEntry) = nullptr;

	/** What to report then. */
	const char* WithoutTime = nullptr;

	/** Called with the text as it stands there, entities resolved; also where it is empty. */
	void (*FinishText)(FXmlComment& InOutEntry) = nullptr;
};

/** How comments are written in one XML format. */
struct FXmlSchema
{
	/** The root element. */
	std::string_view Root;

	/** Whether a tag's attributes are those of an entry. */
	bool (*IsEntry)(std::string_view InTag);

	FXmlElement Entry;

	/** Without a name where the format has none. */
	FXmlElement Paid;
};

/** Certain from the first entry on, possible where only the root is there. */
FFormatProbe ProbeXml(std::string_view InText, const FXmlSchema& InSchema);

/** Other elements that are about a sender or a time, such as gifts, are skipped and counted by their names. */
void ReadXml(IByteSource& InSource, const FXmlSchema& InSchema, FImportSink& OutSink);

/** A format in XML; Schema must be a constant. */
template <const FXmlSchema& Schema>
constexpr FCommentFormat MakeXmlFormat(std::string_view InName, std::string_view InTitle)
{
	return {InName, InTitle, EFormatSyntax::Xml, [](const FFileHead& InHead) { return ProbeXml(InHead.Text, Schema); },
			[](IByteSource& InSource, FImportSink& OutSink, std::string&)
			{
				ReadXml(InSource, Schema, OutSink);
				return true;
			}};
}

} // namespace Flitmark
