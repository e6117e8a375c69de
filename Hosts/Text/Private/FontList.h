#pragma once

#include "Handles.h"

#include <string>
#include <vector>

namespace Flitmark
{

/** A font that fontconfig knows of; nothing of it is loaded yet. */
struct FFontFile
{
	std::string Path;

	/** Face within a collection in the low 16 bits, named instance of a variable font (from 1) in those above. */
	int Index = 0;
	std::string Family;
	FFcCharSetPtr Coverage;

	/** Draws in colours of its own: an emoji font. */
	bool bColor = false;
};

/**
 * The fonts for comment text in the order in which they are asked for a character: the family, then the system's
 * sans-serif fallbacks; a colour font last. Empty with OutError set where there is none or the pattern can't be read.
 */
std::vector<FFontFile> ListFonts(const std::string& InFamily, std::string& OutError);

} // namespace Flitmark
