#include "JsonValueReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <rapidjson/document.h>
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

/** Builds a tree, of no more than MaxDepth levels. */
class FTreeHandler
{
public:
	using Ch = char;

	explicit FTreeHandler(Document& OutTree)
		: Tree(OutTree)
	{
	}

	bool Null() { return Tree.Null(); }
	bool Bool(bool bInValue) { return Tree.Bool(bInValue); }
	bool Int(int) { return false; }
	bool Uint(unsigned) { return false; }
	bool Int64(int64) { return false; }
	bool Uint64(uint64) { return false; }
	bool Double(double) { return false; }
	bool RawNumber(const char* InText, SizeType InLength, bool) { return Tree.String(InText, InLength, true); }
	bool String(const char* InText, SizeType InLength, bool) { return Tree.String(InText, InLength, true); }
	bool Key(const char* InText, SizeType InLength, bool) { return Tree.Key(InText, InLength, true); }
	bool StartObject() { return ++Depth <= MaxDepth && Tree.StartObject(); }
	bool EndObject(SizeType InNum)
	{
		--Depth;
		return Tree.EndObject(InNum);
	}
	bool StartArray() { return ++Depth <= MaxDepth && Tree.StartArray(); }
	bool EndArray(SizeType InNum)
	{
		--Depth;
		return Tree.EndArray(InNum);
	}

	const char* GetRefusal() const { return Depth > MaxDepth ? "it is nested too deeply" : nullptr; }

private:
	Document& Tree;
	std::size_t Depth = 0;
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
	/** The fields of the value at a text's start. OutRefusal: why the schema's side stopped the reading. */
	ParseResult ReadFields(StringStream& InOutText, IJsonSchema& OutSchema, const char*& OutRefusal)
	{
		FFieldHandler Handler(OutSchema);
		const ParseResult Result = Parser.Parse<Flags>(InOutText, Handler);
		OutRefusal = Handler.GetRefusal();
		return Result;
	}

	/** The same as a tree. */
	ParseResult ReadTree(StringStream& InOutText, IJsonSchema& OutSchema, const char*& OutRefusal)
	{
		ParseResult Result;
		const auto Build = [&](Document& OutTree)
		{
			FTreeHandler Handler(OutTree);
			Result = Parser.Parse<Flags>(InOutText, Handler);
			OutRefusal = Handler.GetRefusal();
			return !Result.IsError();
		};
		Tree.reset();
		TreeMemory.Clear();
		Tree.emplace(&TreeMemory);
		Tree->Populate(Build);
		if (!Result.IsError())
		{
			OutSchema.OnTree(FJsonView(static_cast<const Value*>(&*Tree)));
		}
		return Result;
	}

	Reader Parser;
	/** What most entries need, so that they cost no allocation. */
	std::array<char, std::size_t{64} << 10> FirstMemory;
	MemoryPoolAllocator<> TreeMemory{FirstMemory.data(), FirstMemory.size()};
	std::optional<Document> Tree;
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
	const char* Refusal = nullptr;
	StringStream Stream(InText.data());
	const ParseResult Result = OutSchema.WantsTree() ? Implementation->ReadTree(Stream, OutSchema, Refusal)
													 : Implementation->ReadFields(Stream, OutSchema, Refusal);
	const std::size_t End = Stream.Tell();
	if (!Result.IsError())
	{
		// A number goes on as long as there are digits.
		const bool bMayGoOn = End == InText.size() && InText[End - 1] != '}' && InText[End - 1] != ']';
		return {bMayGoOn ? EOutcome::Cut : EOutcome::Whole, End};
	}
	if (Result.Code() == kParseErrorTermination)
	{
		return {EOutcome::Damaged, End, Refusal};
	}
	const bool bAtEnd = End + Nearness >= InText.size();
	const bool bInString = IsAboutString(Result.Code());
	return {bAtEnd ? EOutcome::Cut : EOutcome::Damaged, End,
			bInString ? "a string in it is not valid JSON" : GetParseError_En(Result.Code()), bInString};
}

} // namespace Flitmark
