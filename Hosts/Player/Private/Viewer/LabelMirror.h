#pragma once

#include "Viewer/WidgetMirror.h"

class UTextBlock;

namespace Flitmark
{

/** A text that the module shows. */
class FLabelMirror final : public FWidgetMirror
{
	Q_OBJECT
	QML_ANONYMOUS
	Q_PROPERTY(QString text READ GetText NOTIFY TextChanged)

public:
	explicit FLabelMirror(UTextBlock& InLabel);

	void Read() override;
	QString GetText() const { return Text; }

Q_SIGNALS:
	void TextChanged();

private:
	UTextBlock& Label;
	QString Text;
};

} // namespace Flitmark
