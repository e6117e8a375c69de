#include "JsonDocument.h"
#include "JsonNumbers.h"
#include "JsonTextStream.h"

#include <algorithm>

namespace
{
TCHAR Fold(TCHAR Character)
{
	return Character >= u'A' && Character <= u'Z' ? static_cast<TCHAR>(Character + (u'a' - u'A')) : Character;
}
} // namespace

bool FJsonNameLess::operator()(std::u16string_view A, std::u16string_view B) const
{
	return std::ranges::lexicographical_compare(A, B, {}, Fold, Fold);
}

uint32 FJsonNames::Find(std::u16string_view Name)
{
	if (const uint32 Predicted = Predict(Name))
	{
		return Last = Predicted;
	}
	const auto Found = Ids.find(Name);
	return Found == Ids.end() ? None : Remember(Found->second);
}

uint32 FJsonNames::Add(std::u16string_view Name)
{
	if (const uint32 Known = Find(Name))
	{
		return Known;
	}
	const uint32 Id = static_cast<uint32>(Names.size());
	Names.push_back({.Text = Name});
	Ids.emplace(Name, Id);
	return Remember(Id);
}

uint32 FJsonNames::AddCopy(std::u16string_view Name)
{
	const uint32 Known = Find(Name);
	return Known != None ? Known : Add(Copies.emplace_back(Name));
}

EJson FJsonDocument::GetType(uint32 Word) const
{
	switch (GetTag(Word))
	{
	case ETag::Literal:
		return GetPayload(Word) == static_cast<uint32>(ELiteral::Null) ? EJson::Null : EJson::Boolean;
	case ETag::Integer:
	case ETag::Number:
		return EJson::Number;
	case ETag::String:
	case ETag::DecodedString:
		return EJson::String;
	case ETag::Array:
		return EJson::Array;
	case ETag::Object:
	case ETag::PlainObject:
		return EJson::Object;
	}
	return EJson::None;
}

uint32 FJsonDocument::FindMember(uint32 Object, std::u16string_view Name)
{
	const uint32 Id = Names.Find(Name);
	if (Id == FJsonNames::None)
	{
		return 0;
	}
	const uint32 End = GetEnd(Object);
	uint32& LastPlace = Names[Id].LastPlace;
	const bool bPlain = GetTag(Object) == ETag::PlainObject;
	if (bPlain && LastPlace != 0 && LastPlace < End - Object && GetName(Object + LastPlace) == Id)
	{
		return Object + LastPlace;
	}
	uint32 Found = 0;
	for (uint32 Word = GetFirst(Object); Word < End && !(bPlain && Found != 0); Word = GetNext(Word))
	{
		if (GetName(Word) == Id)
		{
			Found = Word;
		}
	}
	LastPlace = Found != 0 ? Found - Object : 0;
	return Found;
}

double FJsonDocument::GetNumber(uint32 Word) const
{
	if (GetTag(Word) == ETag::Integer)
	{
		return static_cast<int32>(GetPayload(Word));
	}
	return ParseDecimal(**Text + GetPayload(Word), GetTextEnd());
}

std::u16string_view FJsonDocument::GetString(uint32 Word) const
{
	if (GetTag(Word) == ETag::String)
	{
		const TCHAR* const Begin = **Text + GetPayload(Word);
		return std::u16string_view(Begin, FindStringStop(Begin, GetTextEnd()));
	}
	const TCHAR* const Decoded = DecodedStrings.data() + GetPayload(Word);
	return std::u16string_view(Decoded + 2,
							   static_cast<std::size_t>(Decoded[0]) | (static_cast<std::size_t>(Decoded[1]) << 16));
}
