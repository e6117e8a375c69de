#include "JsonValueReader.h"

#include <algorithm>
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace Flitmark
{

namespace
{

using namespace rapidjson;

/** Deeper values are refused: reading is recursive. */
constexpr std::size_t MaxDepth = 64;

/** Passes on the values directly in an entry, in lists in it, in its member "chat", and in a row's objects. */
class FFieldHandler
{
public:
	using Ch = char;

	explicit FFieldHandler(IJsonSchema& InSchema)
		: Schema(InSchema)
	{
	}

	bool Null() { return OnValue(EJsonValue::Null, {}); }
	bool Bool(bool bInValue) { return OnValue(EJsonValue::Boolean, bInValue ? "true" : "false"); }
	bool Int(int) { return false; }
	bool Uint(unsigned) { return false; }
	bool Int64(int64) { return false; }
	bool Uint64(uint64) { return false; }
	bool Double(double) { return false; }
	bool RawNumber(const char* InText, SizeType InLength, bool)
	{
		return OnValue(EJsonValue::Number, {InText, InLength});
	}
	bool String(const char* InText, SizeType InLength, bool) { return OnValue(EJsonValue::String, {InText, InLength}); }

	bool Key(const char* InText, SizeType InLength, bool)
	{
		if (Depth == FieldDepth)
		{
			// Longer than any known name.
			KeySize = InLength <= sizeof(KeyText) ? InLength : 0;
			std::copy_n(InText, KeySize, KeyText);
		}
		return true;
	}

	bool StartObject()
	{
		const bool bWrapped =
			Depth == 1 && FieldDepth == 1 && (bEntryIsList || std::string_view(KeyText, KeySize) == "chat");
		FieldDepth += bWrapped ? 1 : 0;
		return Enter(false);
	}
	bool EndObject(SizeType) { return Leave(); }
	bool StartArray() { return Enter(true); }
	bool EndArray(SizeType) { return Leave(); }

	/** Why the handler stopped the reading. */
	const char* GetRefusal() const { return Refusal; }

private:
	bool Enter(bool bInList)
	{
		if (Depth == 0)
		{
			bEntryIsList = bInList;
		}
		++Depth;
		ListDepth = bInList && Depth == FieldDepth + 1 ? Depth : ListDepth;
		if (bEntryIsList && bInList && Depth == 2 && Schema.HasListEntries())
		{
			Refusal = "another list begins inside it";
		}
		else if (Depth > MaxDepth)
		{
			Refusal = "it is nested too deeply";
		}
		return Refusal == nullptr;
	}

	bool Leave()
	{
		ListDepth = ListDepth == Depth ? 0 : ListDepth;
		--Depth;
		FieldDepth = std::min(FieldDepth, std::max<std::size_t>(Depth, 1));
		Index += Depth == 1 ? 1 : 0;
		return true;
	}

	bool OnValue(EJsonValue InType, std::string_view InText)
	{
		const bool bUnnamed = bEntryIsList && Depth == 1;
		// In a row's object a name that is too long does not pass for none.
		const bool bUnknown = bEntryIsList && !bUnnamed && KeySize == 0;
		if ((Depth == FieldDepth || Depth == ListDepth) && !bUnknown)
		{
			Schema.OnField({{KeyText, bUnnamed ? 0 : KeySize}, Index, InType, Depth == ListDepth, InText});
			Index += Depth == 1 ? 1 : 0;
		}
		return true;
	}

	IJsonSchema& Schema;
	const char* Refusal = nullptr;
	std::size_t Depth = 0;

	/** How deep the members are that count, and a list among them that is just read; 0 for none. */
	std::size_t FieldDepth = 1;
	std::size_t ListDepth = 0;

	bool bEntryIsList = false;
	std::size_t Index = 0;
	char KeyText[32] = {};
	std::size_t KeySize = 0;
};

constexpr unsigned Flags = kParseStopWhenDoneFlag | kParseNumbersAsStringsFlag | kParseCommentsFlag |
						   kParseTrailingCommasFlag | kParseNanAndInfFlag;

bool IsAboutString(ParseErrorCode InCode)
{
	return InCode == kParseErrorStringEscapeInvalid || InCode == kParseErrorStringInvalidEncoding ||
		   InCode == kParseErrorStringMissQuotationMark || InCode == kParseErrorStringUnicodeEscapeInvalidHex ||
		   InCode == kParseErrorStringUnicodeSurrogateInvalid;
}

} // namespace

struct FJsonValueReader::FImplementation
{
	Reader Parser;
};

FJsonValueReader::FJsonValueReader()
	: Implementation(std::make_unique<FImplementation>())
{
}

FJsonValueReader::~FJsonValueReader() = default;

FJsonValueReader::FRead FJsonValueReader::Read(std::string_view InText, IJsonSchema& OutSchema)
{
	// An error this close to the end may come from what is missing there.
	constexpr std::size_t Nearness = 16;
	OutSchema.Begin();
	FFieldHandler Handler(OutSchema);
	StringStream Stream(InText.data());
	const ParseResult Result = Implementation->Parser.Parse<Flags>(Stream, Handler);
	const std::size_t End = Stream.Tell();
	if (!Result.IsError())
	{
		// A number goes on as long as there are digits.
		const bool bMayGoOn = End == InText.size() && InText[End - 1] != '}' && InText[End - 1] != ']';
		return {bMayGoOn ? EOutcome::Cut : EOutcome::Whole, End};
	}
	if (Result.Code() == kParseErrorTermination)
	{
		return {EOutcome::Damaged, End, Handler.GetRefusal()};
	}
	const bool bAtEnd = End + Nearness >= InText.size();
	const bool bInString = IsAboutString(Result.Code());
	return {bAtEnd ? EOutcome::Cut : EOutcome::Damaged, End,
			bInString ? "a string in it is not valid JSON" : GetParseError_En(Result.Code()), bInString};
}

} // namespace Flitmark
