#pragma once

#include "Formats/ServiceComment.h"

#include <string_view>

namespace Flitmark
{

/** Applies one or more blank-parted commands, such as `ue small red`; unknown ones change nothing. */
void ApplyChatCommands(std::string_view InCommands, FServiceComment& InOutComment);

} // namespace Flitmark
