#include "Playback/Player.h"

#include "Playback/MediaPaths.h"
#include "Playback/PlayerText.h"
#include "Scene/Overlay.h"

namespace Flitmark
{

void FPlayer::OpenVideo(const QString& InVideo, const QString& InComments, double InStart)
{
	Open({ToPathOrAddress(InVideo), InComments, {}, InStart});
}

void FPlayer::OpenUrls(const QList<QUrl>& InUrls)
{
	FOpening New;
	for (const QUrl& Url : InUrls)
	{
		const QString Path = ToPathOrAddress(Url);
		if (IsCommentFile(Path))
		{
			New.Comments = New.Comments.isEmpty() ? Path : New.Comments;
		}
		else if (IsSubtitleFile(Path))
		{
			New.Subtitles.append(Path);
		}
		else if (New.Video.isEmpty())
		{
			New.Video = Path;
		}
	}
	if (!New.Video.isEmpty())
	{
		Open(New);
		return;
	}
	if (!New.Comments.isEmpty())
	{
		Comments.Open(New.Comments);
	}
	for (const QString& Path : New.Subtitles)
	{
		OpenSubtitles(Path);
	}
}

void FPlayer::Open(const FOpening& InWanted)
{
	if (const QString Fault = FindFileFault(InWanted.Video); !Fault.isEmpty())
	{
		Complain(tr("Can't play %1: %2").arg(NameOf(InWanted.Video), Fault));
		if (!IsOpen() && !InWanted.Comments.isEmpty())
		{
			Comments.Open(InWanted.Comments);
		}
		return;
	}
	if (IsLoaded())
	{
		// What plays now goes on until the other is known to play.
		Tried = InWanted;
		Announce(tr("Opening %1…").arg(NameOf(Tried.Video)));
		Trial.Start(Tried.Video);
		return;
	}
	Replace(InWanted);
}

void FPlayer::Replace(const FOpening& InWanted)
{
	Trial.Cancel();
	LeavePosition();
	// Comments opened before any video belong to the first one.
	const bool bKeepComments = !IsOpen() && InWanted.Comments.isEmpty() && !Comments.IsEmpty();
	Media.Open(InWanted.Video, InWanted.Start);
	Subtitles = InWanted.Subtitles;
	State.Open();
	Overlay.SetPaused(true);
	JumpTo(Media.GetStart());
	if (!bKeepComments)
	{
		Comments.Close();
		InWanted.Comments.isEmpty() ? Comments.OpenFirst(Media.FindComments()) : Comments.Open(InWanted.Comments);
	}
	Overlay.SetUrl(InWanted.Video.toStdString());
	Mpv->SetPaused(false);
	Mpv->Open(InWanted.Video.toStdString());
	Known = Mpv->GetState();
	Apply();
	Q_EMIT PositionChanged();
}

void FPlayer::Close()
{
	Trial.Cancel();
	LeavePosition();
	State.Close();
	Media.Close();
	Comments.Close();
	Subtitles.clear();
	Mpv->Close();
	Known = Mpv->GetState();
	GetRecents()->Refresh();
	Apply();
}

void FPlayer::ComplainOf(const QString& InVideo, const QString& InReason)
{
	Complain(tr("Can't play %1: %2").arg(NameOf(InVideo), DescribePlaybackFault(InReason, IsAddress(InVideo))));
}

void FPlayer::OpenSubtitles(const QString& InPath)
{
	const QString Path = ToPathOrAddress(InPath);
	const QString Fault = IsOpen() ? FindFileFault(Path) : tr("open a video first; subtitles belong to one.");
	if (!Fault.isEmpty())
	{
		Complain(tr("Can't show the subtitles %1: %2").arg(NameOf(Path), Fault));
	}
	else if (IsLoaded())
	{
		Mpv->AddSubtitles(Path.toStdString());
	}
	else
	{
		Subtitles.append(Path);
	}
}

void FPlayer::OnSubtitlesAdded(const std::string& InUrl, const std::string& InReason)
{
	const QString Name = NameOf(QString::fromStdString(InUrl));
	if (InReason.empty())
	{
		Announce(tr("Subtitles: %1").arg(Name));
	}
	else
	{
		Complain(tr("Can't show the subtitles %1: %2").arg(Name, tr("the format is unknown, or the file is damaged.")));
	}
}

} // namespace Flitmark
