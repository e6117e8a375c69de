#pragma once

#include "CoreTypes.h"

#include <string>

/**
 * A comment document in UTF-8: the ten members of each comment with values of lifelike lengths, texts in Latin and CJK
 * by turns, about 285 bytes a comment. The same count gives the same document.
 */
std::string MakeCommentDocument(int32 Count);
