#include "Stage/CommentDocument.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Files/FileText.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr int64 TicksPerSecond = 10'000'000;

/** As the overlay narrows numbers: toward zero, those beyond 32 bits to the nearest that fits. */
int32 Narrow(double InNumber)
{
	if (!(InNumber > static_cast<double>(MIN_int32)))
	{
		return MIN_int32;
	}
	return InNumber < static_cast<double>(MAX_int32) ? static_cast<int32>(InNumber) : MAX_int32;
}

/** Reads the keys of one comment and notes those that can't be read. */
class FEntryReader
{
public:
	FEntryReader(const FJsonObject& InObject, FCommentEntry& OutEntry)
		: Object(InObject)
		, Entry(OutEntry)
	{
	}

	int32 ReadNumber(ECommentKey InKey, FStringView InName)
	{
		double Number = 0.0;
		Note(InKey, InName, Object.TryGetNumberField(InName, Number));
		return Narrow(Number);
	}
	int64 ReadTicks(ECommentKey InKey, FStringView InName)
	{
		int64 Ticks = 0;
		Note(InKey, InName, Object.TryGetNumberField(InName, Ticks));
		return Ticks;
	}
	FString ReadText(ECommentKey InKey, FStringView InName)
	{
		FString Text;
		Note(InKey, InName, Object.TryGetStringField(InName, Text));
		return Text;
	}
	void ReadDate(ECommentKey InKey, FStringView InName)
	{
		FString Text;
		FDateTime Date;
		Note(InKey, InName, Object.TryGetStringField(InName, Text) && FDateTime::Parse(Text, Date));
	}

private:
	void Note(ECommentKey InKey, FStringView InName, bool bRead)
	{
		if (!bRead)
		{
			uint16& Mask = Object.HasField(InName) ? Entry.MistypedKeys : Entry.MissingKeys;
			Mask = static_cast<uint16>(Mask | 1u << static_cast<uint8>(InKey));
		}
	}

	const FJsonObject& Object;
	FCommentEntry& Entry;
};

constexpr FStringView SpawnTimeName = TEXT("danmaku_spawn_time");

FCommentEntry ReadEntry(const FJsonValue& InElement, std::u16string& OutTexts)
{
	FCommentEntry Entry;
	Entry.bIsObject = InElement.Type == EJson::Object;
	const TSharedPtr<FJsonObject> Object = InElement.AsObject();
	FEntryReader Reader(*Object, Entry);
	// The identifiers and the name are only looked at.
	Reader.ReadNumber(ECommentKey::DanmakuID, TEXT("danmaku_id"));
	Reader.ReadNumber(ECommentKey::PostID, TEXT("post_id"));
	Reader.ReadNumber(ECommentKey::UserID, TEXT("user_id"));
	Reader.ReadText(ECommentKey::UserDisplayName, TEXT("user_display_name"));
	Reader.ReadDate(ECommentKey::PostDate, TEXT("danmaku_post_date"));
	Entry.SpawnTicks = Reader.ReadTicks(ECommentKey::SpawnTime, SpawnTimeName);
	const FString Text = Reader.ReadText(ECommentKey::Content, TEXT("danmaku_content"));
	Entry.Mode = Reader.ReadNumber(ECommentKey::Mode, TEXT("danmaku_mode"));
	Entry.FontSize = Reader.ReadNumber(ECommentKey::FontSize, TEXT("danmaku_font_size"));
	Entry.Color = FColor::FromHex(Reader.ReadText(ECommentKey::FontColor, TEXT("danmaku_font_color")));
	Entry.TextBegin = static_cast<uint32>(OutTexts.size());
	Entry.TextLength = static_cast<uint32>(Text.Len());
	OutTexts += Text.GetStd();
	return Entry;
}

/** What the JSON reader says, less its end stop. */
FDocumentFault MakeSyntaxFault(const TJsonReader<TCHAR>& InReader)
{
	std::string Reason = ToUtf8(InReader.GetErrorMessage());
	if (Reason.ends_with('.'))
	{
		Reason.pop_back();
	}
	return {"not JSON: " + Reason, InReader.GetLineNumber(), InReader.GetCharacterNumber()};
}

/** The elements of "datas"; none with OutFault set where the text has no such list. */
TArray<TSharedPtr<FJsonValue>> FindElements(const FString& InText, std::optional<FDocumentFault>& OutFault)
{
	TSharedPtr<FJsonValue> Root;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(InText);
	if (!FJsonSerializer::Deserialize(Reader, Root))
	{
		OutFault = MakeSyntaxFault(*Reader);
		return {};
	}
	const TSharedPtr<FJsonValue> Comments = Root->AsObject()->TryGetField(TEXT("datas"));
	if (!Comments.IsValid())
	{
		OutFault = FDocumentFault{"it has no list of comments named \"datas\""};
		return {};
	}
	if (Comments->Type != EJson::Array)
	{
		OutFault = FDocumentFault{"its \"datas\" is no list of comments"};
	}
	return Comments->AsArray();
}

} // namespace

std::string_view ToText(ECommentKey InKey)
{
	switch (InKey)
	{
	case ECommentKey::DanmakuID:
		return "danmaku_id";
	case ECommentKey::PostID:
		return "post_id";
	case ECommentKey::UserID:
		return "user_id";
	case ECommentKey::UserDisplayName:
		return "user_display_name";
	case ECommentKey::PostDate:
		return "danmaku_post_date";
	case ECommentKey::SpawnTime:
		return "danmaku_spawn_time";
	case ECommentKey::Content:
		return "danmaku_content";
	case ECommentKey::Mode:
		return "danmaku_mode";
	case ECommentKey::FontSize:
		return "danmaku_font_size";
	case ECommentKey::FontColor:
		return "danmaku_font_color";
	case ECommentKey::Num:
		break;
	}
	return {};
}

int64 FCommentEntry::GetSecond() const
{
	return SpawnTicks / TicksPerSecond;
}

FCommentDocument FCommentDocument::Read(const FString& InText)
{
	FCommentDocument Document;
	const TArray<TSharedPtr<FJsonValue>> Elements = FindElements(InText, Document.Fault);
	Document.Entries.reserve(static_cast<std::size_t>(Elements.Num()));
	for (const TSharedPtr<FJsonValue>& Element : Elements)
	{
		Document.Entries.push_back(ReadEntry(*Element, Document.Texts));
	}
	return Document;
}

std::optional<int64> FCommentDocument::GetLastSecond() const
{
	std::optional<int64> Last;
	for (const FCommentEntry& Entry : Entries)
	{
		if (Entry.IsReached())
		{
			Last = std::max(Last.value_or(0), Entry.GetSecond());
		}
	}
	return Last;
}

int64 FindLastSecond(const FString& InText)
{
	std::optional<FDocumentFault> Fault;
	int64 Last = -1;
	for (const TSharedPtr<FJsonValue>& Element : FindElements(InText, Fault))
	{
		FCommentEntry Entry;
		Element->AsObject()->TryGetNumberField(SpawnTimeName, Entry.SpawnTicks);
		if (Entry.IsReached())
		{
			Last = std::max(Last, Entry.GetSecond());
		}
	}
	return Last;
}

} // namespace Flitmark
