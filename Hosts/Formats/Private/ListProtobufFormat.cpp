#include "Formats/CommentFormat.h"
#include "Formats/FieldValues.h"
#include "ImportSink.h"
#include "ListParameters.h"

#include <algorithm>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/wire_format_lite.h>
#include <limits>
#include <optional>

namespace Flitmark
{

namespace
{

using google::protobuf::io::CodedInputStream;
using FWire = google::protobuf::internal::WireFormatLite;

/** Field 1, with its length. */
constexpr uint32 EntryTag = 0x0A;
constexpr uint32 MaxEntry = uint32{4} << 20;

/** The numbers of an entry's fields. */
enum EField : int
{
	Id = 1,
	Time = 2,
	Mode = 3,
	Size = 4,
	Color = 5,
	Sender = 6,
	Content = 7,
	Sent = 8,
	Pool = 11
};

/** What a field that we know is written as. */
FWire::WireType GetWireType(int InField)
{
	return InField == EField::Sender || InField == EField::Content ? FWire::WIRETYPE_LENGTH_DELIMITED
																   : FWire::WIRETYPE_VARINT;
}

bool IsKnown(int InField)
{
	return (InField >= EField::Id && InField <= EField::Sent) || InField == EField::Pool;
}

/** An entry's values as they come. */
class FEntry
{
public:
	/** False where the bytes are no message; what came before the fault stays. */
	bool Read(std::string_view InBytes)
	{
		CodedInputStream Stream(reinterpret_cast<const uint8*>(InBytes.data()), static_cast<int>(InBytes.size()));
		while (const uint32 Tag = Stream.ReadTag())
		{
			const int Field = FWire::GetTagFieldNumber(Tag);
			const bool bOurs = IsKnown(Field) && FWire::GetTagWireType(Tag) == GetWireType(Field);
			if (bOurs ? !ReadField(Stream, Field) : !FWire::SkipField(&Stream, Tag))
			{
				return false;
			}
			bAnyOurs = bAnyOurs || bOurs;
		}
		if (bHasSize && !bHasColor)
		{
			// Zeros are not written. A size never is 0, so where there is one, a color that is missing is black.
			Comment.Color = 0xFF;
		}
		return Stream.ConsumedEntireMessage();
	}

	bool HasAnyOurs() const { return bAnyOurs; }

	FServiceComment Comment;

private:
	bool ReadField(CodedInputStream& InStream, int InField)
	{
		if (GetWireType(InField) == FWire::WIRETYPE_LENGTH_DELIMITED)
		{
			std::string Text;
			if (!FWire::ReadBytes(&InStream, &Text))
			{
				return false;
			}
			TakeText(InField, std::move(Text));
			return true;
		}
		uint64 Number = 0;
		if (!InStream.ReadVarint64(&Number))
		{
			return false;
		}
		TakeNumber(InField, static_cast<int64>(Number));
		return true;
	}

	void TakeText(int InField, std::string&& InText)
	{
		if (InField == EField::Content)
		{
			Comment.Text = std::move(InText);
		}
		else
		{
			Comment.UserId = InText.empty() ? 0 : HashUser(InText);
		}
	}

	void TakeNumber(int InField, int64 InNumber)
	{
		switch (InField)
		{
		case EField::Id:
			Comment.Id = InNumber;
			break;
		case EField::Time:
			// Milliseconds of 32 bits, so that nothing overflows.
			Comment.SpawnTicks = static_cast<int32>(InNumber) * static_cast<int64>(ETimeUnit::Millisecond);
			break;
		case EField::Mode:
			Comment.Kind = ToListKind(std::to_string(InNumber));
			break;
		case EField::Size:
			Comment.FontSize = ScaleSize(std::to_string(InNumber), ListNormalSize);
			bHasSize = true;
			break;
		case EField::Color:
			Comment.Color = static_cast<uint32>(InNumber & 0xFFFFFF) << 8 | 0xFF;
			bHasColor = true;
			break;
		case EField::Sent:
			Comment.PostDate = ParseUnixDate(std::to_string(InNumber));
			break;
		default:
			Comment.PostId = InNumber;
			break;
		}
	}

	bool bAnyOurs = false;
	bool bHasSize = false;
	bool bHasColor = false;
};

/** Lets protobuf read from our source. */
class FSourceStream final : public google::protobuf::io::CopyingInputStream
{
public:
	explicit FSourceStream(IByteSource& InSource)
		: Source(InSource)
	{
	}

	int Read(void* OutData, int InSize) override
	{
		return static_cast<int>(Source.Read(static_cast<char*>(OutData), static_cast<std::size_t>(InSize)));
	}

private:
	IByteSource& Source;
};

class FReader
{
public:
	FReader(IByteSource& InSource, FImportSink& OutSink)
		: Source(InSource)
		, Adaptor(&Source, BlockSize)
		, Sink(OutSink)
	{
	}

	/** A stream counts bytes in 31 bits only, so each entry has one of its own. */
	void ReadAll()
	{
		while (ReadField())
		{
		}
	}

private:
	static constexpr int BlockSize = 64 << 10;

	bool ReadField()
	{
		CodedInputStream Stream(&Adaptor);
		const uint32 Tag = Stream.ReadTag();
		if (Tag == 0 && Stream.CurrentPosition() == 0)
		{
			return false;
		}
		if (Tag == EntryTag)
		{
			Sink.BeginEntry();
			return ReadEntry(Stream);
		}
		if (Tag != 0 && FWire::SkipField(&Stream, Tag))
		{
			return true;
		}
		Sink.BeginEntry();
		Sink.AddBroken(0, "is not a message field; the rest of the file cannot be read");
		return false;
	}

	bool ReadEntry(CodedInputStream& InStream)
	{
		uint32 Size = 0;
		if (!InStream.ReadVarint32(&Size) || Size > MaxEntry)
		{
			Sink.AddBroken(0, "has an impossible length; the rest of the file cannot be read");
			return false;
		}
		if (!InStream.ReadString(&Bytes, static_cast<int>(Size)))
		{
			Sink.AddBroken(0, "the file ends in the middle of this entry");
			return false;
		}
		AddEntry();
		return true;
	}

	void AddEntry()
	{
		FEntry Entry;
		const bool bWhole = Entry.Read(Bytes);
		FinishListText(Entry.Comment);
		if (Entry.Comment.Text.empty())
		{
			Sink.AddBroken(0, bWhole ? "has no text" : "is damaged, and no text can be read");
			return;
		}
		Sink.Add(std::move(Entry.Comment), static_cast<uint64>(Adaptor.ByteCount()));
		if (!bWhole)
		{
			Sink.AddRepaired(0, "is damaged; everything before the damage was read");
		}
	}

	FSourceStream Source;
	google::protobuf::io::CopyingInputStreamAdaptor Adaptor;
	FImportSink& Sink;
	std::string Bytes;
};

/** Certain if the bytes can be nothing else. */
FFormatProbe Probe(const FFileHead& InHead)
{
	// An empty segment has no bytes at all; of any other the head shows at least one entry, or most of it.
	const std::string_view Head = InHead.Bytes;
	CodedInputStream Stream(reinterpret_cast<const uint8*>(Head.data()), static_cast<int>(Head.size()));
	uint32 Size = 0;
	while (Stream.ReadTag() == EntryTag && Stream.ReadVarint32(&Size) && Size <= MaxEntry)
	{
		const auto Begin = static_cast<std::size_t>(Stream.CurrentPosition());
		const std::string_view Bytes = Head.substr(Begin, Size);
		if (Size > 0)
		{
			FEntry Entry;
			const bool bWhole = Entry.Read(Bytes);
			const bool bOurs = Entry.HasAnyOurs() && (bWhole || Bytes.size() < Size);
			return {bOurs ? FFormatProbe::EResult::Certain : FFormatProbe::EResult::No, 0};
		}
	}
	return {};
}

} // namespace

/** The list as messages, in one or more segments one after the other. */
extern const FCommentFormat ListProtobufFormat = {"list-protobuf", "binary list", EFormatSyntax::Protobuf, Probe,
												  [](IByteSource& InSource, FImportSink& OutSink, std::string&)
												  {
													  FReader(InSource, OutSink).ReadAll();
													  return true;
												  }};

} // namespace Flitmark
