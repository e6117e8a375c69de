#include "DocumentImport.h"

#include "Files/FileText.h"
#include "Formats/CommentDocument.h"

#include <limits>

namespace Flitmark
{

bool ImportDocument(IByteSource& InSource, FImportSink& OutSink, std::string& OutError)
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
		OutSink.Add(std::move(Comment), Text.size());
	}
	return true;
}

} // namespace Flitmark
