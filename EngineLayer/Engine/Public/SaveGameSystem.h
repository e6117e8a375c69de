#pragma once

#include "CoreMinimal.h"

/** Stores the bytes of save-game slots: all that the layer needs of a host's storage. */
class ENGINELAYER_API ISaveGameSystem
{
public:
	virtual ~ISaveGameSystem() = default;

	virtual bool DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex) = 0;
	/** Replaces what the slot held; false, with the old content kept, if it can't. */
	virtual bool SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data) = 0;
	/** False if there is nothing to read. */
	virtual bool LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data) = 0;

	/** Installs a host's service, or removes it if null; without one nothing is saved. */
	static void Install(ISaveGameSystem* InSystem);
	static ISaveGameSystem* Get();
};
