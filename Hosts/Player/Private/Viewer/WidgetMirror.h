#pragma once

#include <QObject>
#include <qqmlintegration.h>

class UWidget;

namespace Flitmark
{

/**
 * One of the module's widgets as the window's controls see it: its state as last read, and what a viewer can do with it.
 * The widget's state is the truth; the mirror has no rules of its own. The widget outlives it.
 */
class FWidgetMirror : public QObject
{
	Q_OBJECT
	QML_ANONYMOUS
	Q_PROPERTY(bool displayed READ IsDisplayed NOTIFY DisplayedChanged)
	Q_PROPERTY(bool usable READ IsUsable NOTIFY UsableChanged)
	Q_PROPERTY(QString name READ GetName CONSTANT)

public:
	explicit FWidgetMirror(UWidget& InWidget);

	/** Reads the widget and signals what changed. */
	virtual void Read();

	bool IsDisplayed() const { return bDisplayed; }
	/** Whether a viewer can act on it. */
	bool IsUsable() const { return bUsable; }
	/** As in the widget blueprint. */
	QString GetName() const;

Q_SIGNALS:
	/** The viewer acted on it: the state of this widget and others may have changed. */
	void Acted();
	void DisplayedChanged();
	void UsableChanged();

private:
	UWidget& Widget;
	bool bDisplayed = false;
	bool bUsable = false;
};

} // namespace Flitmark
