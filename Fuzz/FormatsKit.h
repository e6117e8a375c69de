#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

#include <string_view>

namespace Flitmark
{

/** Any bytes as a source that gives at most so many at a time. */
class FBytesSource final : public IByteSource
{
public:
	FBytesSource(std::string_view InBytes, std::size_t InPieceSize)
		: Bytes(InBytes)
		, PieceSize(InPieceSize)
	{
	}

	std::size_t Read(char* OutData, std::size_t InSize) override;
	uint64 GetSize() const override { return Bytes.size(); }

private:
	std::string_view Bytes;
	std::size_t PieceSize;
	std::size_t Place = 0;
};

/** Reads bytes as each format of a syntax, and stops the program if the result breaks a promise. */
void ImportChecked(std::string_view InBytes, EFormatSyntax InSyntax);

/** What a result promises whatever the input: clean texts, and counts that add up. */
void CheckResult(const FImportResult& InResult);

/** Stops the program with a message where something that always holds does not. */
void Require(bool bInHolds, const char* InWhat);

inline std::string_view ToBytes(const uint8* InData, std::size_t InSize)
{
	return {reinterpret_cast<const char*>(InData), InSize};
}

} // namespace Flitmark
