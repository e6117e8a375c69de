#pragma once

#include "Viewer/BarMirror.h"
#include "Viewer/PanelMirror.h"

#include <QQmlEngine>

namespace Flitmark
{

class FOverlay;
class FStage;

/** The module's bar and panel for the window's controls, as "Viewer" in QML. One at a time in a process; GUI thread. */
class FViewerBridge final : public QObject
{
	Q_OBJECT
	QML_NAMED_ELEMENT(Viewer)
	QML_SINGLETON
	Q_PROPERTY(Flitmark::FBarMirror* bar READ GetBar CONSTANT)
	Q_PROPERTY(Flitmark::FPanelMirror* panel READ GetPanel CONSTANT)

public:
	/** InOverlay outlives the bridge. */
	explicit FViewerBridge(FOverlay& InOverlay);
	~FViewerBridge() override;

	/** What QML calls for the singleton: the living bridge, which stays its maker's. */
	static FViewerBridge* create(QQmlEngine* InEngine, QJSEngine* InScriptEngine);

	/** Shows what changed; call it after each frame of the overlay. Cheap where nothing did. */
	void Update();

	FBarMirror* GetBar() { return &Bar; }
	FPanelMirror* GetPanel() { return &Panel; }

Q_SIGNALS:
	/** The viewer did something: the overlay needs a frame to show what came of it. */
	void Acted();

private:
	void OnActed();
	/** Lanes made after the viewer switched the overlay off know nothing of it: it is switched off once more. */
	void LookForTracks();

	FStage& Stage;
	bool bHasTracks = false;
	FBarMirror Bar;
	FPanelMirror Panel;
};

} // namespace Flitmark
