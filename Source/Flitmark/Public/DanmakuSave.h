#pragma once

#include "CoreMinimal.h"
#include "GameFramework/SaveGame.h"

#include "DanmakuSave.generated.h"

/**
 * The viewer's preferences, kept in one save slot. Every call goes to storage. Values are stored as given. If the slot
 * cannot be read at all, loading returns the initial values: 24, 1.0 and true.
 */
UCLASS()
class FLITMARK_API UDanmakuSave : public USaveGame
{
	GENERATED_BODY()

public:
	/** Points. */
	static int32 LoadFontSize();
	static float LoadSpeedScale();
	/** Whether the overlay is on. */
	static bool LoadIsOpend();

	static void SaveFontSize(int32 InFontSize);
	static void SaveSpeedScale(float InSpeedScale);
	static void SaveIsOpend(bool bInIsOpened);

private:
	static void CreateSlotIfNotExist();
	/** Null if the slot is missing, cannot be read, or holds another class. */
	static UDanmakuSave* ReadRecord();
	/** The slot's record, or one with the initial values if the slot still cannot be read. */
	static UDanmakuSave* ReadOrMakeRecord();
	static UDanmakuSave* MakeRecord();
	static void WriteRecord(UDanmakuSave* Record);

	UPROPERTY()
	int32 FontSize = 0;

	UPROPERTY()
	float SpeedScale = 0.f;

	UPROPERTY()
	bool bIsOpened = false;
};
