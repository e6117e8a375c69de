#pragma once

#include "GameFramework/SaveGame.h"

/** How a save game is written; UGameplayStatics says what its text looks like. */
namespace SaveGameText
{

/** False for a property of a kind that is not kept. */
bool Write(const USaveGame& SaveGame, TArray<uint8>& OutData);

/** Null for what is no whole record of a known class. */
USaveGame* Read(const TArray<uint8>& Data);

} // namespace SaveGameText
