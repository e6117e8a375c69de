#pragma once

#include "CoreMinimal.h"

/** Keeps the bytes of save-game slots: the one thing that the layer needs of a host's storage. */
class ENGINELAYER_API ISaveGameSystem
{
public:
	virtual ~ISaveGameSystem() = default;

	virtual bool DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex) = 0;
	/** Takes the place of what the slot held; false with the old content kept where it can't. */
	virtual bool SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data) = 0;
	/** False where there is nothing to read. */
	virtual bool LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data) = 0;

	/** Installs a host's service, or takes it away with null; without one nothing is kept. */
	static void Install(ISaveGameSystem* InSystem);
	static ISaveGameSystem* Get();
};
