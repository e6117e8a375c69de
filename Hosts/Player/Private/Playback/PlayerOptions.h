#pragma once

#include <QString>

#include <optional>
#include <string>

namespace Flitmark
{

/** What the player starts with. */
struct FPlayerOptions
{
	/** A file's path or an address; empty starts with nothing open. */
	QString Video;

	/** Empty: those found next to the video. */
	QString Comments;

	bool bFullScreen = false;

	/** Seconds. */
	double Start = 0.0;

	/** Times normal speed. */
	double Speed = 1.0;

	/** Percent; empty: as last time. */
	std::optional<double> Volume;

	bool bHardwareDecoding = true;

	/** An audio output by its libmpv name; empty: the first that works. */
	std::string AudioOutput;

	/** Folders of the player's settings and of the viewer's preferences; empty: the user's own. */
	QString SettingsFolder;
	QString SaveFolder;
};

} // namespace Flitmark
