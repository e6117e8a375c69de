#pragma once

#include "CoreTypes.h"

#include <string>
#include <vector>

namespace Flitmark
{

/** A font as programs that draw text themselves ask for it. */
struct FFontFace
{
	std::string Family;
	/** As in OpenType's OS/2 table: 400 is regular, 700 bold. */
	int32 Weight = 400;
	bool bItalic = false;

	/**
	 * The cell of a line in ems, above and below the baseline: what the OS/2 table says of Windows, or else the font's
	 * own line. Subtitle renderers take a font's size for the height of its cell.
	 */
	double Ascent = 1.0;
	double Descent = 0.0;
};

/** Adjacent characters of a line that one font draws. */
struct FTextPiece
{
	std::u32string Text;
	/** Lives as long as the text engine. */
	const FFontFace* Face = nullptr;
	/** The font has its own colors, and perhaps no outlines. */
	bool bColor = false;
};

/** A line of a text. */
struct FTextRow
{
	/** In reading order. */
	std::vector<FTextPiece> Pieces;

	/** Where the first letter begins, in ems from the left and the top of the text's box. */
	double Left = 0.0;
	double Baseline = 0.0;

	/** Needs the bidirectional algorithm, the first strong character deciding the direction. */
	bool bBidi = false;
};

} // namespace Flitmark
