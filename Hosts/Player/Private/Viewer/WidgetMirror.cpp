#include "Viewer/WidgetMirror.h"

#include "Components/Widget.h"
#include "Viewer/TakeNew.h"
#include "Viewer/ViewerText.h"

namespace Flitmark
{

FWidgetMirror::FWidgetMirror(UWidget& InWidget)
	: Widget(InWidget)
	, bDisplayed(InWidget.IsDisplayed())
	, bUsable(InWidget.IsUsable())
{
}

void FWidgetMirror::Read()
{
	if (TakeNew(bDisplayed, Widget.IsDisplayed()))
	{
		Q_EMIT DisplayedChanged();
	}
	if (TakeNew(bUsable, Widget.IsUsable()))
	{
		Q_EMIT UsableChanged();
	}
}

QString FWidgetMirror::GetName() const
{
	return ToQString(Widget.GetName());
}

} // namespace Flitmark
