#pragma once

#include <string>

/**
 * What the editor shows of a documentation comment: no delimiters, leading stars or common indentation, and no blank
 * lines at either end. Empty for a comment without letters or digits (a separator line).
 */
std::string FormatToolTip(const std::string& Comment);
