#pragma once

#include "PlayerInWindow.h"

#include <QObject>

namespace Flitmark
{

/** The whole player in its window, used like a viewer would: with keys, pointer and drops, and by looking at it. */
class PlayerWindowTest final : public QObject, private FPlayerInWindow
{
	Q_OBJECT

private Q_SLOTS:
	void initTestCase();
	void init();
	void cleanup();

	void ShowsTheVideoTheRightWayUp_data();
	void ShowsTheVideoTheRightWayUp();
	void ShowsCommentsOverTheVideo();
	void HoldsStillWhilePaused();
	void SendsACommentThatComesAgainAfterSeekingBack();
	void SwitchesTheCommentsOffAndOn();
	void ShowsAfterAJumpWhatPlayingWouldShow();
	void StartsInTheMiddleWithItsComments();
	void DrawsNoMoreThanMoves();
	void SeeksByBarAndKeys();
	void KeepsCommentsOnThePictureWhenResized();
	void ShowsThePanelWhileThePointerIsThere();
	void TakesWhatIsDropped();
	void TellsWhatCannotBePlayedAndGoesOn();
	void GoesIntoFullScreenAndBack();
	void ShowsItsPages();
	void RemembersWhatTheViewerPrefers();
	void ClosesAtAnyMoment();
};

} // namespace Flitmark
