#pragma once

#include "Viewer/WidgetMirror.h"

class UEditableText;

namespace Flitmark
{

/** A text field of the module. */
class FFieldMirror final : public FWidgetMirror
{
	Q_OBJECT
	QML_ANONYMOUS
	Q_PROPERTY(QString text READ GetText NOTIFY TextChanged)
	Q_PROPERTY(bool focused READ IsFocused NOTIFY FocusedChanged)

public:
	explicit FFieldMirror(UEditableText& InField);

	void Read() override;
	QString GetText() const { return Text; }
	bool IsFocused() const { return bFocused; }

	/**
	 * The viewer made the field read InText, without what an input method still composes. The widget may cut or rewrite
	 * it: GetText has the result. If the cut splits a surrogate pair, the other half goes too.
	 */
	Q_INVOKABLE void Type(const QString& InText);
	/** The viewer pressed Return. */
	Q_INVOKABLE void Commit();
	/** The field gained or lost the focus. */
	Q_INVOKABLE void TakeFocus();
	Q_INVOKABLE void LeaveFocus();

Q_SIGNALS:
	void TextChanged();
	void FocusedChanged();

private:
	UEditableText& Field;
	QString Text;
	bool bFocused = false;
};

} // namespace Flitmark
