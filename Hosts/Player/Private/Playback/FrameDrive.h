#pragma once

#include <QElapsedTimer>
#include <QObject>

class QQuickWindow;

namespace Flitmark
{

class FCommentLayer;
class FOverlay;
class FPlayer;
class FViewerBridge;

/**
 * Runs one overlay frame before each frame of the window, and asks for another one only as long as a comment scrolls or
 * the viewer does something. Else a film has as many frames as pictures, and a paused player that nobody touches none.
 */
class FFrameDrive final : public QObject
{
	Q_OBJECT

public:
	/** All arguments outlive the drive. */
	FFrameDrive(QQuickWindow& InWindow, FCommentLayer& InLayer, FPlayer& InPlayer, FOverlay& InOverlay,
				FViewerBridge& InBridge);

	/** Keeps frames coming for a while: the viewer did something, and its effects may take time. */
	void Wake();

protected:
	bool eventFilter(QObject* InObject, QEvent* InEvent) override;

private:
	void RunFrame();
	/** One frame, without keeping them coming. */
	void Ask();
	bool IsAwake() const;

	QQuickWindow& Window;
	FCommentLayer& Layer;
	FPlayer& Player;
	FOverlay& Overlay;
	FViewerBridge& Bridge;
	QElapsedTimer SinceWake;
	/** Asked for since the last frame. */
	bool bAsked = true;
};

} // namespace Flitmark
