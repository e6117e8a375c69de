#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <span>
#include <string>

namespace Flitmark
{

/**
 * Draws how many comments come when: an SVG image of 1200 x 400. It has a title, one line below it, a bar for each of up
 * to 200 round stretches of time, axes with round times and counts, and the (up to three) busiest bars marked with their
 * time and what is said most there. The background is opaque, so the image reads on light and dark pages; texts are
 * escaped, and no font or other file is needed. Comments that are never reached are left out.
 */
std::string DrawDensityPicture(std::span<const FServiceComment> InComments, const std::string& InTitle,
							   const std::string& InSubtitle);

} // namespace Flitmark
