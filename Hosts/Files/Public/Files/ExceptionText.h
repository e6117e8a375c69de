#pragma once

#include <exception>
#include <string>

namespace Flitmark
{

/** What went wrong, for people: the cause of what the standard library throws, and the text of other exceptions. */
std::string ExplainException(const std::exception& InException);

} // namespace Flitmark
