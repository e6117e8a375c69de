#include "Playback/MediaSession.h"

#include "Playback/MediaPaths.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

/** Seconds from the start and from the end in which a position is not worth keeping; in short videos, parts of them. */
constexpr double TooNearStart = 20.0;
constexpr double TooNearEnd = 30.0;
constexpr double StartPart = 0.2;
constexpr double EndPart = 0.3;

/** Seconds that a position may be off after a power cut. */
constexpr double KeepEvery = 10.0;

/** The viewer's languages as files' names have them: "zh-Hant-TW", "zh_Hant_TW", "zh", ... */
QStringList LanguageNames()
{
	QStringList Names;
	for (const QString& Tag : QLocale::system().uiLanguages())
	{
		Names.append({Tag, QString(Tag).replace('-', '_'), Tag.section('-', 0, 0)});
	}
	Names.removeDuplicates();
	return Names;
}

} // namespace

FMediaSession::FMediaSession(QSettings& InOutSettings)
	: Recents(InOutSettings)
{
}

void FMediaSession::Open(const QString& InVideo, double InStart)
{
	const FRecentFile* const Recent = Recents.Find(InVideo);
	Start = InStart > 0.0 ? InStart : Recent != nullptr ? Recent->Position : 0.0;
	Video = InVideo;
	Kept = Start;
}

QStringList FMediaSession::FindComments() const
{
	QStringList Paths = FindCommentsBeside(Video, LanguageNames());
	const FRecentFile* const Recent = Recents.Find(Video);
	if (Recent != nullptr && !Recent->Comments.isEmpty() && QFileInfo::exists(Recent->Comments))
	{
		Paths.prepend(Recent->Comments);
		Paths.removeDuplicates();
	}
	return Paths;
}

QUrl FMediaSession::GetFolder() const
{
	const FRecentFile* const Latest = Recents.GetLatest();
	const QString Path = !Video.isEmpty() ? Video : Latest != nullptr ? Latest->Video : QString();
	const QString Folder = QFileInfo(Path).path();
	const bool bUsable = !Path.isEmpty() && !IsAddress(Path) && QFileInfo(Folder).isDir();
	const QString Videos = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
	return QUrl::fromLocalFile(bUsable ? Folder : QFileInfo(Videos).isDir() ? Videos : QDir::homePath());
}

void FMediaSession::Remember(const QString& InTitle, const QString& InComments)
{
	const FRecentFile* const Known = Recents.Find(Video);
	FRecentFile File = Known != nullptr ? *Known : FRecentFile{Video, {}, {}, 0.0};
	File.Title = InTitle;
	if (!InComments.isEmpty())
	{
		File.Comments = InComments;
	}
	Recents.Add(File);
}

void FMediaSession::KeepPosition(double InPosition, double InDuration)
{
	const bool bWorthwhile = InPosition > std::min(TooNearStart, StartPart * InDuration) &&
							 InPosition < InDuration - std::min(TooNearEnd, EndPart * InDuration);
	Recents.SetPosition(Video, bWorthwhile ? InPosition : 0.0);
	Kept = InPosition;
}

void FMediaSession::Follow(double InPosition, double InDuration)
{
	if (std::abs(InPosition - Kept) >= KeepEvery)
	{
		KeepPosition(InPosition, InDuration);
	}
}

} // namespace Flitmark
