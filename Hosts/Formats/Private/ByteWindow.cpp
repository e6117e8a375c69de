#include "ByteWindow.h"

#include <algorithm>
#include <cstring>

namespace Flitmark
{

bool FByteWindow::Fill()
{
	if (bComplete)
	{
		return false;
	}
	if (Begin > 0)
	{
		CountLinesTo(Begin);
		std::memmove(Buffer.data(), Buffer.data() + Begin, End - Begin);
		NumDropped += Begin;
		LineOffset -= Begin;
		End -= Begin;
		Begin = 0;
	}
	// Twice as much each time: who looks again from the start after each filling still looks at no more than twice all.
	if (Buffer.size() - End - 1 < std::max(ChunkSize / 2, End / 2))
	{
		Buffer.resize(Buffer.size() * 2);
	}
	// A source that gives little at a time does not make us look again for each bit.
	const std::size_t Wanted = End + std::max(ChunkSize / 2, End / 2);
	const std::size_t Before = End;
	while (!bComplete && End < Wanted)
	{
		const std::size_t Read = Source.Read(Buffer.data() + End, Buffer.size() - End - 1);
		End += Read;
		bComplete = Read == 0;
	}
	Buffer[End] = '\0';
	return End > Before;
}

void FByteWindow::FillTo(std::size_t InSize)
{
	while (End - Begin < InSize && Fill())
	{
	}
}

uint64 FByteWindow::GetLine(std::size_t InOffset)
{
	const std::size_t Offset = std::min(Begin + InOffset, End);
	CountLinesTo(Offset);
	// A place before the one that was counted to last is looked at again.
	const auto Ahead = std::count(Buffer.data() + Offset, Buffer.data() + std::max(Offset, LineOffset), '\n');
	return NumLineEnds - static_cast<uint64>(Ahead) + 1;
}

void FByteWindow::CountLinesTo(std::size_t InOffset)
{
	while (LineOffset < InOffset)
	{
		// Lines are long enough that the library's search is faster than a count byte by byte.
		const std::string_view Rest(Buffer.data() + LineOffset, InOffset - LineOffset);
		const std::size_t LineEnd = Rest.find('\n');
		NumLineEnds += LineEnd == std::string_view::npos ? 0 : 1;
		LineOffset += std::min(LineEnd, Rest.size() - 1) + 1;
	}
}

} // namespace Flitmark
