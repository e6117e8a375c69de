#include "Components/Border.h"
#include "Components/ContentWidget.h"
#include "Components/HorizontalBox.h"
#include "Components/Overlay.h"
#include "Components/VerticalBox.h"
#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS_FLAGS(UContentWidget, "ContentWidget", CLASS_Abstract)
IMPLEMENT_LAYER_CLASS(UBorder, "Border")
IMPLEMENT_LAYER_CLASS(UHorizontalBox, "HorizontalBox")
IMPLEMENT_LAYER_CLASS(UHorizontalBoxSlot, "HorizontalBoxSlot")
IMPLEMENT_LAYER_CLASS(UOverlay, "Overlay")
IMPLEMENT_LAYER_CLASS(UOverlaySlot, "OverlaySlot")
IMPLEMENT_LAYER_CLASS(UVerticalBox, "VerticalBox")
IMPLEMENT_LAYER_CLASS(UVerticalBoxSlot, "VerticalBoxSlot")
