#pragma once

#include "UObject/Object.h"

/** A picture that widgets can be painted with; its pixels are the host's business. */
class ENGINELAYER_API UTexture : public UObject
{
	DECLARE_LAYER_CLASS(UTexture, UObject)

public:
	explicit UTexture(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Applies what was set on the texture. */
	virtual void UpdateResource() {}
};
