#pragma once

#include "GameFramework/SaveGame.h"
#include "Templates/SubclassOf.h"

/**
 * Save-game slots. A record is a short UTF-8 text: the class in brackets, a line "Name=Value" for each reflected
 * property, those of bases first, and a last line "[End]", without which the record was cut short.
 */
class ENGINELAYER_API UGameplayStatics
{
public:
	/** A new record; null if the class is null or abstract. */
	static USaveGame* CreateSaveGameObject(TSubclassOf<USaveGame> SaveGameClass);

	/** False without a record or a save system, for a property of a kind that can't be saved, or if the write fails. */
	static bool SaveGameToSlot(USaveGame* SaveGameObject, const FString& SlotName, const int32 UserIndex);
	static bool DoesSaveGameExist(const FString& SlotName, const int32 UserIndex);
	/** Null if there is none, or it is not a readable record of a known class. */
	static USaveGame* LoadGameFromSlot(const FString& SlotName, const int32 UserIndex);

	static bool SaveGameToMemory(USaveGame* SaveGameObject, TArray<uint8>& OutSaveData);
	/**
	 * Properties missing from the text keep their defaults; names that the class lacks are skipped. Null for a text
	 * that is cut short, a value that does not fit its property's type, or an unknown class.
	 */
	static USaveGame* LoadGameFromMemory(const TArray<uint8>& InSaveData);
};
