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

	/** QML calls this for the singleton; C++ keeps ownership. */
	static FViewerBridge* create(QQmlEngine* InEngine, QJSEngine* InScriptEngine);

	/** Picks up changes; call it after each overlay frame. Cheap if there are none. */
	void Update();

	FBarMirror* GetBar() { return &Bar; }
	FPanelMirror* GetPanel() { return &Panel; }

Q_SIGNALS:
	/** The viewer did something, and the overlay needs a frame to show it. */
	void Acted();

private:
	void OnActed();
	/** Lanes created after the viewer switched the overlay off don't know; switches it off again. */
	void LookForTracks();

	FStage& Stage;
	bool bHasTracks = false;
	FBarMirror Bar;
	FPanelMirror Panel;
};

} // namespace Flitmark
