#include "Playback/FrameDrive.h"

#include "Scene/CommentLayer.h"
#include "Scene/Overlay.h"
#include "Playback/Player.h"
#include "Viewer/ViewerBridge.h"

#include <QEvent>
#include <QQuickWindow>

#include <utility>

namespace Flitmark
{

namespace
{

/** Milliseconds after which the timers of bar and panel have run out. */
constexpr qint64 AwakeTime = 1'500;

} // namespace

FFrameDrive::FFrameDrive(QQuickWindow& InWindow, FCommentLayer& InLayer, FPlayer& InPlayer, FOverlay& InOverlay,
						 FViewerBridge& InBridge)
	: Window(InWindow)
	, Layer(InLayer)
	, Player(InPlayer)
	, Overlay(InOverlay)
	, Bridge(InBridge)
{
	SinceWake.start();
	Window.installEventFilter(this);
	connect(&Window, &QQuickWindow::afterAnimating, this, &FFrameDrive::RunFrame);
	connect(&Player, &FPlayer::FrameNeeded, this, &FFrameDrive::Ask);
	connect(&Bridge, &FViewerBridge::Acted, this, &FFrameDrive::Wake);
}

void FFrameDrive::Wake()
{
	SinceWake.restart();
	Ask();
}

void FFrameDrive::Ask()
{
	bAsked = true;
	Window.update();
}

bool FFrameDrive::eventFilter(QObject*, QEvent* InEvent)
{
	switch (InEvent->type())
	{
	case QEvent::MouseMove:
	case QEvent::MouseButtonPress:
	case QEvent::MouseButtonRelease:
	case QEvent::KeyPress:
	case QEvent::Leave:
	case QEvent::TouchBegin:
	case QEvent::TouchUpdate:
	case QEvent::TouchEnd:
		Wake();
		break;
	default:
		break;
	}
	return false;
}

bool FFrameDrive::IsAwake() const
{
	return Bridge.GetPanel()->IsDisplayed() || SinceWake.elapsed() < AwakeTime;
}

void FFrameDrive::RunFrame()
{
	if (!std::exchange(bAsked, false) && !Player.IsPlaying() && !Overlay.IsMoving() && !IsAwake())
	{
		return;
	}
	Player.UpdateOverlay();
	Overlay.RunFrame();
	Bridge.Update();
	// Updating the layer requests one more frame by itself: without this check, frames would never stop.
	if (Overlay.TakeChange())
	{
		Layer.update();
	}
	if (Overlay.IsMoving() || IsAwake())
	{
		Window.update();
	}
}

} // namespace Flitmark
