#pragma once

#include "UObject/Object.h"

/** The base of what is kept in a save-game slot. */
class ENGINELAYER_API USaveGame : public UObject
{
	DECLARE_LAYER_CLASS(USaveGame, UObject)

public:
	explicit USaveGame(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}
};
