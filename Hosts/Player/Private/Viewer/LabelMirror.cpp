#include "Viewer/LabelMirror.h"

#include "Components/TextBlock.h"
#include "Viewer/TakeNew.h"
#include "Viewer/ViewerText.h"

namespace Flitmark
{

FLabelMirror::FLabelMirror(UTextBlock& InLabel)
	: FWidgetMirror(InLabel)
	, Label(InLabel)
	, Text(ToQString(InLabel.GetText().ToString()))
{
}

void FLabelMirror::Read()
{
	FWidgetMirror::Read();
	if (TakeNew(Text, ToQString(Label.GetText().ToString())))
	{
		Q_EMIT TextChanged();
	}
}

} // namespace Flitmark
