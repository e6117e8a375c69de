#pragma once

#include "CoreTypes.h"
#include "Files/ByteSource.h"

#include <string_view>
#include <vector>

namespace Flitmark
{

/** A window on a source: it grows at its end on request, and is consumed from its front. */
class FByteWindow
{
public:
	/** No entry is longer, so that a damaged file does not fill the memory. */
	static constexpr std::size_t MaxEntry = std::size_t{4} << 20;

	explicit FByteWindow(IByteSource& InSource)
		: Source(InSource)
	{
	}

	/** What was read and not consumed yet, followed by a NUL. Valid until the next Fill. */
	std::string_view GetView() const { return {Buffer.data() + Begin, End - Begin}; }

	/** Whether the view reaches to the source's end. */
	bool IsComplete() const { return bComplete; }

	/** Adds to the view; false at the source's end. */
	bool Fill();

	/** As long as the view is shorter and there is more. */
	void FillTo(std::size_t InSize);

	void Consume(std::size_t InSize) { Begin += InSize; }

	/** How many bytes were consumed. */
	uint64 GetOffset() const { return NumDropped + Begin; }

	/** The line, from 1, of a place in the view. Places asked for one after the other should not go back. */
	uint64 GetLine(std::size_t InOffset);

private:
	static constexpr std::size_t ChunkSize = std::size_t{64} << 10;

	void CountLinesTo(std::size_t InOffset);

	IByteSource& Source;
	std::vector<char> Buffer = std::vector<char>(ChunkSize + 1);
	std::size_t Begin = 0;
	std::size_t End = 0;
	uint64 NumDropped = 0;
	bool bComplete = false;

	/** How many line ends stand before LineOffset, a place in the buffer. */
	uint64 NumLineEnds = 0;
	std::size_t LineOffset = 0;
};

} // namespace Flitmark
