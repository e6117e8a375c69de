#pragma once

#include <string>
#include <utility>

namespace Flitmark
{

/** A video to read. */
struct FVideoFile
{
	FVideoFile(std::string InPath, bool bInAllowPlaylists = false)
		: Path(std::move(InPath))
		, bAllowPlaylists(bInAllowPlaylists)
	{
	}

	std::string Path;

	/**
	 * Whether files that it names are opened too. A video from elsewhere can be a list of files of this machine, whatever
	 * its name says.
	 */
	bool bAllowPlaylists;
};

} // namespace Flitmark
