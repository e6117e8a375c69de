#pragma once

#include "Formats/ServiceComment.h"

#include <string_view>

namespace Flitmark
{

/** Takes over the commands of one chat comment, such as `ue small red`. */
class FChatCommands
{
public:
	/** One or more commands, parted by blanks; of several of a kind the first holds, unknown ones change nothing. */
	void Apply(std::string_view InCommands, FServiceComment& InOutComment);

	/** Whether its sender wants it not shown. */
	bool IsHidden() const { return bHidden; }

private:
	void ApplyOne(std::string_view InCommand, FServiceComment& InOutComment);

	bool bHasKind = false;
	bool bHasSize = false;
	bool bHasColor = false;
	bool bHidden = false;
};

/** What an entry of a chat is if it is nothing for viewers (see FSkippedEntries); empty if it is a comment. */
std::string_view FindChatSkip(std::string_view InText, const FChatCommands& InCommands, bool bInDeleted);

} // namespace Flitmark
