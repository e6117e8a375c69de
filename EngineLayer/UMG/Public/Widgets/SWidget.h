#pragma once

#include "CoreMinimal.h"
#include "Layout/Geometry.h"
#include "Layout/SlateRect.h"
#include "Styling/WidgetStyle.h"
#include "Types/PaintArgs.h"

class FSlateWindowElementList;

/** The on-screen counterpart of a widget. Holding it keeps the widget constructed. */
class SWidget
{
public:
	virtual ~SWidget() = default;

	/** Measures the widget and its contents. */
	virtual void SlatePrepass(float InLayoutScaleMultiplier) = 0;
	/** One frame of the widget: layout, ticks, teardown. Returns the last layer painted. */
	virtual int32 Paint(const FPaintArgs& InArguments, const FGeometry& InGeometry, const FSlateRect& InCullingRect,
						FSlateWindowElementList& OutDrawElements, int32 InLayerId, const FWidgetStyle& InWidgetStyle,
						bool bInParentEnabled) const = 0;
};
