#pragma once

#include "CoreMinimal.h"
#include "Layout/Geometry.h"
#include "Layout/SlateRect.h"
#include "Styling/WidgetStyle.h"
#include "Types/PaintArgs.h"

class FSlateWindowElementList;

/** What stands behind a widget on the screen. Whoever holds it keeps the widget constructed. */
class SWidget
{
public:
	virtual ~SWidget() = default;

	/** Measures the widget and what is inside it. */
	virtual void SlatePrepass(float InLayoutScaleMultiplier) = 0;
	/** One frame of the widget: layout, ticks, teardown. Gives the layer painted last. */
	virtual int32 Paint(const FPaintArgs& InArguments, const FGeometry& InGeometry, const FSlateRect& InCullingRect,
						FSlateWindowElementList& OutDrawElements, int32 InLayerId, const FWidgetStyle& InWidgetStyle,
						bool bInParentEnabled) const = 0;
};
