#include "Viewer/FieldMirror.h"

#include "Components/EditableText.h"
#include "Viewer/TakeNew.h"
#include "Viewer/ViewerText.h"

namespace Flitmark
{

namespace
{

bool EndsInHalfPair(const QString& InText)
{
	return !InText.isEmpty() && InText.back().isHighSurrogate();
}

} // namespace

FFieldMirror::FFieldMirror(UEditableText& InField)
	: FWidgetMirror(InField)
	, Field(InField)
	, Text(ToQString(InField.GetText().ToString()))
	, bFocused(InField.HasKeyboardFocus())
{
}

void FFieldMirror::Read()
{
	FWidgetMirror::Read();
	if (TakeNew(Text, ToQString(Field.GetText().ToString())))
	{
		Q_EMIT TextChanged();
	}
	if (TakeNew(bFocused, Field.HasKeyboardFocus()))
	{
		Q_EMIT FocusedChanged();
	}
}

void FFieldMirror::Type(const QString& InText)
{
	Field.TypeText(FText::FromString(ToFString(InText)));
	const QString Left = ToQString(Field.GetText().ToString());
	if (EndsInHalfPair(Left) && !EndsInHalfPair(InText))
	{
		Field.TypeText(FText::FromString(ToFString(Left.chopped(1))));
	}
	Q_EMIT Acted();
}

void FFieldMirror::Commit()
{
	Field.Commit(ETextCommit::OnEnter);
	Q_EMIT Acted();
}

void FFieldMirror::TakeFocus()
{
	if (Field.IsUsable())
	{
		Field.SetFocus();
	}
	Q_EMIT Acted();
}

void FFieldMirror::LeaveFocus()
{
	Field.Commit(ETextCommit::OnUserMovedFocus);
	// A field disabled in the meantime commits nothing, but still loses the focus.
	Field.ClearFocus();
	Q_EMIT Acted();
}

} // namespace Flitmark
