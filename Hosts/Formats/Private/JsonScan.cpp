#include "JsonScan.h"

namespace Flitmark
{

std::size_t FindStringEnd(std::string_view InText, std::size_t InPlace)
{
	for (std::size_t Place = InPlace + 1; Place < InText.size(); ++Place)
	{
		if (InText[Place] == '"')
		{
			return Place + 1;
		}
		Place += InText[Place] == '\\' ? 1 : 0;
	}
	return std::string_view::npos;
}

std::size_t FindBalancedEnd(std::string_view InText, std::size_t InPlace)
{
	std::size_t Depth = 0;
	std::size_t Place = InPlace;
	while (Place < InText.size())
	{
		const char Character = InText[Place];
		if (Character == '"')
		{
			Place = FindStringEnd(InText, Place);
			continue;
		}
		++Place;
		Depth += Character == '{' || Character == '[' ? 1 : 0;
		Depth -= Character == '}' || Character == ']' ? 1 : 0;
		if (Depth == 0)
		{
			return Place;
		}
	}
	return std::string_view::npos;
}

std::size_t SkipJsonBlanks(std::string_view InText, std::size_t InPlace)
{
	while (InPlace < InText.size())
	{
		const char Character = InText[InPlace];
		if (Character != ' ' && Character != '\n' && Character != '\r' && Character != '\t')
		{
			return InPlace;
		}
		++InPlace;
	}
	return std::string_view::npos;
}

} // namespace Flitmark
