#include "Serialization/JsonSerializer.h"
#include "JsonValueBlock.h"

#include <algorithm>
#include <string_view>
#include <tuple>

namespace
{
/** The line and character, both from 1, of an offset in a text. */
std::pair<uint32, uint32> Locate(const FString& Text, uint32 Offset)
{
	const std::u16string_view Before = FStringView(Text).substr(0, Offset);
	const std::size_t LineBegin = Before.find_last_of(u'\n') + 1;
	return {static_cast<uint32>(std::ranges::count(Before, u'\n')) + 1,
			static_cast<uint32>(Before.size() - LineBegin) + 1};
}
} // namespace

bool FJsonSerializer::Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TSharedPtr<FJsonValue>& OutValue)
{
	const char* Error = "";
	uint32 ErrorOffset = 0;
	const std::shared_ptr<FJsonDocument> Document = FJsonDocument::Read(Reader->Text, Error, ErrorOffset);
	const std::string_view Message(Error);
	Reader->ErrorMessage = FString(std::u16string(Message.begin(), Message.end()));
	if (Document == nullptr)
	{
		std::tie(Reader->LineNumber, Reader->CharacterNumber) = Locate(*Reader->Text, ErrorOffset);
		return false;
	}
	OutValue = FJsonValueBlock::MakeValue(Document, 0);
	return true;
}

bool FJsonSerializer::Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TSharedPtr<FJsonObject>& OutObject)
{
	TSharedPtr<FJsonValue> Value;
	if (!Deserialize(Reader, Value) || Value->Type != EJson::Object)
	{
		return false;
	}
	OutObject = Value->AsObject();
	return true;
}

bool FJsonSerializer::Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader,
								  TArray<TSharedPtr<FJsonValue>>& OutArray)
{
	TSharedPtr<FJsonValue> Value;
	if (!Deserialize(Reader, Value) || Value->Type != EJson::Array)
	{
		return false;
	}
	OutArray = Value->AsArray();
	return true;
}
