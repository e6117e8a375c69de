#include "TextDecoding.h"

#include "Formats/Utf8.h"
#include "Formats/XmlTag.h"

#include <algorithm>
#include <array>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

namespace Flitmark
{

namespace
{

struct FCloseConverter
{
	void operator()(UConverter* InConverter) const { ucnv_close(InConverter); }
};
using FConverter = std::unique_ptr<UConverter, FCloseConverter>;

/** ICU's own substitution writes a control character for a single byte. */
void ReplaceWrongBytes(const void*, UConverterToUnicodeArgs* InOutArguments, const char*, int32,
					   UConverterCallbackReason InReason, UErrorCode* OutError)
{
	if (InReason <= UCNV_IRREGULAR)
	{
		constexpr UChar Replacement = 0xFFFD;
		*OutError = U_ZERO_ERROR;
		ucnv_cbToUWriteUChars(InOutArguments, &Replacement, 1, 0, OutError);
	}
}

FConverter OpenConverter(const char* InName)
{
	UErrorCode Error = U_ZERO_ERROR;
	FConverter Converter(ucnv_open(InName, &Error));
	if (Converter)
	{
		ucnv_setToUCallBack(Converter.get(), &ReplaceWrongBytes, nullptr, nullptr, nullptr, &Error);
	}
	return U_SUCCESS(Error) ? std::move(Converter) : nullptr;
}

/** Whether the encoding gives ASCII for ASCII: one that does not is not what its declaration was read from. */
bool KeepsAscii(UConverter* InConverter)
{
	constexpr std::string_view Probe = "<?xml version=\"1.0\"?>";
	std::array<UChar, 64> Decoded{};
	UErrorCode Error = U_ZERO_ERROR;
	const int32 Length = ucnv_toUChars(InConverter, Decoded.data(), static_cast<int32>(Decoded.size()), Probe.data(),
									   static_cast<int32>(Probe.size()), &Error);
	ucnv_reset(InConverter);
	return U_SUCCESS(Error) && std::equal(Probe.begin(), Probe.end(), Decoded.begin(), Decoded.begin() + Length);
}

/** Whether there is enough of it to tell, and all of it is UTF-8; the last character may be cut. */
bool IsSurelyUtf8(std::string_view InText)
{
	constexpr int Enough = 4;
	int NumMultibyte = 0;
	for (std::size_t Place = 0; Place < InText.size();)
	{
		const std::size_t Start = Place;
		const UChar32 Character = TakeCharacter(InText, Place);
		if (Character < 0)
		{
			return NumMultibyte >= Enough && Start + 3 >= InText.size();
		}
		NumMultibyte += Character >= 0x80 ? 1 : 0;
	}
	return NumMultibyte >= Enough;
}

FTextEncoding FindDeclared(std::string_view InHead)
{
	const std::size_t Begin = InHead.find_first_not_of(" \t\r\n");
	constexpr std::string_view Opening = "<?xml";
	if (Begin == std::string_view::npos || InHead.substr(Begin, Opening.size()) != Opening)
	{
		return {};
	}
	const std::string_view Declaration = InHead.substr(Begin, 400);
	const std::string_view Inside =
		Declaration.substr(Opening.size(), Declaration.find("?>", Opening.size()) - Opening.size());
	const std::string Name(FindXmlAttribute(Inside, "encoding"));
	const FConverter Converter = Name.empty() ? nullptr : OpenConverter(Name.c_str());
	if (Name.empty() || (Converter && ucnv_getType(Converter.get()) == UCNV_UTF8))
	{
		return {};
	}
	if (!Converter || !KeepsAscii(Converter.get()))
	{
		return {{},
				0,
				"its declared encoding \"" + Name.substr(0, 40) +
					"\" is unknown or impossible; the file was read as UTF-8"};
	}
	if (IsSurelyUtf8(InHead))
	{
		return {{},
				0,
				"its declared encoding is \"" + Name.substr(0, 40) + "\", but the file is UTF-8 and was read as such"};
	}
	return {Name, 0, {}};
}

} // namespace

FTextEncoding FindEncoding(std::string_view InHead)
{
	using namespace std::string_view_literals;
	struct FMark
	{
		std::string_view Bytes;
		const char* Name;
	};
	// The longer first: UTF-32's begins with UTF-16's.
	constexpr FMark Marks[] = {{"\xEF\xBB\xBF"sv, ""},
							   {"\xFF\xFE\0\0"sv, "UTF-32LE"},
							   {"\0\0\xFE\xFF"sv, "UTF-32BE"},
							   {"\xFF\xFE"sv, "UTF-16LE"},
							   {"\xFE\xFF"sv, "UTF-16BE"}};
	for (const FMark& Mark : Marks)
	{
		if (InHead.starts_with(Mark.Bytes))
		{
			return {Mark.Name, Mark.Bytes.size(), {}};
		}
	}
	constexpr std::string_view Openings = "<{[";
	if (InHead.size() >= 4 && Openings.find(InHead[0]) != std::string_view::npos && InHead[1] == '\0' &&
		InHead[2] != '\0' && InHead[3] == '\0')
	{
		return {"UTF-16LE", 0, {}};
	}
	if (InHead.size() >= 4 && InHead[0] == '\0' && Openings.find(InHead[1]) != std::string_view::npos &&
		InHead[2] == '\0' && InHead[3] != '\0')
	{
		return {"UTF-16BE", 0, {}};
	}
	return FindDeclared(InHead);
}

struct FDecodedSource::FConverters
{
	FConverter From;
	FConverter To;

	/** Raw bytes that were read and not taken yet. */
	std::array<char, 65536> Raw;
	const char* RawBegin = nullptr;
	const char* RawEnd = nullptr;
	bool bAtEnd = false;
	bool bFlushed = false;

	std::array<UChar, 8192> Pivot;
	UChar* PivotBegin = nullptr;
	UChar* PivotEnd = nullptr;
};

FDecodedSource::FDecodedSource(IByteSource& InSource, std::string InHead, const FTextEncoding& InEncoding)
	: Source(InSource)
	, Head(std::move(InHead))
	, HeadPlace(std::min(InEncoding.MarkSize, Head.size()))
{
	if (!InEncoding.Name.empty())
	{
		Converters = std::make_unique<FConverters>();
		Converters->From = OpenConverter(InEncoding.Name.c_str());
		Converters->To = OpenConverter("UTF-8");
		Converters->PivotBegin = Converters->PivotEnd = Converters->Pivot.data();
		if (!Converters->From || !Converters->To)
		{
			Converters.reset();
		}
	}
}

FDecodedSource::~FDecodedSource() = default;

std::size_t FDecodedSource::Read(char* OutData, std::size_t InSize)
{
	return Converters ? Convert(OutData, InSize) : ReadRaw(OutData, InSize);
}

std::size_t FDecodedSource::ReadRaw(char* OutData, std::size_t InSize)
{
	if (HeadPlace == Head.size())
	{
		return Source.Read(OutData, InSize);
	}
	const std::size_t Copied = Head.copy(OutData, InSize, HeadPlace);
	HeadPlace += Copied;
	return Copied;
}

std::size_t FDecodedSource::Convert(char* OutData, std::size_t InSize)
{
	FConverters& State = *Converters;
	char* Out = OutData;
	while (Out == OutData && !State.bFlushed)
	{
		if (State.RawBegin == State.RawEnd && !State.bAtEnd)
		{
			const std::size_t Read = ReadRaw(State.Raw.data(), State.Raw.size());
			State.RawBegin = State.Raw.data();
			State.RawEnd = State.RawBegin + Read;
			State.bAtEnd = Read == 0;
		}
		UErrorCode Error = U_ZERO_ERROR;
		ucnv_convertEx(State.To.get(), State.From.get(), &Out, OutData + InSize, &State.RawBegin, State.RawEnd,
					   State.Pivot.data(), &State.PivotBegin, &State.PivotEnd, State.Pivot.data() + State.Pivot.size(),
					   0, State.bAtEnd ? 1 : 0, &Error);
		if (Error != U_BUFFER_OVERFLOW_ERROR)
		{
			// What is wrong becomes U+FFFD, so that no error is left but the end's.
			State.bFlushed = State.bAtEnd || U_FAILURE(Error);
		}
	}
	return static_cast<std::size_t>(Out - OutData);
}

std::string DecodeHead(std::string_view InHead, const FTextEncoding& InEncoding)
{
	struct FNothing final : IByteSource
	{
		std::size_t Read(char*, std::size_t) override { return 0; }
	};
	FNothing Nothing;
	FDecodedSource Source(Nothing, std::string(InHead), InEncoding);
	std::string Text(InHead.size() * 3, '\0');
	std::size_t Size = 0;
	while (const std::size_t Read = Source.Read(Text.data() + Size, Text.size() - Size))
	{
		Size += Read;
	}
	Text.resize(Size);
	return Text;
}

} // namespace Flitmark
