#pragma once

#include "CoreMinimal.h"

class FHittestGrid;
class SWidget;

/** What is the same for all widgets of one paint pass. */
class FPaintArgs
{
public:
	/** InCurrentTime, InDeltaTime: seconds. */
	FPaintArgs(const SWidget*, FHittestGrid&, FVector2D, double InCurrentTime, float InDeltaTime)
		: CurrentTime(InCurrentTime)
		, DeltaTime(InDeltaTime)
	{
	}

	double GetCurrentTime() const { return CurrentTime; }
	float GetDeltaTime() const { return DeltaTime; }

private:
	double CurrentTime;
	float DeltaTime;
};
