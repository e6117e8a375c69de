#include "Insight/CommentDensity.h"
#include "Misc/Timespan.h"
#include "Playback/MediaPaths.h"
#include "Scene/Overlay.h"
#include "Playback/Player.h"
#include "Playback/PlayerText.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Flitmark
{

namespace
{

/** Points of the curve of density, and how far each is smoothed into its neighbours. */
constexpr std::size_t NumBins = 300;
constexpr double Smoothing = 2.5;

/** Who stops this near to the start or the end begins anew the next time. Seconds. */
constexpr double TooNearStart = 20.0;
constexpr double TooNearEnd = 30.0;

/** The viewer's languages as files' names have them: "zh-Hant-TW", "zh_TW", "zh", ... */
QStringList LanguageNames()
{
	QStringList Names;
	for (const QString& Tag : QLocale::system().uiLanguages())
	{
		for (const QString& Name : {Tag, QString(Tag).replace('-', '_'), Tag.section('-', 0, 0)})
		{
			if (!Names.contains(Name))
			{
				Names.append(Name);
			}
		}
	}
	return Names;
}

} // namespace

void FPlayer::OpenVideo(const QString& InVideo, const QString& InComments)
{
	const QString Wanted = ToPathOrAddress(InVideo);
	if (const QString Fault = FindFileFault(Wanted); !Fault.isEmpty())
	{
		Complain(tr("%1 cannot be played: %2").arg(NameOf(Wanted), Fault));
		if (!IsOpen() && !InComments.isEmpty())
		{
			OpenComments(InComments);
		}
		return;
	}
	KeepPosition();
	// Comments that were opened before any video are meant for the first one.
	const bool bKeepComments = !IsOpen() && InComments.isEmpty() && (!CommentsPath.isEmpty() || Loader.IsBusy());
	Video = Wanted;
	bPlaying = true;
	const FRecentFile* const Recent = Recents.Find(Video);
	BeginAt(Recent != nullptr ? Recent->Position : 0.0);
	if (!bKeepComments)
	{
		ForgetComments();
		ChooseComments(InComments);
	}
	Overlay.SetUrl(Video.toStdString());
	Mpv->SetPaused(false);
	Mpv->Open(Video.toStdString());
	Shown = Mpv->GetState();
	TellOverlay();
	Q_EMIT StateChanged();
	Q_EMIT PositionChanged();
}

void FPlayer::BeginAt(double InPosition)
{
	Seeking.reset();
	NextSeek.reset();
	SeekTimer.stop();
	FirstPosition = InPosition;
	Overlay.Jump();
}

void FPlayer::Close()
{
	KeepPosition();
	BeginAt(0.0);
	ForgetComments();
	Video.clear();
	Mpv->Close();
	Shown = Mpv->GetState();
	Recents.Refresh();
	TellOverlay();
	Q_EMIT StateChanged();
}

void FPlayer::OpenComments(const QString& InPath)
{
	const QString Path = ToPathOrAddress(InPath);
	const QString Fault =
		IsAddress(Path) ? tr("comments are read from files only. Download them first.") : FindFileFault(Path);
	if (!Fault.isEmpty())
	{
		Complain(tr("%1 cannot be read: %2").arg(NameOf(Path), Fault));
		return;
	}
	Loader.Load(Path);
	Q_EMIT CommentsChanged();
}

void FPlayer::OpenUrls(const QList<QUrl>& InUrls)
{
	QString NewVideo;
	QString NewComments;
	for (const QUrl& Url : InUrls)
	{
		const QString Path = ToPathOrAddress(Url);
		QString& New = IsCommentFile(Path) ? NewComments : NewVideo;
		if (New.isEmpty())
		{
			New = Path;
		}
	}
	if (!NewVideo.isEmpty())
	{
		OpenVideo(NewVideo, NewComments);
	}
	else if (!NewComments.isEmpty())
	{
		OpenComments(NewComments);
	}
}

void FPlayer::ChooseComments(const QString& InComments)
{
	if (!InComments.isEmpty())
	{
		OpenComments(InComments);
		return;
	}
	QStringList Paths = FindCommentsBeside(Video, LanguageNames());
	const FRecentFile* const Recent = Recents.Find(Video);
	if (Recent != nullptr && !Recent->Comments.isEmpty() && QFileInfo::exists(Recent->Comments))
	{
		Paths.removeAll(Recent->Comments);
		Paths.prepend(Recent->Comments);
	}
	if (!Paths.isEmpty())
	{
		Loader.LoadFirst(Paths);
	}
	Q_EMIT CommentsChanged();
}

void FPlayer::TakeComments(const FLoadOutcome& InOutcome)
{
	if (!InOutcome.Reason.isEmpty())
	{
		Complain(tr("%1 cannot be read: %2").arg(NameOf(InOutcome.FailedPath), InOutcome.Reason));
	}
	if (InOutcome.Comments)
	{
		ShowComments(*InOutcome.Comments);
	}
	Q_EMIT CommentsChanged();
	Q_EMIT FrameNeeded();
}

void FPlayer::ShowComments(FLoadedComments& InOutComments)
{
	CommentsPath = InOutComments.Path;
	SpawnTicks.clear();
	for (const FCommentEntry& Entry : InOutComments.Document.GetEntries())
	{
		if (Entry.IsReached())
		{
			SpawnTicks.push_back(Entry.SpawnTicks);
		}
	}
	Overlay.Jump();
	Overlay.Load(std::move(InOutComments.Text), std::move(InOutComments.Document));
	UpdateDensity();
	Recents.SetComments(Video, CommentsPath);
	const QString Count = GetCommentCount() == 1 ? tr("1 comment") : tr("%L1 comments").arg(GetCommentCount());
	QStringList Lines{GetCommentsName() + ": " + Count};
	Lines += InOutComments.Notes;
	if (!IsOpen())
	{
		Lines += tr("Open a video to see them.");
	}
	Announce(Lines.join('\n'));
}

void FPlayer::ForgetComments()
{
	Loader.Cancel();
	CommentsPath.clear();
	SpawnTicks.clear();
	Overlay.Clear();
	UpdateDensity();
	Q_EMIT CommentsChanged();
}

QString FPlayer::GetCommentsName() const
{
	return CommentsPath.isEmpty() ? QString() : NameOf(CommentsPath);
}

QUrl FPlayer::GetFolder() const
{
	const FRecentFile* const Last = Recents.GetLatest();
	const QString Path = !Video.isEmpty() ? Video : Last != nullptr ? Last->Video : QString();
	const QString Folder = QFileInfo(Path).path();
	const bool bUsable = !Path.isEmpty() && !IsAddress(Path) && QFileInfo(Folder).isDir();
	const QString Videos = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
	return QUrl::fromLocalFile(bUsable ? Folder : QFileInfo(Videos).isDir() ? Videos : QDir::homePath());
}

void FPlayer::UpdateDensity()
{
	const auto Duration = static_cast<int64>(Shown.Duration * ETimespan::TicksPerSecond);
	const std::vector<float> Bins = ComputeDensity(SpawnTicks, Duration, NumBins, Smoothing);
	const float Highest = Bins.empty() ? 0.0f : *std::max_element(Bins.begin(), Bins.end());
	Density.clear();
	if (Highest > 0.0f)
	{
		const double Width = 1.0 / static_cast<double>(Bins.size());
		Density.append(QPointF(0.0, 1.0));
		// By its root, so that quiet times show beside the busiest second.
		for (std::size_t Index = 0; Index < Bins.size(); ++Index)
		{
			Density.append(
				QPointF((static_cast<double>(Index) + 0.5) * Width, 1.0 - std::sqrt(double{Bins[Index] / Highest})));
		}
		Density.append(QPointF(1.0, 1.0));
	}
	Q_EMIT DensityChanged();
}

void FPlayer::Remember()
{
	const FRecentFile* const Old = Recents.Find(Video);
	const QString Comments = !CommentsPath.isEmpty() ? CommentsPath : Old != nullptr ? Old->Comments : QString();
	Recents.Add({Video, GetTitle(), Comments, Old != nullptr ? Old->Position : 0.0});
}

void FPlayer::KeepPosition()
{
	if (!Shown.bLoaded || !Shown.bSeekable)
	{
		return;
	}
	const double Position = GetPosition();
	const bool bWorthwhile = Position > TooNearStart && Position < Shown.Duration - TooNearEnd;
	Recents.SetPosition(Video, bWorthwhile ? Position : 0.0);
}

} // namespace Flitmark
