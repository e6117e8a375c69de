#pragma once

#include "Mpv/MpvPlayer.h"
#include "Playback/CommentSession.h"
#include "Playback/HeldSeek.h"
#include "Playback/MediaSession.h"
#include "Playback/MediaTrial.h"
#include "Playback/MessageList.h"
#include "Playback/PlaybackState.h"
#include "Playback/PlayerOptions.h"
#include "Playback/SeekControl.h"

#include <QObject>
#include <QSizeF>
#include <QVariantMap>

#include <memory>
#include <qqmlintegration.h>

class QQmlEngine;
class QJSEngine;

namespace Flitmark
{

class FOverlay;

/**
 * The player as the window sees it: passes what the viewer does to libmpv, the overlay and the player's parts, and
 * exposes the results. Times are in seconds, volume in percent, speed is a factor.
 */
class FPlayer final : public QObject, private IMpvObserver
{
	Q_OBJECT
	QML_NAMED_ELEMENT(Player)
	QML_SINGLETON

	// See FPlaybackState.
	Q_PROPERTY(bool open READ IsOpen NOTIFY StateChanged)
	Q_PROPERTY(bool playing READ IsPlaying NOTIFY StateChanged)
	Q_PROPERTY(bool waiting READ IsWaiting NOTIFY StateChanged)
	Q_PROPERTY(bool ended READ HasEnded NOTIFY StateChanged)
	Q_PROPERTY(bool seekable READ IsSeekable NOTIFY StateChanged)
	Q_PROPERTY(double position READ GetPosition NOTIFY PositionChanged)
	/** How far it has been read or received. */
	Q_PROPERTY(double bufferedTo READ GetBufferedTo NOTIFY PositionChanged)
	/** 0 if unknown. */
	Q_PROPERTY(double duration READ GetDuration NOTIFY StateChanged)
	Q_PROPERTY(double speed READ GetSpeed WRITE SetSpeed NOTIFY StateChanged)
	Q_PROPERTY(double volume READ GetVolume WRITE SetVolume NOTIFY StateChanged)
	Q_PROPERTY(bool muted READ IsMuted WRITE SetMuted NOTIFY StateChanged)
	Q_PROPERTY(QString title READ GetTitle NOTIFY StateChanged)
	/** As displayed; empty without a picture. */
	Q_PROPERTY(QSizeF videoSize READ GetVideoSize NOTIFY StateChanged)

	/** Where file dialogs open. */
	Q_PROPERTY(QUrl folder READ GetFolder NOTIFY StateChanged)

	Q_PROPERTY(Flitmark::FCommentSession* comments READ GetComments CONSTANT)
	Q_PROPERTY(Flitmark::FMessageList* messages READ GetMessages CONSTANT)
	Q_PROPERTY(Flitmark::FRecentFiles* recents READ GetRecents CONSTANT)
	/** The last message on the screen, and how many there have been. */
	Q_PROPERTY(QString announcement READ GetAnnouncement NOTIFY AnnouncementsChanged)
	Q_PROPERTY(int announcements READ GetAnnouncements NOTIFY AnnouncementsChanged)

public:
	/** Null with OutError set if libmpv can't start. InOverlay and InOutSettings outlive the player. */
	static std::unique_ptr<FPlayer> Create(const FPlayerOptions& InOptions, FOverlay& InOverlay,
										   QSettings& InOutSettings, std::string& OutError);
	~FPlayer() override;

	/** QML calls this for the singleton; C++ keeps ownership. */
	static FPlayer* create(QQmlEngine*, QJSEngine*);

	/**
	 * A path or an address. InComments: empty for those last used with it or found next to it. InStart: 0 to resume where
	 * it was left. What can't be played changes nothing.
	 */
	Q_INVOKABLE void OpenVideo(const QString& InVideo, const QString& InComments = {}, double InStart = 0.0);
	/**
	 * Files dropped or chosen: the first video and the first comment file, told by their content, and all subtitles, told
	 * by their names.
	 */
	Q_INVOKABLE void OpenUrls(const QList<QUrl>& InUrls);
	/** Percent of the picture's height, from below, that controls cover: subtitles stand above. */
	Q_INVOKABLE void SetCovered(double InPercent) { Mpv->SetSubtitleLift(InPercent); }
	/** Shows them with the open video. */
	Q_INVOKABLE void OpenSubtitles(const QString& InPath);
	Q_INVOKABLE void Close();

	Q_INVOKABLE void TogglePlaying();
	Q_INVOKABLE void SetPlaying(bool bInPlaying);
	Q_INVOKABLE void SeekTo(double InPosition);
	Q_INVOKABLE void SeekBy(double InSeconds);
	/** By a key; bInRepeat: the keyboard repeats it while it is held down. */
	Q_INVOKABLE void SeekByKey(double InSeconds, bool bInRepeat);
	/** While the seek bar is dragged: fast rather than exact, as often as the decoder can follow. */
	Q_INVOKABLE void Scrub(double InPosition);
	Q_INVOKABLE void StepFrame(bool bInForward);
	/** To the next preset. */
	Q_INVOKABLE void ChangeSpeed(bool bInFaster);
	Q_INVOKABLE void ChangeVolume(double InPercent);
	Q_INVOKABLE void Announce(const QString& InText);
	/** Rendering statistics, see FFrameFigures and FSpriteFigures. */
	Q_INVOKABLE QVariantMap CollectFigures() const;
	Q_INVOKABLE static QString FormatTime(double InSeconds);
	Q_INVOKABLE static QString FormatSpeed(double InSpeed);

	void SetSpeed(double InSpeed);
	void SetVolume(double InPercent);
	void SetMuted(bool bInMuted);

	/** Shows an error, a whole sentence, until the viewer dismisses it. */
	void Complain(const QString& InText);

	/** Before each frame: sets the overlay's media time, and warns the viewer when comments are left out. */
	void UpdateOverlay();

	FMpvPlayer& GetMpv() const { return *Mpv; }

	bool IsOpen() const { return State.IsOpen(); }
	bool IsLoaded() const { return State.IsLoaded(); }
	bool IsPlaying() const { return State.IsPlaying(); }
	bool IsWaiting() const { return State.IsWaiting(); }
	bool HasEnded() const { return State.HasEnded(); }
	bool IsSeekable() const { return IsLoaded() && Known.bSeekable; }
	/** During a seek, its target. */
	double GetPosition() const;
	double GetBufferedTo() const { return Known.BufferedTo; }
	double GetDuration() const { return Known.Duration; }
	double GetSpeed() const { return Speed; }
	double GetVolume() const { return Volume; }
	bool IsMuted() const { return bMuted; }
	QString GetTitle() const;
	QSizeF GetVideoSize() const;
	QUrl GetFolder() const { return Media.GetFolder(); }
	FCommentSession* GetComments() { return &Comments; }
	FMessageList* GetMessages() { return &Messages; }
	FRecentFiles* GetRecents() { return &Media.GetRecents(); }
	const QString& GetAnnouncement() const { return Announcement; }
	int GetAnnouncements() const { return NumAnnouncements; }

Q_SIGNALS:
	void StateChanged();
	void PositionChanged();
	void AnnouncementsChanged();
	/** Something has to be redrawn. */
	void FrameNeeded();

private:
	/** What the viewer wants to see; all paths or addresses. */
	struct FOpening
	{
		QString Video;
		/** Empty: those last used with it or found next to it. */
		QString Comments;
		QStringList Subtitles;
		/** Seconds; 0 where it was left. */
		double Start = 0.0;
	};

	FPlayer(FOverlay& InOverlay, QSettings& InOutSettings);
	bool Start(const FPlayerOptions& InOptions, std::string& OutError);

	void OnStateChanged() override;
	void OnLoaded() override;
	void OnFailed(const std::string& InReason) override;
	void OnSeeked() override;
	void OnArrived() override;
	void OnSubtitlesAdded(const std::string& InUrl, const std::string& InReason) override;

	void Open(const FOpening& InWanted);
	void Replace(const FOpening& InWanted);
	void ComplainOf(const QString& InVideo, const QString& InReason);
	/** Passes a change of state on to the overlay and the window. */
	void Apply();
	/** Comments stand still until a seek has arrived. */
	bool AreCommentsRunning() const { return State.IsRunning() && !Seeks.GetTarget(); }
	void JumpTo(double InPosition);
	void Seek(double InPosition, bool bInExact);
	void LeavePosition();
	void AnnounceComments(const QStringList& InNotes);

	FOverlay& Overlay;
	QSettings& Settings;
	std::unique_ptr<FMpvPlayer> Mpv;

	FPlaybackState State;
	FMediaSession Media;
	FMediaTrial Trial;
	/** What the trial is about. */
	FOpening Tried;
	/** To be shown with the video once it is loaded. */
	QStringList Subtitles;
	FSeekControl Seeks;
	FHeldSeek HeldSeek;
	FCommentSession Comments;

	/** libmpv's last reported state. */
	FMpvState Known;
	double Speed = 1.0;
	double Volume = 100.0;
	bool bMuted = false;
	/** The media time that the overlay was given last. */
	double OverlayTime = 0.0;
	/** Paused and stepping forward: each picture is a jump, as nothing runs in between. */
	bool bSteps = false;
	/** The viewer has been warned. */
	bool bWarnedUndrawn = false;

	FMessageList Messages;
	QString Announcement;
	int NumAnnouncements = 0;
};

} // namespace Flitmark
