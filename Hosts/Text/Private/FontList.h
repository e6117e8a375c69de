#pragma once

#include "Handles.h"
#include "Text/TextEngine.h"

#include <string>
#include <vector>

namespace Flitmark
{

/** A font known to fontconfig; not loaded yet. */
struct FFontFile
{
	std::string Path;

	/** Face within a collection in the low 16 bits, named instance of a variable font (from 1) above. */
	int Index = 0;
	std::string Family;
	FFcCharSetPtr Coverage;

	/** Has its own colors: an emoji font. */
	bool bColor = false;
};

/**
 * The fonts for comment text in fallback order: the options' family, then the system's
 * sans-serif fallbacks; a color font last. Empty with OutError set if there is none or the pattern is invalid.
 */
std::vector<FFontFile> ListFonts(const FTextOptions& InOptions, std::string& OutError);

} // namespace Flitmark
