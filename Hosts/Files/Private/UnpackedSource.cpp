#include "Files/UnpackedSource.h"

#include <algorithm>
#include <vector>
#include <zlib.h>

namespace Flitmark
{

namespace
{

/** What zlib's inflateInit2 takes for each form: the window's bits, 16 more for gzip, negative without a header. */
int ToWindowBits(ECompression InCompression)
{
	switch (InCompression)
	{
	case ECompression::Gzip:
		return 16 + MAX_WBITS;
	case ECompression::Zlib:
		return MAX_WBITS;
	default:
		return -MAX_WBITS;
	}
}

bool IsGzip(std::string_view InBytes)
{
	return InBytes.starts_with("\x1F\x8B\x08");
}

/** What bytes that only look like compressed ones do not unpack to before a fault shows. */
constexpr std::size_t MinUnpacked = 32;

/** The most that one call of zlib takes and gives, in bytes. */
constexpr std::size_t MaxStep = std::size_t{64} << 10;

} // namespace

struct FUnpackedSource::FInflater
{
	explicit FInflater(ECompression InCompression)
		: Compression(InCompression)
	{
		bReady = inflateInit2(&Stream, ToWindowBits(InCompression)) == Z_OK;
	}
	~FInflater()
	{
		if (bReady)
		{
			inflateEnd(&Stream);
		}
	}
	FInflater(const FInflater&) = delete;
	FInflater& operator=(const FInflater&) = delete;

	const ECompression Compression;
	z_stream Stream = {};
	bool bReady = false;
	bool bDone = false;
	bool bSourceEnded = false;
	std::vector<char> Packed = std::vector<char>(MaxStep);
	uint64 NumPacked = 0;
	uint64 NumUnpacked = 0;
};

ECompression FindCompression(std::string_view InHead)
{
	if (IsGzip(InHead))
	{
		return ECompression::Gzip;
	}
	if (InHead.size() < 2)
	{
		return ECompression::None;
	}
	// Two bytes: the method with the window's size, and flags that make both together a multiple of 31.
	const auto First = static_cast<uint8>(InHead[0]);
	const auto Second = static_cast<uint8>(InHead[1]);
	const bool bMark = (First & 15) == Z_DEFLATED && First >> 4 <= MAX_WBITS - 8 && (First * 256 + Second) % 31 == 0 &&
					   (Second & 0x20) == 0;
	// These may also be two letters that a text begins with; but then hardly anything unpacks.
	const bool bLetters = Second >= ' ' && Second < 0x80;
	const std::size_t Enough = bLetters ? MinUnpacked : 1;
	const bool bZlib = bMark && UnpackHead(InHead, ECompression::Zlib, Enough).size() == Enough;
	return bZlib ? ECompression::Zlib : ECompression::None;
}

std::string UnpackHead(std::string_view InHead, ECompression InCompression, std::size_t InMost)
{
	FMemorySource Nothing({});
	FUnpackedSource Source(Nothing, std::string(InHead), InCompression);
	return Source.ReadUpTo(InMost);
}

FUnpackedSource::FUnpackedSource(IByteSource& InSource, std::string InHead, ECompression InCompression)
	: Source(InSource)
	, Head(std::move(InHead))
{
	if (InCompression != ECompression::None)
	{
		Inflater = std::make_unique<FInflater>(InCompression);
		if (!Inflater->bReady)
		{
			Error = "cannot be unpacked: there is not enough memory";
		}
	}
}

FUnpackedSource::~FUnpackedSource() = default;

uint64 FUnpackedSource::GetSize() const
{
	return Inflater ? 0 : Source.GetSize();
}

std::string FUnpackedSource::GetError() const
{
	const std::string Outer = Source.GetError();
	return Outer.empty() ? Error : Outer;
}

std::size_t FUnpackedSource::Read(char* OutData, std::size_t InSize)
{
	return Inflater ? Unpack(OutData, std::min(InSize, MaxStep)) : ReadPacked(OutData, InSize);
}

std::size_t FUnpackedSource::ReadPacked(char* OutData, std::size_t InSize)
{
	if (HeadPlace < Head.size())
	{
		const std::size_t Count = Head.copy(OutData, InSize, HeadPlace);
		HeadPlace += Count;
		return Count;
	}
	return Source.Read(OutData, InSize);
}

std::size_t FUnpackedSource::Unpack(char* OutData, std::size_t InSize)
{
	z_stream& Stream = Inflater->Stream;
	Stream.next_out = reinterpret_cast<Bytef*>(OutData);
	Stream.avail_out = static_cast<uInt>(InSize);
	while (Error.empty() && !Inflater->bDone && Stream.avail_out == InSize && Refill())
	{
		const int Result = inflate(&Stream, Z_NO_FLUSH);
		if (Result == Z_STREAM_END)
		{
			OnStreamEnd();
		}
		else if (Result != Z_OK && Result != Z_BUF_ERROR)
		{
			Inflater->bDone = true;
			Damage = "its compressed data is damaged: everything after the damage is lost";
		}
		else if (Stream.avail_in == 0 && Inflater->bSourceEnded && Stream.avail_out == InSize)
		{
			Inflater->bDone = true;
			Damage = "its compressed data ends early: everything after its end is lost";
		}
	}
	const std::size_t Count = InSize - Stream.avail_out;
	Inflater->NumUnpacked += Count;
	if (IsBomb())
	{
		Inflater->bDone = true;
		Error = "unpacks to hundreds of times its size, as no file of comments does; it is not read any further. If it "
				"is one, unpack it first";
		return 0;
	}
	return Count;
}

/** Sees to it that there is packed data; false after an error of the source. */
bool FUnpackedSource::Refill()
{
	z_stream& Stream = Inflater->Stream;
	if (Stream.avail_in > 0 || Inflater->bSourceEnded)
	{
		return true;
	}
	const std::size_t Count = ReadPacked(Inflater->Packed.data(), Inflater->Packed.size());
	Inflater->bSourceEnded = Count == 0;
	Inflater->NumPacked += Count;
	Stream.next_in = reinterpret_cast<Bytef*>(Inflater->Packed.data());
	Stream.avail_in = static_cast<uInt>(Count);
	return Source.GetError().empty();
}

/** A gzip file may have several parts, one after the other; anything else behind the end is padding. */
void FUnpackedSource::OnStreamEnd()
{
	constexpr std::size_t MarkSize = 3;
	z_stream& Stream = Inflater->Stream;
	std::vector<char>& Packed = Inflater->Packed;
	// The next part's mark may be torn apart by the end of what was read.
	std::size_t Rest = Stream.avail_in;
	std::copy_n(reinterpret_cast<const char*>(Stream.next_in), Rest, Packed.data());
	while (Rest < MarkSize && !Inflater->bSourceEnded)
	{
		const std::size_t Count = ReadPacked(Packed.data() + Rest, Packed.size() - Rest);
		Inflater->bSourceEnded = Count == 0;
		Inflater->NumPacked += Count;
		Rest += Count;
	}
	Stream.next_in = reinterpret_cast<Bytef*>(Packed.data());
	Stream.avail_in = static_cast<uInt>(Rest);
	const bool bMore = Inflater->Compression == ECompression::Gzip && IsGzip({Packed.data(), Rest});
	Inflater->bDone = !bMore || inflateReset(&Stream) != Z_OK;
}

/** Comments come to some dozens of times their packed size at most, since no two have the same time and number. */
bool FUnpackedSource::IsBomb() const
{
	constexpr uint64 Harmless = uint64{64} << 20;
	constexpr uint64 MaxRatio = 250;
	return Inflater->NumUnpacked > Harmless && Inflater->NumUnpacked / MaxRatio > Inflater->NumPacked;
}

} // namespace Flitmark
