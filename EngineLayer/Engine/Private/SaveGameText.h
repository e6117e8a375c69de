#pragma once

#include "GameFramework/SaveGame.h"

/** Writes a save game as text; UGameplayStatics describes the format. */
namespace SaveGameText
{

/** False if a property is of a kind that can't be saved. */
bool Write(const USaveGame& SaveGame, TArray<uint8>& OutData);

/** Null unless it is a complete record of a known class. */
USaveGame* Read(const TArray<uint8>& Data);

} // namespace SaveGameText
