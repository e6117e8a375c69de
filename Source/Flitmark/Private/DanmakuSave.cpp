#include "DanmakuSave.h"

#include "Kismet/GameplayStatics.h"

namespace
{

const TCHAR* const SaveSlotName = TEXT("Danmaku_SGSLOT");
constexpr int32 SaveUserIndex = 0;

} // namespace

int32 UDanmakuSave::LoadFontSize()
{
	CreateSlotIfNotExist();
	return ReadOrMakeRecord()->FontSize;
}

float UDanmakuSave::LoadSpeedScale()
{
	CreateSlotIfNotExist();
	return ReadOrMakeRecord()->SpeedScale;
}

bool UDanmakuSave::LoadIsOpend()
{
	CreateSlotIfNotExist();
	return ReadOrMakeRecord()->bIsOpened;
}

void UDanmakuSave::SaveFontSize(int32 InFontSize)
{
	CreateSlotIfNotExist();
	UDanmakuSave* Record = ReadOrMakeRecord();
	Record->FontSize = InFontSize;
	WriteRecord(Record);
}

void UDanmakuSave::SaveSpeedScale(float InSpeedScale)
{
	CreateSlotIfNotExist();
	UDanmakuSave* Record = ReadOrMakeRecord();
	Record->SpeedScale = InSpeedScale;
	WriteRecord(Record);
}

void UDanmakuSave::SaveIsOpend(bool bInIsOpened)
{
	CreateSlotIfNotExist();
	UDanmakuSave* Record = ReadOrMakeRecord();
	Record->bIsOpened = bInIsOpened;
	WriteRecord(Record);
}

void UDanmakuSave::CreateSlotIfNotExist()
{
	if (ReadRecord() == nullptr)
	{
		WriteRecord(MakeRecord());
	}
}

UDanmakuSave* UDanmakuSave::ReadRecord()
{
	return Cast<UDanmakuSave>(UGameplayStatics::LoadGameFromSlot(SaveSlotName, SaveUserIndex));
}

UDanmakuSave* UDanmakuSave::ReadOrMakeRecord()
{
	UDanmakuSave* Record = ReadRecord();
	return Record != nullptr ? Record : MakeRecord();
}

UDanmakuSave* UDanmakuSave::MakeRecord()
{
	UDanmakuSave* Record =
		CastChecked<UDanmakuSave>(UGameplayStatics::CreateSaveGameObject(UDanmakuSave::StaticClass()));
	Record->FontSize = 24;
	Record->SpeedScale = 1.f;
	Record->bIsOpened = true;
	return Record;
}

void UDanmakuSave::WriteRecord(UDanmakuSave* Record)
{
	// Preferences are not worth a message in the middle of a video: a failed write is tried again by the next call.
	UGameplayStatics::SaveGameToSlot(Record, SaveSlotName, SaveUserIndex);
}
