#pragma once

#include "PlayerWindow.h"

#include <QImage>
#include <QObject>
#include <QTemporaryDir>

#include <memory>

class QQuickItem;

namespace Flitmark
{

/** The whole player in its window, used as a viewer uses it: by keys, pointer and drops, and looked at. */
class PlayerWindowTest final : public QObject
{
	Q_OBJECT

private Q_SLOTS:
	void initTestCase();
	void init();
	void cleanup();

	void ShowsCommentsOverTheVideo();
	void HoldsStillWhilePaused();
	void SendsACommentThatComesAgainAfterSeekingBack();
	void SwitchesTheCommentsOffAndOn();
	void SeeksByBarAndKeys();
	void KeepsCommentsOnThePictureWhenResized();
	void ShowsThePanelWhileThePointerIsThere();
	void TakesWhatIsDropped();
	void TellsWhatCannotBePlayedAndGoesOn();
	void GoesIntoFullScreenAndBack();
	void ShowsItsPages();
	void RemembersWhatTheViewerPrefers();
	void ClosesAtAnyMoment();

private:
	void Open(const QString& InVideo, const QString& InComments = {});
	void PlayTo(double InPosition);
	/** Plays to that position and stops there, with every comment drawn. */
	void StopAt(double InPosition);
	void Drop(const QString& InPath);
	void Type(const QString& InText);
	void Click(const char* InName);
	QQuickItem* Find(const char* InName) const;
	QPoint CenterOf(const char* InName) const;
	QRect RectOf(const char* InName) const;
	QImage Grab() const;
	/** Pixels of the picture that are nearly of a colour. */
	int CountPixels(QRgb InColor) const;
	bool IsOnCanvas(const char16_t* InText) const;
	bool TellsOf(const QString& InWord) const;

	QTemporaryDir Media;
	std::unique_ptr<QTemporaryDir> Home;
	std::unique_ptr<FPlayerWindow> Player;
	QQuickWindow* Window = nullptr;
};

} // namespace Flitmark
