#include "PaidText.h"

namespace Flitmark
{

std::string MakePaidText(std::string_view InSender, std::string_view InAmount, std::string_view InWords)
{
	std::string Text(InSender);
	if (!InAmount.empty())
	{
		Text.append(Text.empty() ? "(" : " (").append(InAmount).append(")");
	}
	return Text.append(Text.empty() || InWords.empty() ? "" : ": ").append(InWords);
}

} // namespace Flitmark
