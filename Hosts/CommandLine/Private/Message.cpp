#include "Message.h"

#include "Activity.h"
#include "ExitCodes.h"

#include <cstdio>

namespace Flitmark
{

int PrintError(const std::string& InMessage)
{
	PrintNote(InMessage);
	return ExitFailure;
}

void PrintNote(const std::string& InMessage)
{
	PrintPlainError("flitmark: " + InMessage);
}

void PrintPlainError(const std::string& InLine)
{
	FActivity::Clear();
	// In one piece, so that lines of several programs do not mix.
	std::fputs((MakeVisible(InLine) + "\n").c_str(), stderr);
}

void PrintNotes(const std::vector<std::string>& InMessages)
{
	for (const std::string& Message : InMessages)
	{
		PrintNote(Message);
	}
}

} // namespace Flitmark
