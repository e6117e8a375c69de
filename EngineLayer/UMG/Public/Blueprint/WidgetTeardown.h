#pragma once

#include "UObject/Object.h"

#include <vector>

class UWidget;

/**
 * Decides when widgets that left the displayed tree are torn down: at once, or after the tick pass if there is one, in
 * the order in which they left.
 */
class ENGINELAYER_API FWidgetTeardown final : public FGCObject
{
public:
	static FWidgetTeardown& Get();

	/** The tick pass of a tree; InDeltaTime: seconds. */
	void TickTree(UWidget& Root, float InDeltaTime);
	/** Tears down the widgets that left during the pass; returns how many. */
	int32 TearDownLeft();

	void OnLeft(UWidget& Widget);
	void AddReferencedObjects(FReferenceCollector& Collector) override;

private:
	FWidgetTeardown() = default;

	std::vector<UWidget*> Left;
	bool bInPass = false;
};
