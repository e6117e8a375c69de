#include "Playback/Player.h"

#include "Playback/MediaPaths.h"
#include "Scene/Overlay.h"
#include "Playback/PlayerText.h"
#include "Values/TimeText.h"

#include <QQmlEngine>
#include <QSizeF>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Flitmark
{

namespace
{

FPlayer* Living = nullptr;

constexpr double Speeds[] = {0.25, 0.5, 0.75, 1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0};

/** Milliseconds after which a seek counts as lost. */
constexpr int SeekPatience = 5'000;

} // namespace

FPlayer::FPlayer(FOverlay& InOverlay, QSettings& InOutSettings)
	: Overlay(InOverlay)
	, Settings(InOutSettings)
	, Recents(InOutSettings)
{
	SeekTimer.setSingleShot(true);
	SeekTimer.setInterval(SeekPatience);
	connect(&SeekTimer, &QTimer::timeout, this, &FPlayer::EndSeek);
	connect(&Loader, &FCommentLoader::Finished, this, &FPlayer::TakeComments);
	Living = this;
}

FPlayer::~FPlayer()
{
	KeepPosition();
	Living = nullptr;
}

std::unique_ptr<FPlayer> FPlayer::Create(const FPlayerOptions& InOptions, FOverlay& InOverlay, QSettings& InOutSettings,
										 std::string& OutError)
{
	std::unique_ptr<FPlayer> Player(new FPlayer(InOverlay, InOutSettings));
	return Player->Start(InOptions, OutError) ? std::move(Player) : nullptr;
}

FPlayer* FPlayer::create(QQmlEngine*, QJSEngine*)
{
	QJSEngine::setObjectOwnership(Living, QJSEngine::CppOwnership);
	return Living;
}

bool FPlayer::Start(const FPlayerOptions& InOptions, std::string& OutError)
{
	Mpv = FMpvPlayer::Create(
		{InOptions.bHardwareDecoding, InOptions.AudioOutput}, *this,
		[this]
		{
			QMetaObject::invokeMethod(
				this, [this] { Mpv->ProcessEvents(); }, Qt::QueuedConnection);
		},
		OutError);
	if (!Mpv)
	{
		return false;
	}
	SetVolume(InOptions.Volume.value_or(Settings.value("volume", 100.0).toDouble()));
	SetMuted(!InOptions.Volume && Settings.value("muted", false).toBool());
	SetSpeed(InOptions.Speed);
	TellOverlay();
	return true;
}

QString FPlayer::GetTitle() const
{
	if (!IsOpen())
	{
		return {};
	}
	const QString Title = QString::fromStdString(Shown.Title);
	return Shown.bLoaded && !Title.isEmpty() ? Title : NameOf(Video);
}

double FPlayer::GetPosition() const
{
	return NextSeek ? NextSeek->Position : Seeking ? Seeking->Position : Shown.Position;
}

void FPlayer::TogglePlaying()
{
	SetPlaying(!IsPlaying());
}

void FPlayer::SetPlaying(bool bInPlaying)
{
	if (bInPlaying && Shown.bEnded)
	{
		SeekTo(0.0);
	}
	bPlaying = bInPlaying;
	Mpv->SetPaused(!bPlaying);
	TellOverlay();
	Q_EMIT StateChanged();
	if (IsOpen())
	{
		Announce(bPlaying ? tr("Playing") : tr("Paused"));
	}
}

void FPlayer::StepFrame(bool bInForward)
{
	if (!IsLoaded())
	{
		return;
	}
	bPlaying = false;
	Mpv->StepFrame(bInForward);
	TellOverlay();
	Q_EMIT StateChanged();
	Announce(bInForward ? tr("Next frame") : tr("Previous frame"));
}

void FPlayer::SeekTo(double InPosition)
{
	if (!IsSeekable())
	{
		return;
	}
	Seek(InPosition, true);
	const QString Time = FormatTime(GetPosition());
	Announce(Shown.Duration > 0.0 ? Time + " / " + FormatTime(Shown.Duration) : Time);
}

void FPlayer::SeekBy(double InSeconds)
{
	SeekTo(GetPosition() + InSeconds);
}

void FPlayer::Scrub(double InPosition)
{
	if (IsSeekable())
	{
		Seek(InPosition, false);
	}
}

void FPlayer::Seek(double InPosition, bool bInExact)
{
	const double Last = Shown.Duration > 0.0 ? Shown.Duration : InPosition;
	const FSeek Wanted{std::clamp(InPosition, 0.0, std::max(Last, 0.0)), bInExact};
	if (Seeking)
	{
		NextSeek = Wanted;
	}
	else
	{
		Seeking = Wanted;
		SeekTimer.start();
		Mpv->Seek(Wanted.Position, Wanted.bExact);
	}
	Q_EMIT PositionChanged();
}

void FPlayer::EndSeek()
{
	SeekTimer.stop();
	Seeking.reset();
	if (const std::optional<FSeek> Next = std::exchange(NextSeek, std::nullopt))
	{
		Seek(Next->Position, Next->bExact);
	}
	Q_EMIT PositionChanged();
}

void FPlayer::SetSpeed(double InSpeed)
{
	const double Wanted = std::clamp(InSpeed, std::begin(Speeds)[0], std::end(Speeds)[-1]);
	const bool bTell = Wanted != Speed;
	Speed = Wanted;
	Mpv->SetSpeed(Speed);
	Overlay.SetRate(Speed);
	if (bTell)
	{
		Q_EMIT StateChanged();
		Announce(tr("Speed %1").arg(Flitmark::FormatSpeed(Speed)));
	}
}

void FPlayer::ChangeSpeed(bool bInFaster)
{
	const double* const Next = bInFaster ? std::upper_bound(std::begin(Speeds), std::end(Speeds), Speed)
										 : std::lower_bound(std::begin(Speeds), std::end(Speeds), Speed) - 1;
	if (Next >= std::begin(Speeds) && Next < std::end(Speeds))
	{
		SetSpeed(*Next);
	}
}

void FPlayer::SetVolume(double InPercent)
{
	Volume = std::isfinite(InPercent) ? std::clamp(InPercent, 0.0, 100.0) : 100.0;
	Mpv->SetVolume(Volume);
	Settings.setValue("volume", Volume);
	Q_EMIT StateChanged();
}

void FPlayer::ChangeVolume(double InPercent)
{
	if (bMuted)
	{
		SetMuted(false);
	}
	SetVolume(Volume + InPercent);
	Announce(tr("Volume %1 %").arg(std::lround(Volume)));
}

void FPlayer::SetMuted(bool bInMuted)
{
	const bool bTell = std::exchange(bMuted, bInMuted) != bInMuted;
	Mpv->SetMuted(bMuted);
	Settings.setValue("muted", bMuted);
	if (bTell)
	{
		Q_EMIT StateChanged();
		Announce(bMuted ? tr("Sound off") : tr("Sound on"));
	}
}

void FPlayer::Announce(const QString& InText)
{
	Announcement = InText;
	++NumAnnouncements;
	Q_EMIT AnnouncementsChanged();
}

void FPlayer::Complain(const QString& InText)
{
	Messages.Add(InText);
}

QVariantMap FPlayer::CollectFigures() const
{
	const FFrameFigures Frames = Overlay.GetMeter().GetFrames();
	const FSpriteFigures& Sprites = Overlay.GetMeter().GetSprites();
	return {{"framesPerSecond", Frames.FramesPerSecond},
			{"meanWork", Frames.MeanWork},
			{"worstWork", Frames.WorstWork},
			{"comments", Frames.NumComments},
			{"spritesMade", static_cast<qlonglong>(Sprites.NumMade)},
			{"spritesWaiting", Sprites.NumWaiting},
			{"textureBytes", static_cast<qlonglong>(Sprites.TextureBytes)},
			{"decoder", Shown.HardwareDecoder == "no" ? QString() : QString::fromStdString(Shown.HardwareDecoder)}};
}

QString FPlayer::FormatTime(double InSeconds)
{
	return QString::fromStdString(Flitmark::FormatTime(InSeconds));
}

QString FPlayer::FormatSpeed(double InSpeed)
{
	return Flitmark::FormatSpeed(InSpeed);
}

void FPlayer::TellOverlay()
{
	Overlay.SetPaused(!IsPlaying() || IsWaiting());
	Q_EMIT FrameNeeded();
}

void FPlayer::UpdateOverlay()
{
	ToldTime = GetPosition();
	Overlay.SetMediaTime(ToldTime);
	const bool bUndrawn = Overlay.GetMeter().GetSprites().bUndrawn;
	if (bUndrawn && !bToldUndrawn)
	{
		Announce(tr("Some comments are not drawn in full: they are too large or too many."));
	}
	bToldUndrawn = bUndrawn;
}

void FPlayer::OnStateChanged()
{
	const FMpvState Before = std::exchange(Shown, Mpv->GetState());
	if (Shown.Position != Before.Position || Shown.BufferedTo != Before.BufferedTo)
	{
		Q_EMIT PositionChanged();
	}
	FMpvState Compared = Before;
	Compared.Position = Shown.Position;
	Compared.BufferedTo = Shown.BufferedTo;
	if (Shown == Compared)
	{
		Q_EMIT FrameNeeded();
		return;
	}
	TellOverlay();
	Q_EMIT StateChanged();
	if (Shown.Duration != Before.Duration)
	{
		UpdateDensity();
	}
	if (Shown.bLoaded && Shown.Title != Before.Title)
	{
		Remember();
	}
}

void FPlayer::OnLoaded()
{
	Shown = Mpv->GetState();
	Remember();
	if (const double Start = std::exchange(FirstPosition, 0.0); Start > 0.0)
	{
		Seek(Start, true);
	}
	TellOverlay();
	Q_EMIT StateChanged();
}

void FPlayer::OnFailed(const std::string& InReason)
{
	Complain(tr("%1 cannot be played: %2")
				 .arg(NameOf(Video), DescribePlaybackFault(QString::fromStdString(InReason), IsAddress(Video))));
	Close();
}

void FPlayer::OnSeeked()
{
	Overlay.Jump();
	Q_EMIT FrameNeeded();
}

void FPlayer::OnArrived()
{
	const double Expected = ToldTime;
	EndSeek();
	// A rough seek ends elsewhere: what was due where it led to is not due now.
	if (!Seeking && std::floor(Mpv->GetState().Position) != std::floor(Expected))
	{
		Overlay.Jump();
	}
	Q_EMIT FrameNeeded();
}

} // namespace Flitmark
