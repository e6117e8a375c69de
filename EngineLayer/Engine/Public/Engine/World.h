#pragma once

#include "Engine/EngineTypes.h"
#include "TimerManager.h"
#include "UObject/Object.h"

/** The world in which the objects of one host's stage live. */
class ENGINELAYER_API UWorld : public UObject
{
	DECLARE_LAYER_CLASS(UWorld, UObject)

public:
	explicit UWorld(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** A world that lives until DestroyWorld. */
	static UWorld* CreateWorld(EWorldType::Type InWorldType, bool bInformEngineOfWorld);
	void DestroyWorld(bool bInformEngineOfWorld);

	FTimerManager& GetTimerManager() const { return TimerManager; }
	UWorld* GetWorld() const override { return const_cast<UWorld*>(this); }

private:
	mutable FTimerManager TimerManager;
};
