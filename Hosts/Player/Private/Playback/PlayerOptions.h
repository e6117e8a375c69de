#pragma once

#include <QString>

#include <optional>
#include <string>

namespace Flitmark
{

/** How a player starts. */
struct FPlayerOptions
{
	/** A file's path or an address; empty starts with nothing open. */
	QString Video;

	/** Empty: those that lie beside the video. */
	QString Comments;

	bool bFullScreen = false;

	/** Seconds. */
	double Start = 0.0;

	/** Times normal speed. */
	double Speed = 1.0;

	/** Percent; empty: as loud as last time. */
	std::optional<double> Volume;

	bool bHardwareDecoding = true;

	/** libmpv's name of an audio output; empty: the first that works. */
	std::string AudioOutput;

	/** Where window, volume and recent files are remembered, and the viewer's preferences; empty: the user's folders. */
	QString SettingsFolder;
	QString SaveFolder;
};

} // namespace Flitmark
