#include "Viewer/CheckBoxMirror.h"

#include "Components/CheckBox.h"
#include "Viewer/TakeNew.h"

namespace Flitmark
{

FCheckBoxMirror::FCheckBoxMirror(UCheckBox& InBox)
	: FWidgetMirror(InBox)
	, Box(InBox)
	, bChecked(InBox.IsChecked())
{
}

void FCheckBoxMirror::Read()
{
	FWidgetMirror::Read();
	if (TakeNew(bChecked, Box.IsChecked()))
	{
		Q_EMIT CheckedChanged();
	}
}

void FCheckBoxMirror::Toggle(bool bInChecked)
{
	Box.Toggle(bInChecked);
	Q_EMIT Acted();
}

} // namespace Flitmark
