#include "Playback/Player.h"

#include "Playback/MediaPaths.h"
#include "Scene/Overlay.h"
#include "Playback/PlayerText.h"
#include "Values/TimeText.h"

#include <QQmlEngine>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Flitmark
{

namespace
{

FPlayer* Living = nullptr;

constexpr double Speeds[] = {0.25, 0.5, 0.75, 1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0};

} // namespace

FPlayer::FPlayer(FOverlay& InOverlay, QSettings& InOutSettings)
	: Overlay(InOverlay)
	, Settings(InOutSettings)
	, Media(InOutSettings)
	, Comments(InOverlay)
{
	connect(&Seeks, &FSeekControl::Started, this,
			[this](double InPosition, bool bInExact) { Mpv->Seek(InPosition, bInExact); });
	connect(&Seeks, &FSeekControl::TargetChanged, this, &FPlayer::PositionChanged);
	connect(&Trial, &FMediaTrial::Succeeded, this, [this] { Replace(FOpening(Tried)); });
	connect(&Trial, &FMediaTrial::Failed, this, [this](const QString& InReason) { ComplainOf(Tried.Video, InReason); });
	connect(&Comments, &FCommentSession::Loaded, this, &FPlayer::AnnounceComments);
	connect(&Comments, &FCommentSession::Failed, this, &FPlayer::Complain);
	connect(&Comments, &FCommentSession::Changed, this, &FPlayer::FrameNeeded);
	Living = this;
}

FPlayer::~FPlayer()
{
	LeavePosition();
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
	Apply();
	return true;
}

void FPlayer::LeavePosition()
{
	if (IsSeekable())
	{
		Media.KeepPosition(GetPosition(), GetDuration());
	}
	Seeks.Cancel();
}

void FPlayer::AnnounceComments(const QStringList& InNotes)
{
	GetRecents()->SetComments(Media.GetVideo(), Comments.GetPath());
	QStringList Lines{Comments.GetName() + ": " + Comments.GetCountText()};
	Lines += InNotes;
	if (!IsOpen())
	{
		Lines += tr("Open a video to see them.");
	}
	Announce(Lines.join('\n'));
}

QString FPlayer::GetTitle() const
{
	return IsLoaded() && !Known.Title.empty() ? QString::fromStdString(Known.Title) : NameOf(Media.GetVideo());
}

QSizeF FPlayer::GetVideoSize() const
{
	const QSizeF Size(Known.Width, Known.Height);
	return Known.Rotation % 180 == 0 ? Size : Size.transposed();
}

double FPlayer::GetPosition() const
{
	return Seeks.GetTarget().value_or(Known.Position);
}

void FPlayer::TogglePlaying()
{
	SetPlaying(!IsPlaying());
}

void FPlayer::SetPlaying(bool bInPlaying)
{
	if (bInPlaying && HasEnded())
	{
		SeekTo(0.0);
	}
	State.SetPlaying(bInPlaying);
	bSteps = false;
	Mpv->SetPaused(!bInPlaying);
	Apply();
	if (IsOpen())
	{
		Announce(bInPlaying ? tr("Playing") : tr("Paused"));
	}
}

void FPlayer::StepFrame(bool bInForward)
{
	if (IsLoaded())
	{
		// libmpv pauses by itself after the step.
		State.SetPlaying(false);
		bSteps = bInForward;
		Mpv->StepFrame(bInForward);
		Apply();
		Announce(bInForward ? tr("Next frame") : tr("Previous frame"));
	}
}

void FPlayer::SeekTo(double InPosition)
{
	if (IsSeekable())
	{
		Seek(InPosition, true);
		const QString Time = FormatTime(GetPosition());
		Announce(GetDuration() > 0.0 ? Time + " / " + FormatTime(GetDuration()) : Time);
	}
}

void FPlayer::SeekBy(double InSeconds)
{
	SeekTo(GetPosition() + InSeconds);
}

void FPlayer::SeekByKey(double InSeconds, bool bInRepeat)
{
	if (const double Step = HeldSeek.Press(InSeconds, bInRepeat, ReadSteadyClock(), GetDuration()); Step != 0.0)
	{
		SeekBy(Step);
	}
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
	const double Position = std::max(InPosition, 0.0);
	Seeks.Seek(GetDuration() > 0.0 ? std::min(Position, GetDuration()) : Position, bInExact);
}

void FPlayer::SetSpeed(double InSpeed)
{
	const double Wanted = std::clamp(InSpeed, std::begin(Speeds)[0], std::end(Speeds)[-1]);
	const bool bChanged = Wanted != Speed;
	Speed = Wanted;
	Mpv->SetSpeed(Speed);
	Overlay.SetRate(Speed);
	if (bChanged)
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
	Announce(tr("Volume %1%").arg(std::lround(Volume)));
}

void FPlayer::SetMuted(bool bInMuted)
{
	const bool bChanged = std::exchange(bMuted, bInMuted) != bInMuted;
	Mpv->SetMuted(bMuted);
	Settings.setValue("muted", bMuted);
	if (bChanged)
	{
		Q_EMIT StateChanged();
		Announce(bMuted ? tr("Muted") : tr("Unmuted"));
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
			{"decoder", Known.HardwareDecoder == "no" ? QString() : QString::fromStdString(Known.HardwareDecoder)}};
}

QString FPlayer::FormatTime(double InSeconds)
{
	return QString::fromStdString(Flitmark::FormatTime(InSeconds));
}

QString FPlayer::FormatSpeed(double InSpeed)
{
	return Flitmark::FormatSpeed(InSpeed);
}

void FPlayer::Apply()
{
	Overlay.SetPaused(!AreCommentsRunning());
	Comments.SetDuration(Known.Duration);
	Q_EMIT FrameNeeded();
	Q_EMIT StateChanged();
}

void FPlayer::UpdateOverlay()
{
	Overlay.SetPaused(!AreCommentsRunning());
	// While libmpv seeks on its own, it has no position.
	const double Before = OverlayTime;
	if (Seeks.GetTarget() || !IsWaiting())
	{
		OverlayTime = GetPosition();
	}
	if (bSteps && OverlayTime != Before)
	{
		JumpTo(OverlayTime);
	}
	Overlay.SetMediaTime(OverlayTime);
	const bool bUndrawn = Overlay.GetMeter().GetSprites().bUndrawn;
	if (bUndrawn && !bWarnedUndrawn)
	{
		Announce(tr("Some comments can't be drawn in full: they are too large, or there are too many."));
	}
	bWarnedUndrawn = bUndrawn;
}

void FPlayer::OnStateChanged()
{
	const FMpvState Before = std::exchange(Known, Mpv->GetState());
	if (Known.Position != Before.Position || Known.BufferedTo != Before.BufferedTo)
	{
		Q_EMIT PositionChanged();
		if (IsSeekable())
		{
			Media.Follow(GetPosition(), GetDuration());
		}
	}
	FMpvState Compared = Before;
	Compared.Position = Known.Position;
	Compared.BufferedTo = Known.BufferedTo;
	if (Known == Compared)
	{
		// The window has a frame for every picture anyway; comments start and end with the seconds.
		if (!State.IsRunning() || std::floor(Known.Position) != std::floor(Before.Position))
		{
			Q_EMIT FrameNeeded();
		}
		return;
	}
	State.Follow(Known);
	Apply();
	if (IsLoaded() && Known.Title != Before.Title)
	{
		Media.Remember(GetTitle(), Comments.GetPath());
	}
}

void FPlayer::OnLoaded()
{
	Known = Mpv->GetState();
	State.Follow(Known);
	Media.Remember(GetTitle(), Comments.GetPath());
	if (Media.GetStart() > 0.0)
	{
		Seek(Media.GetStart(), true);
	}
	for (const QString& Path : std::exchange(Subtitles, {}))
	{
		OpenSubtitles(Path);
	}
	Apply();
}

void FPlayer::OnFailed(const std::string& InReason)
{
	ComplainOf(Media.GetVideo(), QString::fromStdString(InReason));
	Close();
}

void FPlayer::OnSeeked()
{
	Q_EMIT FrameNeeded();
}

void FPlayer::OnArrived()
{
	Seeks.Finish();
	if (!Seeks.GetTarget())
	{
		JumpTo(Mpv->GetState().Position);
	}
	Q_EMIT FrameNeeded();
}

void FPlayer::JumpTo(double InPosition)
{
	OverlayTime = InPosition;
	Overlay.SetMediaTime(InPosition);
	Overlay.Jump();
}

} // namespace Flitmark
