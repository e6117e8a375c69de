#pragma once

#include "CoreTypes.h"
#include "Files/ByteSource.h"

#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** How a file's text is written down, as its first bytes tell. */
struct FTextEncoding
{
	/** What ICU calls it; empty for UTF-8, which is taken as it is. */
	std::string Name;

	/** Length of the byte order mark. */
	std::size_t MarkSize = 0;

	/** What is odd about it, for people; mostly empty. */
	std::string Warning;
};

/** By the byte order mark, by where the NULs of UTF-16 stand, or by what an XML declaration says. */
FTextEncoding FindEncoding(std::string_view InHead);

/** Gives a source's text as UTF-8 without a mark. UTF-8 passes through unchecked. */
class FDecodedSource final : public IByteSource
{
public:
	/** InHead was read from the source already and comes first. */
	FDecodedSource(IByteSource& InSource, std::string InHead, const FTextEncoding& InEncoding);
	~FDecodedSource() override;

	std::size_t Read(char* OutData, std::size_t InSize) override;
	uint64 GetSize() const override { return Source.GetSize(); }
	std::string GetError() const override { return Source.GetError(); }

private:
	std::size_t ReadRaw(char* OutData, std::size_t InSize);
	std::size_t Convert(char* OutData, std::size_t InSize);

	IByteSource& Source;
	std::string Head;
	std::size_t HeadPlace = 0;

	/** Null for UTF-8. */
	struct FConverters;
	std::unique_ptr<FConverters> Converters;
};

/** The start of a text as UTF-8, for a look at it. */
std::string DecodeHead(std::string_view InHead, const FTextEncoding& InEncoding);

} // namespace Flitmark
