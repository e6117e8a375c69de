#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QSettings>

namespace Flitmark
{

/** What the viewer has chosen for the player alone, as "PlayerSettings" in QML; written at once. GUI thread. */
class FPlayerSettings final : public QObject
{
	Q_OBJECT
	QML_NAMED_ELEMENT(PlayerSettings)
	QML_SINGLETON
	/** The keyboard stays in the field after a comment has been sent. */
	Q_PROPERTY(bool stayInField READ StaysInField WRITE SetStayInField NOTIFY Changed)

public:
	/** InOutSettings outlives this. */
	explicit FPlayerSettings(QSettings& InOutSettings);
	~FPlayerSettings() override;

	/** QML calls this for the singleton; C++ keeps ownership. */
	static FPlayerSettings* create(QQmlEngine* InEngine, QJSEngine* InScriptEngine);

	bool StaysInField() const { return bStayInField; }
	void SetStayInField(bool bInStay);

	/** Back to the defaults. */
	Q_INVOKABLE void Restore();

Q_SIGNALS:
	void Changed();

private:
	QSettings& Settings;
	bool bStayInField = false;
};

} // namespace Flitmark
