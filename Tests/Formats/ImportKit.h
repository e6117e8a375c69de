#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

#include <string>
#include <string_view>

namespace Flitmark
{

/** A text in memory that is given in pieces of a size. */
class FTextSource final : public IByteSource
{
public:
	explicit FTextSource(std::string_view InText, std::size_t InPieceSize = 65536)
		: Text(InText)
		, PieceSize(InPieceSize)
	{
	}

	std::size_t Read(char* OutData, std::size_t InSize) override
	{
		const std::size_t Size = Text.copy(OutData, InSize < PieceSize ? InSize : PieceSize, Place);
		Place += Size;
		return Size;
	}

	uint64 GetSize() const override { return Text.size(); }

private:
	std::string_view Text;
	std::size_t PieceSize;
	std::size_t Place = 0;
};

/** Imports a text; a failure is the calling test's. */
FImportResult ImportText(std::string_view InText);

/** The same for what is to be refused; the error's text. */
std::string ImportRefused(std::string_view InText);

/** Each comment as one line: ticks, kind's letter (sTBRPXU), points, colour, then the text in quotes. */
std::string Describe(const FImportResult& InResult);

/** Ids, post ids, users, names and dates, one comment a line. */
std::string DescribeOrigin(const FImportResult& InResult);

/** Each fault as `line/entry reason`. */
std::string DescribeFaults(const FImportResult& InResult);

} // namespace Flitmark
