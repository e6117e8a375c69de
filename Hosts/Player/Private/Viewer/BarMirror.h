#pragma once

#include "Viewer/ButtonMirror.h"
#include "Viewer/CheckBoxMirror.h"
#include "Viewer/FieldMirror.h"
#include "Viewer/LabelMirror.h"

class UUI_DanmakuBar;

namespace Flitmark
{

/** The module's input bar. */
class FBarMirror final : public QObject
{
	Q_OBJECT
	QML_ANONYMOUS
	Q_PROPERTY(Flitmark::FCheckBoxMirror* open READ GetOpen CONSTANT)
	Q_PROPERTY(Flitmark::FButtonMirror* settings READ GetSettings CONSTANT)
	Q_PROPERTY(Flitmark::FFieldMirror* field READ GetField CONSTANT)
	Q_PROPERTY(Flitmark::FLabelMirror* counter READ GetCounter CONSTANT)
	Q_PROPERTY(Flitmark::FButtonMirror* send READ GetSend CONSTANT)

public:
	explicit FBarMirror(UUI_DanmakuBar& InBar);

	void Read();

	/** The overlay's switch. */
	FCheckBoxMirror* GetOpen() { return &Open; }
	/** Shows the style panel while the pointer rests on it. */
	FButtonMirror* GetSettings() { return &Settings; }
	FFieldMirror* GetField() { return &Field; }
	FLabelMirror* GetCounter() { return &Counter; }
	FButtonMirror* GetSend() { return &Send; }

Q_SIGNALS:
	void Acted();

private:
	FCheckBoxMirror Open;
	FButtonMirror Settings;
	FFieldMirror Field;
	FLabelMirror Counter;
	FButtonMirror Send;
};

} // namespace Flitmark
