#include "HAL/LargePages.h"
#include "JsonDocument.h"
#include "JsonTextStream.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <limits>

/** Writes a document's tape as RapidJSON calls. */
class FJsonDocumentBuilder
{
public:
	using ETag = FJsonDocument::ETag;

	/** Stops beyond MaxDepth levels of nesting. */
	FJsonDocumentBuilder(FJsonDocument& InDocument, FJsonTextStream& InStream, std::size_t InMaxDepth)
		: Document(InDocument)
		, Stream(InStream)
		, MaxDepth(InMaxDepth)
	{
		// Room for one value per 20 characters. What isn't written to takes only address space.
		Document.Tape.reserve(static_cast<std::size_t>(Document.Text->Len()) / 20);
		PreferLargePages(Document.Tape.data(), Document.Tape.capacity() * sizeof(uint64));
	}

	bool Null() { return AddLiteral(FJsonDocument::ELiteral::Null); }
	bool Bool(bool bValue)
	{
		return AddLiteral(bValue ? FJsonDocument::ELiteral::True : FJsonDocument::ELiteral::False);
	}
	bool Int(int32) { return AddNumber(); }
	bool Uint(uint32) { return AddNumber(); }
	bool Int64(std::int64_t) { return AddNumber(); }
	bool Uint64(std::uint64_t) { return AddNumber(); }
	bool Double(double) { return AddNumber(); }
	bool RawNumber(const TCHAR*, uint32, bool) { return AddNumber(); }

	bool String(const TCHAR* Decoded, uint32 Length, bool)
	{
		Stream.CloseString();
		if (Stream.IsStringPlain())
		{
			return Add(ETag::String, Stream.GetOffset(Stream.GetStringBegin()));
		}
		std::u16string& Strings = Document.DecodedStrings;
		const uint32 Offset = static_cast<uint32>(Strings.size());
		Strings.push_back(static_cast<TCHAR>(Length & 0xFFFF));
		Strings.push_back(static_cast<TCHAR>(Length >> 16));
		Strings.append(Decoded, Length);
		return Add(ETag::DecodedString, Offset);
	}

	bool Key(const TCHAR* Decoded, uint32 Length, bool)
	{
		Stream.CloseString();
		PendingName = Stream.IsStringPlain()
						  ? Document.Names.Add(std::u16string_view(Stream.GetStringBegin(), Stream.GetStringEnd()))
						  : Document.Names.AddCopy(std::u16string_view(Decoded, Length));
		// A nested object already makes its outer objects not plain, so it is enough to remember the last object with a
		// name.
		FOpenContainer& Object = Open.back();
		uint32& LastObject = Document.Names[PendingName].LastObject;
		Object.bPlain = Object.bPlain && LastObject != Object.Word + 1;
		LastObject = Object.Word + 1;
		return true;
	}

	bool StartObject()
	{
		if (!Open.empty())
		{
			Open.back().bPlain = false;
		}
		return OpenContainer(ETag::Object);
	}
	bool EndObject(uint32) { return CloseContainer(ETag::PlainObject); }
	bool StartArray() { return OpenContainer(ETag::Array); }
	bool EndArray(uint32) { return CloseContainer(ETag::Array); }

private:
	struct FOpenContainer
	{
		uint32 Word;
		bool bPlain;
	};

	bool Add(ETag Tag, uint32 Payload)
	{
		Document.Tape.push_back(static_cast<uint64>(Payload) << 32 | PendingName << 3 | static_cast<uint64>(Tag));
		PendingName = FJsonNames::None;
		return true;
	}
	bool AddLiteral(FJsonDocument::ELiteral Literal) { return Add(ETag::Literal, static_cast<uint32>(Literal)); }
	bool AddNumber()
	{
		// Short whole numbers, the most common kind, are converted while the text is in the cache.
		constexpr std::ptrdiff_t MaxDigits = 9;
		const TCHAR* const Begin = Stream.FindNumberBegin();
		const TCHAR* const End = Stream.GetCurrent();
		uint32 Integer = 0;
		const TCHAR* At = Begin;
		for (; At != End && End - Begin <= MaxDigits && *At >= u'0' && *At <= u'9'; ++At)
		{
			Integer = Integer * 10 + (*At - u'0');
		}
		return At == End ? Add(ETag::Integer, Integer) : Add(ETag::Number, Stream.GetOffset(Begin));
	}

	bool OpenContainer(ETag Tag)
	{
		Open.push_back({static_cast<uint32>(Document.Tape.size()), true});
		return Add(Tag, 0) && Open.size() <= MaxDepth;
	}
	bool CloseContainer(ETag TagIfPlain)
	{
		const FOpenContainer Closed = Open.back();
		Open.pop_back();
		uint64& Word = Document.Tape[Closed.Word];
		Word |= static_cast<uint64>(Document.Tape.size()) << 32;
		if (Closed.bPlain)
		{
			Word |= static_cast<uint64>(TagIfPlain);
		}
		else if (!Open.empty())
		{
			Open.back().bPlain = false;
		}
		return true;
	}

	FJsonDocument& Document;
	FJsonTextStream& Stream;
	const std::size_t MaxDepth;
	std::vector<FOpenContainer> Open;
	uint32 PendingName = FJsonNames::None;
};

namespace
{
/** Parser is a flag of RapidJSON. */
template <unsigned Parser>
std::shared_ptr<FJsonDocument> ReadBy(const std::shared_ptr<const FString>& Text, std::size_t MaxDepth,
									  rapidjson::ParseResult& OutResult)
{
	auto Document = std::make_shared<FJsonDocument>(Text);
	FJsonTextStream Stream(*Text);
	FJsonDocumentBuilder Builder(*Document, Stream, MaxDepth);
	rapidjson::GenericReader<rapidjson::UTF16<TCHAR>, rapidjson::UTF16<TCHAR>> Reader;
	OutResult = Reader.Parse<Parser>(Stream, Builder);
	// RapidJSON treats a NUL as the end.
	if (!OutResult.IsError() && !Stream.IsAtEnd())
	{
		OutResult.Set(rapidjson::kParseErrorDocumentRootNotSingular, Stream.Tell());
	}
	return Document;
}
} // namespace

std::shared_ptr<FJsonDocument> FJsonDocument::Read(std::shared_ptr<const FString> Text, const char*& OutError,
												   uint32& OutErrorOffset)
{
	// RapidJSON's recursive parser is a sixth faster, but only the iterative one is safe at any depth.
	constexpr std::size_t MaxRecursion = 64;
	rapidjson::ParseResult Result;
	std::shared_ptr<FJsonDocument> Document = ReadBy<rapidjson::kParseNoFlags>(Text, MaxRecursion, Result);
	if (Result.Code() == rapidjson::kParseErrorTermination)
	{
		Document = ReadBy<rapidjson::kParseIterativeFlag>(Text, std::numeric_limits<std::size_t>::max(), Result);
	}
	if (Result.IsError())
	{
		OutError = rapidjson::GetParseError_En(Result.Code());
		OutErrorOffset = static_cast<uint32>(Result.Offset());
		return nullptr;
	}
	if (Document->GetTag(0) < ETag::Array)
	{
		OutError = "The document is neither an object nor an array.";
		OutErrorOffset = 0;
		return nullptr;
	}
	return Document;
}
