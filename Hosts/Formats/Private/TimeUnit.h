#pragma once

#include "Formats/FieldValues.h"
#include "Formats/ServiceComment.h"

#include <span>

namespace Flitmark
{

/**
 * For formats in which some programs write seconds and others milliseconds: settles which by all times of a file, which
 * were read as seconds. InUsual: what to take where they do not tell.
 */
void SettleTimeUnit(std::span<FServiceComment> InOutComments, ETimeUnit InUsual);

} // namespace Flitmark
