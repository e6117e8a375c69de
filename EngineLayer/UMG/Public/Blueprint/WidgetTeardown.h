#pragma once

#include "UObject/Object.h"

#include <vector>

class UWidget;

/**
 * When widgets that left the displayed tree are torn down: at once, but during the tick pass only after it, in the order
 * in which they left.
 */
class ENGINELAYER_API FWidgetTeardown final : public FGCObject
{
public:
	static FWidgetTeardown& Get();

	/** The tick pass of a tree; InDeltaTime: seconds. */
	void TickTree(UWidget& Root, float InDeltaTime);
	/** Tears down what left during the pass; gives how many widgets that were. */
	int32 TearDownLeft();

	void OnLeft(UWidget& Widget);
	void AddReferencedObjects(FReferenceCollector& Collector) override;

private:
	FWidgetTeardown() = default;

	std::vector<UWidget*> Left;
	bool bInPass = false;
};
