#include "JsonScan.h"

namespace Flitmark
{

std::size_t FindStringEnd(std::string_view InText, std::size_t InOffset)
{
	for (std::size_t Quote = InText.find('"', InOffset + 1); Quote != std::string_view::npos;
		 Quote = InText.find('"', Quote + 1))
	{
		// An odd number of backslashes before it escapes it. They end at the opening quote at the latest.
		const std::size_t NumBackslashes = Quote - 1 - InText.find_last_not_of('\\', Quote - 1);
		if (NumBackslashes % 2 == 0)
		{
			return Quote + 1;
		}
	}
	return std::string_view::npos;
}

std::size_t FindBalancedEnd(std::string_view InText, std::size_t InOffset)
{
	std::size_t Depth = 0;
	std::size_t Offset = InOffset;
	while (Offset < InText.size())
	{
		const char Character = InText[Offset];
		if (Character == '"')
		{
			Offset = FindStringEnd(InText, Offset);
			continue;
		}
		++Offset;
		Depth += Character == '{' || Character == '[' ? 1 : 0;
		Depth -= Character == '}' || Character == ']' ? 1 : 0;
		if (Depth == 0)
		{
			return Offset;
		}
	}
	return std::string_view::npos;
}

std::size_t SkipJsonBlanks(std::string_view InText, std::size_t InOffset)
{
	while (InOffset < InText.size())
	{
		const char Character = InText[InOffset];
		if (Character != ' ' && Character != '\n' && Character != '\r' && Character != '\t')
		{
			return InOffset;
		}
		++InOffset;
	}
	return std::string_view::npos;
}

} // namespace Flitmark
