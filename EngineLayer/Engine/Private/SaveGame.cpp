#include "GameFramework/SaveGame.h"

#include "Kismet/GameplayStatics.h"
#include "SaveGameSystem.h"
#include "SaveGameText.h"
#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS_FLAGS(USaveGame, "SaveGame", CLASS_Abstract)

namespace
{

ISaveGameSystem* System = nullptr;

} // namespace

void ISaveGameSystem::Install(ISaveGameSystem* InSystem)
{
	System = InSystem;
}

ISaveGameSystem* ISaveGameSystem::Get()
{
	return System;
}

USaveGame* UGameplayStatics::CreateSaveGameObject(TSubclassOf<USaveGame> SaveGameClass)
{
	return NewObject<USaveGame>(GetTransientPackage(), SaveGameClass.Get());
}

bool UGameplayStatics::SaveGameToSlot(USaveGame* SaveGameObject, const FString& SlotName, const int32 UserIndex)
{
	TArray<uint8> Data;
	return System != nullptr && SaveGameToMemory(SaveGameObject, Data) && System->SaveGame(*SlotName, UserIndex, Data);
}

bool UGameplayStatics::DoesSaveGameExist(const FString& SlotName, const int32 UserIndex)
{
	return System != nullptr && System->DoesSaveGameExist(*SlotName, UserIndex);
}

USaveGame* UGameplayStatics::LoadGameFromSlot(const FString& SlotName, const int32 UserIndex)
{
	TArray<uint8> Data;
	return System != nullptr && System->LoadGame(*SlotName, UserIndex, Data) ? LoadGameFromMemory(Data) : nullptr;
}

bool UGameplayStatics::SaveGameToMemory(USaveGame* SaveGameObject, TArray<uint8>& OutSaveData)
{
	return SaveGameObject != nullptr && SaveGameText::Write(*SaveGameObject, OutSaveData);
}

USaveGame* UGameplayStatics::LoadGameFromMemory(const TArray<uint8>& InSaveData)
{
	return SaveGameText::Read(InSaveData);
}
