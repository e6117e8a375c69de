#include "JsonScan.h"

namespace Flitmark
{

std::size_t FindStringEnd(std::string_view InText, std::size_t InOffset)
{
	for (std::size_t Offset = InOffset + 1; Offset < InText.size(); ++Offset)
	{
		if (InText[Offset] == '"')
		{
			return Offset + 1;
		}
		Offset += InText[Offset] == '\\' ? 1 : 0;
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
