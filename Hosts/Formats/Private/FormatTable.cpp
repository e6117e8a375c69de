#include "Formats/CommentFormat.h"

#include "Formats/CommentSource.h"
#include "TextDecoding.h"

#include <algorithm>

namespace Flitmark
{

// Each format has a file of its own, named after it. A new one needs a line here and one in the table.
extern const FCommentFormat BodyJsonFormat;
extern const FCommentFormat ChatJsonFormat;
extern const FCommentFormat ChatXmlFormat;
extern const FCommentFormat ListElementsJsonFormat;
extern const FCommentFormat ListProtobufFormat;
extern const FCommentFormat ListXmlFormat;
extern const FCommentFormat LiveChatJsonFormat;
extern const FCommentFormat MessageListJsonFormat;
extern const FCommentFormat ObjectsJsonFormat;
extern const FCommentFormat OffsetChatJsonFormat;
extern const FCommentFormat ParametersJsonFormat;
extern const FCommentFormat RowsJsonFormat;
extern const FCommentFormat TextJsonFormat;

namespace
{

/** In the order in which Docs/formats.md describes them; binary ones first, since their bytes may pass for text. */
constexpr const FCommentFormat* Formats[] = {
	&ListProtobufFormat, &ListXmlFormat,  &ListElementsJsonFormat, &ParametersJsonFormat, &RowsJsonFormat,
	&ChatXmlFormat,		 &ChatJsonFormat, &LiveChatJsonFormat,	   &OffsetChatJsonFormat, &MessageListJsonFormat,
	&ObjectsJsonFormat,	 &BodyJsonFormat, &TextJsonFormat,		   &OwnDocumentFormat,
};

} // namespace

std::span<const FCommentFormat* const> GetCommentFormats()
{
	return Formats;
}

const FCommentFormat* FindCommentFormat(std::string_view InName)
{
	const auto* const Found = std::ranges::find(Formats, InName, &FCommentFormat::Name);
	return Found == std::end(Formats) ? nullptr : *Found;
}

std::string_view ToText(const FCommentFormat* InFormat)
{
	return InFormat == nullptr ? "unknown format" : InFormat->Title;
}

const FCommentFormat* DetectFormat(std::string_view InHead)
{
	const std::string Decoded = DecodeHead(InHead, FindEncoding(InHead));
	std::string_view Text = Decoded;
	Text.remove_prefix(std::min(Text.find_first_not_of(" \t\r\n"), Text.size()));
	const FCommentFormat* Best = nullptr;
	FFormatProbe BestProbe;
	for (const FCommentFormat* const Format : Formats)
	{
		const FFormatProbe Probe = Format->Probe({InHead, Text});
		if (Probe.IsBetterThan(BestProbe))
		{
			Best = Format;
			BestProbe = Probe;
		}
	}
	return Best;
}

const FCommentFormat* DetectFile(const std::filesystem::path& InPath)
{
	std::error_code Ignored;
	std::string Error;
	const std::unique_ptr<FCommentSource> Source =
		std::filesystem::is_regular_file(InPath, Ignored) ? FCommentSource::Open(InPath, Error) : nullptr;
	return Source ? Source->GetFormat() : nullptr;
}

} // namespace Flitmark
