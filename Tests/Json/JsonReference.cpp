#include "JsonReference.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonSerializer.h"

// Half a surrogate pair is to be compared here, and is no reason to abort.
#define RAPIDJSON_ASSERT(Condition) static_cast<void>(Condition)
#include <rapidjson/document.h>

#include <algorithm>
#include <cmath>

namespace
{
using FEncoding = rapidjson::UTF16<TCHAR>;
using FReferenceDocument = rapidjson::GenericDocument<FEncoding>;
using FReferenceValue = rapidjson::GenericValue<FEncoding>;

std::u16string GetText(const FReferenceValue& Value)
{
	return std::u16string(Value.GetString(), Value.GetStringLength());
}

/** The reference's numbers are off in the last few digits, and in more of them close to the smallest double. */
bool IsClose(double A, double B)
{
	return A == B || std::abs(A - B) <= std::abs(B) * 1e-14 + 1e-300;
}

std::string Compare(const FJsonValue& Value, const FReferenceValue& Reference);

std::string CompareMembers(const FJsonObject& Object, const FReferenceValue& Reference)
{
	std::string Difference;
	for (auto Member = Reference.MemberBegin(); Member != Reference.MemberEnd() && Difference.empty(); ++Member)
	{
		const FString Name{GetText(Member->name)};
		const FReferenceValue* Last = nullptr;
		for (auto Other = Reference.MemberBegin(); Other != Reference.MemberEnd(); ++Other)
		{
			Last = FString(GetText(Other->name)) == Name ? &Other->value : Last;
		}
		const TSharedPtr<FJsonValue> Found = Object.TryGetField(Name);
		Difference = Found.IsValid() ? Compare(*Found, *Last) : "a member is missing";
	}
	return Difference;
}

std::string CompareElements(const TArray<TSharedPtr<FJsonValue>>& Elements, const FReferenceValue& Reference)
{
	if (Elements.Num() != static_cast<int32>(Reference.Size()))
	{
		return "an array's length";
	}
	std::string Difference;
	for (int32 Index = 0; Index < Elements.Num() && Difference.empty(); ++Index)
	{
		Difference = Compare(*Elements[Index], Reference[static_cast<rapidjson::SizeType>(Index)]);
	}
	return Difference;
}

std::string Compare(const FJsonValue& Value, const FReferenceValue& Reference)
{
	switch (Value.Type)
	{
	case EJson::Null:
		return Reference.IsNull() ? "" : "null";
	case EJson::Boolean:
		return Reference.IsBool() && Reference.GetBool() == (Value.AsNumber() != 0.0) ? "" : "a boolean";
	case EJson::Number:
		return Reference.IsNumber() && IsClose(Value.AsNumber(), Reference.GetDouble()) ? "" : "a number";
	case EJson::String:
		return Reference.IsString() && Value.AsString().GetStd() == GetText(Reference) ? "" : "a string";
	case EJson::Array:
		return Reference.IsArray() ? CompareElements(Value.AsArray(), Reference) : "an array";
	case EJson::Object:
		return Reference.IsObject() ? CompareMembers(*Value.AsObject(), Reference) : "an object";
	case EJson::None:
		break;
	}
	return "a value without a type";
}
} // namespace

std::string CompareWithReference(const FString& Text)
{
	TSharedPtr<FJsonValue> Value;
	const bool bAccepted = FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(Text), Value);

	FReferenceDocument Reference;
	rapidjson::GenericStringStream<FEncoding> Stream(*Text);
	Reference.ParseStream<rapidjson::kParseIterativeFlag>(Stream);
	if (Reference.GetParseError() == rapidjson::kParseErrorNumberTooBig ||
		Reference.GetParseError() == rapidjson::kParseErrorStringUnicodeSurrogateInvalid)
	{
		return "";
	}
	const bool bExpected = !Reference.HasParseError() && Stream.Tell() == static_cast<std::size_t>(Text.Len()) &&
						   (Reference.IsObject() || Reference.IsArray());
	if (bAccepted != bExpected)
	{
		return bAccepted ? "accepted, but not by the reference" : "refused, but not by the reference";
	}
	return bAccepted ? Compare(*Value, Reference) : "";
}
