#include "JsonSchema.h"

#include "Formats/CleanText.h"

namespace Flitmark
{

void IJsonSchema::SetTime(std::string_view InText, ETimeUnit InUnit)
{
	const std::optional<int64> Ticks = ParseTicks(InText, InUnit);
	Comment.SpawnTicks = Ticks.value_or(0);
	bHasTime = Ticks.has_value();
}

const char* IJsonSchema::FinishText()
{
	CleanText(Comment.Text);
	if (!bHasTime)
	{
		return "has no readable time";
	}
	return Comment.Text.empty() ? "has no text" : nullptr;
}

} // namespace Flitmark
