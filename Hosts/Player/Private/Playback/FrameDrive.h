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
 * Runs one overlay frame before each frame of the window, and asks for another one only as long as something moves. A
 * paused player that nobody touches costs nothing.
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
	bool IsMoving() const;

	QQuickWindow& Window;
	FCommentLayer& Layer;
	FPlayer& Player;
	FOverlay& Overlay;
	FViewerBridge& Bridge;
	QElapsedTimer SinceWake;
};

} // namespace Flitmark
