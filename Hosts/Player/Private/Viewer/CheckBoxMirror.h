#pragma once

#include "Viewer/WidgetMirror.h"

class UCheckBox;

namespace Flitmark
{

/** A check box of the module. */
class FCheckBoxMirror final : public FWidgetMirror
{
	Q_OBJECT
	QML_ANONYMOUS
	Q_PROPERTY(bool checked READ IsChecked NOTIFY CheckedChanged)

public:
	explicit FCheckBoxMirror(UCheckBox& InBox);

	void Read() override;
	bool IsChecked() const { return bChecked; }

	/** The widget decides what comes of it. */
	Q_INVOKABLE void Toggle(bool bInChecked);

Q_SIGNALS:
	void CheckedChanged();

private:
	UCheckBox& Box;
	bool bChecked = false;
};

} // namespace Flitmark
