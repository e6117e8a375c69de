#pragma once

#include "Playback/RecentFiles.h"

#include <QStringList>
#include <QUrl>

namespace Flitmark
{

/** Which video is open, and what is remembered of it for the next time. */
class FMediaSession
{
public:
	/** InOutSettings outlives the session. */
	explicit FMediaSession(QSettings& InOutSettings);

	/** InVideo: a path or an address. InStart: seconds; 0 for where it was left. */
	void Open(const QString& InVideo, double InStart);
	void Close() { Video.clear(); }

	/** Empty for none. */
	const QString& GetVideo() const { return Video; }
	/** Seconds from the start at which to begin. */
	double GetStart() const { return Start; }
	/** Files in which its comments may be, the likeliest first: those last used with it, then those beside it. */
	QStringList FindComments() const;
	/** Where to look for files first. */
	QUrl GetFolder() const;

	/** It plays: puts it on top of the recent files. InComments: empty leaves those remembered. */
	void Remember(const QString& InTitle, const QString& InComments);
	/** Where it is left, in seconds; near the start or the end it begins anew the next time. */
	void KeepPosition(double InPosition, double InDuration);
	/** Where it is now: kept every ten seconds, in case nobody gets to say where it was left. */
	void Follow(double InPosition, double InDuration);

	FRecentFiles& GetRecents() { return Recents; }

private:
	FRecentFiles Recents;
	QString Video;
	double Start = 0.0;
	/** The position kept last. */
	double Kept = 0.0;
};

} // namespace Flitmark
