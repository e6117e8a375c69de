#pragma once

#include <string>

/**
 * What the editor shows of a documentation comment: without its marks, leading stars and common indentation, without empty lines
 * at its ends. Empty for a comment that has no letter or digit (a separator line).
 */
std::string FormatToolTip(const std::string& Comment);
