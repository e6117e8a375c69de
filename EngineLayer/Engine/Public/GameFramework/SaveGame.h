#pragma once

#include "UObject/Object.h"

/** The base class of what a save-game slot holds. */
class ENGINELAYER_API USaveGame : public UObject
{
	DECLARE_LAYER_CLASS(USaveGame, UObject)

public:
	explicit USaveGame(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}
};
