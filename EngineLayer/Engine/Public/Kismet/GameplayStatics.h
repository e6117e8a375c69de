#pragma once

#include "GameFramework/SaveGame.h"
#include "Templates/SubclassOf.h"

/**
 * Save-game slots. A record is a short text, UTF-8: the class in brackets, a line "Name=Value" for each reflected
 * property, bases first, and a last line "[End]", by which a record cut short is known.
 */
class ENGINELAYER_API UGameplayStatics
{
public:
	/** A new record; null for no class or an abstract one. */
	static USaveGame* CreateSaveGameObject(TSubclassOf<USaveGame> SaveGameClass);

	/** False for no record, one with a property of a kind that is not kept, no save system, or a failed write. */
	static bool SaveGameToSlot(USaveGame* SaveGameObject, const FString& SlotName, const int32 UserIndex);
	static bool DoesSaveGameExist(const FString& SlotName, const int32 UserIndex);
	/** Null where there is none, or it is no readable record of a class known now. */
	static USaveGame* LoadGameFromSlot(const FString& SlotName, const int32 UserIndex);

	static bool SaveGameToMemory(USaveGame* SaveGameObject, TArray<uint8>& OutSaveData);
	/**
	 * Properties that the text lacks keep their defaults, names that the class lacks are passed over. Null for a text
	 * that is cut short, a value that does not read as its property's type, or a class not known now.
	 */
	static USaveGame* LoadGameFromMemory(const TArray<uint8>& InSaveData);
};
