#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "JsonValueBlock.h"

uint32 FJsonObject::Find(FStringView FieldName) const
{
	return Block != nullptr && Block->Document->IsObject(Word) ? Block->Document->FindMember(Word, FieldName) : 0;
}

FJsonValue FJsonObject::GetField(FStringView FieldName) const
{
	const uint32 Member = Find(FieldName);
	return FJsonValue(Member != 0 ? Block->Document->GetType(Member) : EJson::None, Block, Member);
}

bool FJsonObject::HasField(FStringView FieldName) const
{
	return Find(FieldName) != 0;
}

TSharedPtr<FJsonValue> FJsonObject::TryGetField(FStringView FieldName) const
{
	const uint32 Member = Find(FieldName);
	return Member != 0 ? FJsonValueBlock::MakeValue(Block->Document, Member) : TSharedPtr<FJsonValue>();
}

double FJsonObject::GetNumberField(FStringView FieldName) const
{
	return GetField(FieldName).AsNumber();
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, double& OutNumber) const
{
	return GetField(FieldName).TryGetNumber(OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int64& OutNumber) const
{
	return GetField(FieldName).TryGetNumber(OutNumber);
}

FString FJsonObject::GetStringField(FStringView FieldName) const
{
	return GetField(FieldName).AsString();
}

bool FJsonObject::TryGetStringField(FStringView FieldName, FString& OutString) const
{
	return GetField(FieldName).TryGetString(OutString);
}

TArray<TSharedPtr<FJsonValue>> FJsonObject::GetArrayField(FStringView FieldName) const
{
	return GetField(FieldName).AsArray();
}

TSharedPtr<FJsonObject> FJsonObject::GetObjectField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue> Value = TryGetField(FieldName);
	return Value.IsValid() ? Value->AsObject() : MakeShared<FJsonObject>();
}
