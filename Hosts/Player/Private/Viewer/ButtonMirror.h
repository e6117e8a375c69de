#pragma once

#include "Viewer/WidgetMirror.h"

class UButton;

namespace Flitmark
{

/** A button of the module. */
class FButtonMirror final : public FWidgetMirror
{
	Q_OBJECT
	QML_ANONYMOUS

public:
	explicit FButtonMirror(UButton& InButton);

	Q_INVOKABLE void Click();
	Q_INVOKABLE void Hover();
	Q_INVOKABLE void Unhover();

private:
	UButton& Button;
};

} // namespace Flitmark
