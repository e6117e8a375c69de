#pragma once

#include <string>
#include <vector>

namespace Flitmark
{

/** "flitmark: what, where, what to do" on standard error; gives the exit status of a failure. */
int PrintError(const std::string& InMessage);

/** The same for what is worth knowing but not a failure. */
void PrintNote(const std::string& InMessage);
void PrintNotes(const std::vector<std::string>& InMessages);

} // namespace Flitmark
