#include "Dom/JsonValue.h"
#include "HAL/LargePages.h"
#include "JsonNumbers.h"
#include "JsonValueBlock.h"

#include <cmath>

TSharedPtr<FJsonValue> FJsonValueBlock::MakeValue(const std::shared_ptr<FJsonDocument>& Document, uint32 Word)
{
	const auto Block = std::make_shared<FJsonValueBlock>(Document);
	Block->Add(Word);
	return Block->Share(Block->Values.front());
}

TArray<TSharedPtr<FJsonValue>> FJsonValueBlock::MakeArray(const std::shared_ptr<FJsonDocument>& Document, uint32 Array)
{
	const auto Block = std::make_shared<FJsonValueBlock>(Document);
	const uint32 End = Document->GetEnd(Array);
	std::size_t Count = 0;
	for (uint32 Word = Document->GetFirst(Array); Word < End; Word = Document->GetNext(Word))
	{
		++Count;
	}
	// Exact, since values must not move.
	Block->Values.reserve(Count);
	TArray<TSharedPtr<FJsonValue>> Elements;
	Elements.Reserve(static_cast<int32>(Count));
	PreferLargePages(Block->Values.data(), Count * sizeof(FJsonValue));
	PreferLargePages(Elements.GetData(), Count * sizeof(TSharedPtr<FJsonValue>));
	for (uint32 Word = Document->GetFirst(Array); Word < End; Word = Document->GetNext(Word))
	{
		Block->Add(Word);
		Elements.Add(std::shared_ptr<FJsonValue>(Block, &Block->Values.back()));
	}
	return Elements;
}

bool FJsonValue::TryGetNumber(double& OutNumber) const
{
	FString String;
	switch (Type)
	{
	case EJson::Number:
		OutNumber = Members.Block->Document->GetNumber(Members.Word);
		return true;
	case EJson::Boolean:
		OutNumber = Members.Block->Document->GetBoolean(Members.Word) ? 1.0 : 0.0;
		return true;
	case EJson::String:
		String = AsString();
		if (!String.IsNumeric())
		{
			return false;
		}
		OutNumber = ParseDecimal(*String + (String[0] == u'+' ? 1 : 0), *String + String.Len());
		return true;
	default:
		return false;
	}
}

bool FJsonValue::TryGetNumber(int64& OutNumber) const
{
	// 2^63 is the double nearest to int64's largest value and stands in for it.
	constexpr double Limit = 9223372036854775808.0;
	double Number = 0.0;
	if (!TryGetNumber(Number) || !(Number >= -Limit && Number <= Limit))
	{
		return false;
	}
	OutNumber = Number == Limit ? MAX_int64 : static_cast<int64>(std::round(Number));
	return true;
}

bool FJsonValue::TryGetString(FString& OutString) const
{
	switch (Type)
	{
	case EJson::String:
		OutString = FString(FStringView(Members.Block->Document->GetString(Members.Word)));
		return true;
	case EJson::Number:
		OutString = FormatDecimal(Members.Block->Document->GetNumber(Members.Word));
		return true;
	case EJson::Boolean:
		OutString = Members.Block->Document->GetBoolean(Members.Word) ? TEXT("true") : TEXT("false");
		return true;
	default:
		return false;
	}
}

double FJsonValue::AsNumber() const
{
	double Number = 0.0;
	TryGetNumber(Number);
	return Number;
}

FString FJsonValue::AsString() const
{
	FString String;
	TryGetString(String);
	return String;
}

TArray<TSharedPtr<FJsonValue>> FJsonValue::AsArray() const
{
	return Type == EJson::Array ? FJsonValueBlock::MakeArray(Members.Block->Document, Members.Word)
								: TArray<TSharedPtr<FJsonValue>>();
}

TSharedPtr<FJsonObject> FJsonValue::AsObject() const
{
	return Members.Block->Share(Members);
}
