#pragma once

#include "Playback/CommentLoader.h"
#include "Playback/MessageList.h"
#include "Mpv/MpvPlayer.h"
#include "Playback/PlayerOptions.h"
#include "Playback/RecentFiles.h"

#include <QObject>
#include <QPolygonF>
#include <QTimer>
#include <QUrl>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <qqmlintegration.h>

class QQmlEngine;
class QJSEngine;

namespace Flitmark
{

class FOverlay;

/**
 * The player as its window sees it: one video, its comments, and what can be done with them. Times are in seconds,
 * volume in percent, speed is a factor.
 */
class FPlayer final : public QObject, private IMpvObserver
{
	Q_OBJECT
	QML_NAMED_ELEMENT(Player)
	QML_SINGLETON

	/** Something is open, if only just. */
	Q_PROPERTY(bool open READ IsOpen NOTIFY StateChanged)
	/** What is open plays or could. */
	Q_PROPERTY(bool loaded READ IsLoaded NOTIFY StateChanged)
	/** Neither told to pause nor at the end; also while it waits for data. */
	Q_PROPERTY(bool playing READ IsPlaying NOTIFY StateChanged)
	Q_PROPERTY(bool waiting READ IsWaiting NOTIFY StateChanged)
	Q_PROPERTY(bool ended READ HasEnded NOTIFY StateChanged)
	Q_PROPERTY(bool seekable READ IsSeekable NOTIFY StateChanged)
	Q_PROPERTY(double position READ GetPosition NOTIFY PositionChanged)
	/** Up to where it was received. */
	Q_PROPERTY(double bufferedTo READ GetBufferedTo NOTIFY PositionChanged)
	/** 0 where it is not known. */
	Q_PROPERTY(double duration READ GetDuration NOTIFY StateChanged)
	Q_PROPERTY(double speed READ GetSpeed WRITE SetSpeed NOTIFY StateChanged)
	Q_PROPERTY(double volume READ GetVolume WRITE SetVolume NOTIFY StateChanged)
	Q_PROPERTY(bool muted READ IsMuted WRITE SetMuted NOTIFY StateChanged)
	Q_PROPERTY(QString title READ GetTitle NOTIFY StateChanged)
	/** Of the picture as it is to be shown; empty where there is none. */
	Q_PROPERTY(QSizeF videoSize READ GetVideoSize NOTIFY StateChanged)

	/** Where files are looked for first. */
	Q_PROPERTY(QUrl folder READ GetFolder NOTIFY StateChanged)

	Q_PROPERTY(bool loadingComments READ IsLoadingComments NOTIFY CommentsChanged)
	/** The comments' file; empty for none. */
	Q_PROPERTY(QString commentsName READ GetCommentsName NOTIFY CommentsChanged)
	Q_PROPERTY(int commentCount READ GetCommentCount NOTIFY CommentsChanged)
	/** How many comments come when: an outline in a square of side 1, which stands on y = 1. */
	Q_PROPERTY(QPolygonF density READ GetDensity NOTIFY DensityChanged)
	Q_PROPERTY(bool hasDensity READ HasDensity NOTIFY DensityChanged)

	Q_PROPERTY(Flitmark::FMessageList* messages READ GetMessages CONSTANT)
	Q_PROPERTY(Flitmark::FRecentFiles* recents READ GetRecents CONSTANT)
	/** What was done last, and how often something was said. */
	Q_PROPERTY(QString announcement READ GetAnnouncement NOTIFY AnnouncementsChanged)
	Q_PROPERTY(int announcements READ GetAnnouncements NOTIFY AnnouncementsChanged)

public:
	/** Null with OutError set where libmpv cannot start. InOverlay and InOutSettings outlive the player. */
	static std::unique_ptr<FPlayer> Create(const FPlayerOptions& InOptions, FOverlay& InOverlay,
										   QSettings& InOutSettings, std::string& OutError);
	~FPlayer() override;

	/** What QML calls for the singleton: the living player, which stays its maker's. */
	static FPlayer* create(QQmlEngine*, QJSEngine*);

	/** A path or an address. InComments: empty for those last used with it, or that lie beside it. */
	Q_INVOKABLE void OpenVideo(const QString& InVideo, const QString& InComments = {});
	Q_INVOKABLE void OpenComments(const QString& InPath);
	/** What was dropped or chosen: each is told by its content; the first video and the first comments count. */
	Q_INVOKABLE void OpenUrls(const QList<QUrl>& InUrls);
	Q_INVOKABLE void Close();

	Q_INVOKABLE void TogglePlaying();
	Q_INVOKABLE void SetPlaying(bool bInPlaying);
	Q_INVOKABLE void SeekTo(double InPosition);
	Q_INVOKABLE void SeekBy(double InSeconds);
	/** While the seek bar is dragged: quick and rough, as often as can be followed. */
	Q_INVOKABLE void Scrub(double InPosition);
	Q_INVOKABLE void StepFrame(bool bInForward);
	/** To the next of the usual speeds. */
	Q_INVOKABLE void ChangeSpeed(bool bInFaster);
	Q_INVOKABLE void ChangeVolume(double InPercent);
	Q_INVOKABLE void Announce(const QString& InText);
	/** What drawing costs, see FFrameFigures and FSpriteFigures. */
	Q_INVOKABLE QVariantMap CollectFigures() const;
	Q_INVOKABLE static QString FormatTime(double InSeconds);
	Q_INVOKABLE static QString FormatSpeed(double InSpeed);

	void SetSpeed(double InSpeed);
	void SetVolume(double InPercent);
	void SetMuted(bool bInMuted);

	/** Where the video that was just opened begins. */
	void StartAt(double InPosition) { FirstPosition = InPosition; }

	/** A sentence about what went wrong. */
	void Complain(const QString& InText);

	/** Before each frame: tells the overlay the media time, and the viewer when comments stay undrawn. */
	void UpdateOverlay();

	FMpvPlayer& GetMpv() const { return *Mpv; }

	bool IsOpen() const { return !Video.isEmpty(); }
	bool IsLoaded() const { return Shown.bLoaded; }
	bool IsPlaying() const { return IsOpen() && bPlaying && !Shown.bEnded; }
	bool IsWaiting() const { return IsOpen() && (!Shown.bLoaded || Shown.bBuffering || Shown.bSeeking); }
	bool HasEnded() const { return Shown.bLoaded && Shown.bEnded; }
	bool IsSeekable() const { return Shown.bLoaded && Shown.bSeekable; }
	/** While a seek is under way, where it leads. */
	double GetPosition() const;
	double GetBufferedTo() const { return Shown.BufferedTo; }
	double GetDuration() const { return Shown.Duration; }
	double GetSpeed() const { return Speed; }
	double GetVolume() const { return Volume; }
	bool IsMuted() const { return bMuted; }
	QString GetTitle() const;
	QSizeF GetVideoSize() const { return QSizeF(Shown.Width, Shown.Height); }
	QUrl GetFolder() const;
	bool IsLoadingComments() const { return Loader.IsBusy(); }
	QString GetCommentsName() const;
	int GetCommentCount() const { return static_cast<int>(SpawnTicks.size()); }
	const QPolygonF& GetDensity() const { return Density; }
	bool HasDensity() const { return !Density.isEmpty(); }
	FMessageList* GetMessages() { return &Messages; }
	FRecentFiles* GetRecents() { return &Recents; }
	const QString& GetAnnouncement() const { return Announcement; }
	int GetAnnouncements() const { return NumAnnouncements; }

Q_SIGNALS:
	void StateChanged();
	void PositionChanged();
	void CommentsChanged();
	void DensityChanged();
	void AnnouncementsChanged();
	/** Something is to be shown anew. */
	void FrameNeeded();

private:
	FPlayer(FOverlay& InOverlay, QSettings& InOutSettings);
	bool Start(const FPlayerOptions& InOptions, std::string& OutError);

	void OnStateChanged() override;
	void OnLoaded() override;
	void OnFailed(const std::string& InReason) override;
	void OnSeeked() override;
	void OnArrived() override;

	void TellOverlay();
	void Seek(double InPosition, bool bInExact);
	void EndSeek();
	void BeginAt(double InPosition);
	void Remember();
	void ChooseComments(const QString& InComments);
	void TakeComments(const FLoadOutcome& InOutcome);
	void ShowComments(FLoadedComments& InOutComments);
	void ForgetComments();
	void UpdateDensity();
	void KeepPosition();

	FOverlay& Overlay;
	QSettings& Settings;
	std::unique_ptr<FMpvPlayer> Mpv;

	/** The path or address that is open; empty for none. */
	QString Video;
	/** What mpv told last. */
	FMpvState Shown;
	bool bPlaying = true;
	double Speed = 1.0;
	double Volume = 100.0;
	bool bMuted = false;
	/** For what is opened next: where to begin, in seconds. */
	double FirstPosition = 0.0;

	struct FSeek
	{
		double Position = 0.0;
		bool bExact = true;
	};

	/** The seek that is not over yet, and the one that follows it. */
	std::optional<FSeek> Seeking;
	std::optional<FSeek> NextSeek;
	/** For a seek of which nothing is heard again. */
	QTimer SeekTimer;
	/** That some comments stay undrawn was said. */
	bool bToldUndrawn = false;
	/** The media time that the overlay knows. */
	double ToldTime = 0.0;

	FCommentLoader Loader;
	QString CommentsPath;
	/** Of all comments that are ever due, for the curve. */
	std::vector<int64> SpawnTicks;
	QPolygonF Density;

	FMessageList Messages;
	FRecentFiles Recents;
	QString Announcement;
	int NumAnnouncements = 0;
};

} // namespace Flitmark
