#pragma once

#include "Formats/CommentFormat.h"
#include "ImportSink.h"

#include <string_view>

namespace Flitmark
{

/** How comments are written in one XML format: each is an element with attributes and a text. */
struct FXmlSchema
{
	/** The root element, and that of an entry. */
	std::string_view Root;
	std::string_view Entry;

	/** Whether a tag's attributes are those of an entry. */
	bool (*IsEntry)(std::string_view InTag);

	/** False if there is no readable time. */
	bool (*ReadTag)(std::string_view InTag, FServiceComment& OutComment);

	/** What to report then. */
	const char* WithoutTime;

	void (*FinishText)(FServiceComment& InOutComment);
};

/** Certain from the first entry on, possible where only the root is there. */
FFormatProbe ProbeXml(std::string_view InText, const FXmlSchema& InSchema);

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
