#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"
#include "Serialization/JsonTypes.h"

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/** Orders names, ignoring the case of ASCII letters. */
struct FJsonNameLess
{
	bool operator()(std::u16string_view A, std::u16string_view B) const;
};

/**
 * A document's distinct member names. Names tend to recur in the same order, both when a document is read and when its
 * members are looked up, so each name remembers its successor, which is tried first.
 */
class FJsonNames
{
public:
	/** No name has this id. */
	static constexpr uint32 None = 0;

	/** The name's id; adds the name if it's new. The characters must stay valid; use AddCopy for those that don't. */
	uint32 Add(std::u16string_view Name);
	uint32 AddCopy(std::u16string_view Name);
	/** The name's id, or None. */
	uint32 Find(std::u16string_view Name);

	struct FName
	{
		std::u16string_view Text;
		uint32 Successor = None;
		/** The object in which the name was last read. */
		uint32 LastObject = 0;
		/** How far after its object's word the member was last found. */
		uint32 LastPlace = 0;
	};
	FName& operator[](uint32 Id) { return Names[Id]; }

private:
	/** The successor of the last name returned, if it's this name; else None. */
	uint32 Predict(std::u16string_view Name) const
	{
		const uint32 Id = Names[Last].Successor;
		const std::u16string_view Text = Names[Id].Text;
		// The standard library compares 16-bit strings character by character, but equal ranges of integers by memcmp.
		return std::equal(Text.begin(), Text.end(), Name.begin(), Name.end()) ? Id : None;
	}
	uint32 Remember(uint32 Id)
	{
		Names[Last].Successor = Id;
		return Last = Id;
	}

	/** The first one is None. */
	std::vector<FName> Names = std::vector<FName>(1);
	std::map<std::u16string_view, uint32, FJsonNameLess> Ids;
	/** Names that don't appear verbatim in the text. */
	std::deque<std::u16string> Copies;
	uint32 Last = None;
};

/**
 * A parsed document: a tape of 8 bytes per value, in document order. A container's word is followed by those of its
 * contents and says where they end; strings and numbers stay in the text until they are asked for.
 */
class FJsonDocument
{
public:
	enum class ETag : uint8
	{
		/** Payload: an ELiteral. */
		Literal,
		/** A whole number; payload: its value as int32. */
		Integer,
		/** Any other number; payload: its offset in the text. */
		Number,
		/** Payload: offset in the text, after the quote; there are no escapes. */
		String,
		/** Payload: offset in the decoded strings. */
		DecodedString,
		/** Payload, as for the other containers: the word after the container's last one. */
		Array,
		Object,
		/** An object that contains no objects, not even in arrays, and whose names are all different. */
		PlainObject,
	};

	enum class ELiteral : uint8
	{
		Null,
		False,
		True,
	};

	/** An empty document for a text, still to be built. */
	explicit FJsonDocument(std::shared_ptr<const FString> InText)
		: Text(std::move(InText))
	{
	}

	/** Reads a text; null if it isn't one JSON object or array. The outputs then say why, and where in the text. */
	static std::shared_ptr<FJsonDocument> Read(std::shared_ptr<const FString> Text, const char*& OutError,
											   uint32& OutErrorOffset);

	EJson GetType(uint32 Word) const;
	bool IsObject(uint32 Word) const { return GetTag(Word) >= ETag::Object; }
	/** The word of an object's member; 0, which is never a member's, if there is none. */
	uint32 FindMember(uint32 Object, std::u16string_view Name);
	/** The first word of a container's contents and the one past the last; step with GetNext. */
	uint32 GetFirst(uint32 Container) const { return Container + 1; }
	uint32 GetEnd(uint32 Container) const { return GetPayload(Container); }
	uint32 GetNext(uint32 Word) const { return GetTag(Word) >= ETag::Array ? GetPayload(Word) : Word + 1; }

	bool GetBoolean(uint32 Word) const { return GetPayload(Word) == static_cast<uint32>(ELiteral::True); }
	double GetNumber(uint32 Word) const;
	std::u16string_view GetString(uint32 Word) const;

private:
	friend class FJsonDocumentBuilder;

	ETag GetTag(uint32 Word) const { return static_cast<ETag>(Tape[Word] & 7); }
	uint32 GetName(uint32 Word) const { return static_cast<uint32>(Tape[Word]) >> 3; }
	uint32 GetPayload(uint32 Word) const { return static_cast<uint32>(Tape[Word] >> 32); }
	const TCHAR* GetTextEnd() const { return **Text + Text->Len(); }

	std::shared_ptr<const FString> Text;
	/** A word: 3 bits of tag, 29 for the id of the member's name (None for anything but a member), 32 of payload. */
	std::vector<uint64> Tape;
	FJsonNames Names;
	/** Strings that had escapes, each after its length in two units, low unit first. */
	std::u16string DecodedStrings;
};
