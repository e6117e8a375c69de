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
 * Runs the overlay with the window's frames: one overlay frame before each, and a further frame only as long as something
 * moves. A paused player that nobody touches costs nothing.
 */
class FFrameDrive final : public QObject
{
	Q_OBJECT

public:
	/** All outlive the drive. */
	FFrameDrive(QQuickWindow& InWindow, FCommentLayer& InLayer, FPlayer& InPlayer, FOverlay& InOverlay,
				FViewerBridge& InBridge);

	/** Frames from now on, for a while: somebody did something, and what comes of it may take its time. */
	void Wake();

protected:
	bool eventFilter(QObject* InObject, QEvent* InEvent) override;

private:
	void RunFrame();
	bool IsMoving() const;

	QQuickWindow& Window;
	FCommentLayer& Layer;
	FPlayer& Player;
	FOverlay& Overlay;
	FViewerBridge& Bridge;
	QElapsedTimer SinceWake;
};

} // namespace Flitmark
