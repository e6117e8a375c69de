#include "Viewer/ButtonMirror.h"

#include "Components/Button.h"

namespace Flitmark
{

FButtonMirror::FButtonMirror(UButton& InButton)
	: FWidgetMirror(InButton)
	, Button(InButton)
{
}

void FButtonMirror::Click()
{
	Button.Click();
	Q_EMIT Acted();
}

void FButtonMirror::Hover()
{
	Button.Hover();
	Q_EMIT Acted();
}

void FButtonMirror::Unhover()
{
	Button.Unhover();
	Q_EMIT Acted();
}

} // namespace Flitmark
