#pragma once

#include "CoreTypes.h"

class UCanvasPanelSlot;
class UUserWidget;
class UWidget;

/** Is told what happens to widgets as it happens, for tracing. At most one is installed. */
class ENGINELAYER_API IWidgetObserver
{
public:
	virtual ~IWidgetObserver() = default;

	/** A user widget was made; nothing has been done with it yet. */
	virtual void OnWidgetCreated(UUserWidget& Widget) = 0;
	/** A slot's position was set. */
	virtual void OnPositionSet(UCanvasPanelSlot& Slot) = 0;
	/** A child is about to leave its panel. */
	virtual void OnWidgetLeaving(UWidget& Widget) = 0;

	static void Install(IWidgetObserver* InObserver);
	static IWidgetObserver* Get();
};
