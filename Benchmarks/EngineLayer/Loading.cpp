#include "Loading.h"
#include "Math/UnrealMathUtility.h"
#include "Misc/FileHelper.h"
#include "Serialization/JsonSerializer.h"

namespace
{
FRecord ReadRecord(const FJsonObject& Comment)
{
	FRecord Record;
	Record.DanmakuID = FMath::TruncToInt32(Comment.GetNumberField(TEXT("danmaku_id")));
	Record.PostID = FMath::TruncToInt32(Comment.GetNumberField(TEXT("post_id")));
	Record.UserID = FMath::TruncToInt32(Comment.GetNumberField(TEXT("user_id")));
	Record.UserDisplayName = Comment.GetStringField(TEXT("user_display_name"));
	FDateTime::Parse(Comment.GetStringField(TEXT("danmaku_post_date")), Record.PostDate);
	int64 Ticks = 0;
	Comment.TryGetNumberField(TEXT("danmaku_spawn_time"), Ticks);
	Record.SpawnTime = FTimespan(Ticks);
	Record.Content = Comment.GetStringField(TEXT("danmaku_content"));
	Record.Mode = FMath::TruncToInt32(Comment.GetNumberField(TEXT("danmaku_mode")));
	Record.FontSize = FMath::TruncToInt32(Comment.GetNumberField(TEXT("danmaku_font_size")));
	Record.FontColor = Comment.GetStringField(TEXT("danmaku_font_color"));
	return Record;
}

void FileRecord(FSchedule& Schedule, const FRecord& Record)
{
	const int64 Second = Record.SpawnTime.GetTicks() / ETimespan::TicksPerSecond;
	Schedule.FindOrAdd(FTimespan::FromSeconds(static_cast<double>(Second))).Add(Record);
}
} // namespace

FString ToString(const std::string& Bytes)
{
	FString Text;
	FFileHelper::BufferToString(Text, reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return Text;
}

TSharedPtr<FJsonValue> Parse(const FString& Text)
{
	TSharedPtr<FJsonValue> Value;
	FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(Text), Value);
	return Value;
}

FSchedule FileRecords(const TSharedPtr<FJsonValue>& Root)
{
	FSchedule Schedule;
	for (const TSharedPtr<FJsonValue>& Value : Root->AsObject()->GetArrayField(TEXT("datas")))
	{
		const TSharedPtr<FJsonObject> Comment = Value->AsObject();
		FileRecord(Schedule, ReadRecord(*Comment));
	}
	return Schedule;
}
