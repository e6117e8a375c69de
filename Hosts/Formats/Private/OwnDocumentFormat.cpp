#include "Files/FileText.h"
#include "Formats/CommentDocument.h"
#include "ImportSink.h"
#include "JsonFormat.h"

#include <limits>

namespace Flitmark
{

namespace
{

FFormatProbe Probe(const FFileHead& InHead)
{
	const FFormatProbe OfList =
		ProbeJson(InHead.Text, [](const FJsonNode& InNode) { return InNode.Depth == 1 && InNode.HasList("datas"); });
	const FFormatProbe Any{FFormatProbe::EResult::Possible, 0};
	return OfList.Result == FFormatProbe::EResult::No && IsJsonObject(InHead.Text) ? Any : OfList;
}

/** Whole or not at all: of a broken document the overlay shows nothing. */
bool Read(IByteSource& InSource, FImportSink& OutSink, std::string& OutError)
{
	constexpr std::size_t PieceSize = std::size_t{1} << 20;
	std::string Text;
	for (std::string Piece = InSource.ReadUpTo(PieceSize); !Piece.empty(); Piece = InSource.ReadUpTo(PieceSize))
	{
		Text += Piece;
		if (Text.size() > std::numeric_limits<int32>::max())
		{
			OutError = "is larger than 2 GiB, which is more than can be read";
			return false;
		}
	}
	const FCommentDocument Document = FCommentDocument::Read(FromUtf8(Text));
	if (const std::optional<FDocumentFault>& Fault = Document.GetFault())
	{
		const bool bPlace = Fault->Line > 0;
		OutError =
			(bPlace ? std::to_string(Fault->Line) + ":" + std::to_string(Fault->Column) + ": " : "") + Fault->Reason;
		return false;
	}
	for (FServiceComment& Comment : Document.MakeComments(Text))
	{
		OutSink.BeginEntry();
		OutSink.Add(std::move(Comment), Text.size());
	}
	return true;
}

} // namespace

const FCommentFormat OwnDocumentFormat = {"document", "comment document", EFormatSyntax::Json, Probe, Read};

} // namespace Flitmark
