#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * Takes the attributes between a tag's name and its end one by one, as written, entities and all. A missing
 * quote or no quotes at all do not hide the attributes after it.
 */
class FXmlAttributes
{
public:
	explicit FXmlAttributes(std::string_view InTag)
		: Tag(InTag)
	{
	}

	/** False when there are no more. */
	bool Next(std::string_view& OutName, std::string_view& OutValue);

private:
	std::string_view TakeValue();

	std::string_view Tag;
	std::size_t Offset = 0;
};

/** The value of one attribute; empty where there is none. */
std::string_view FindXmlAttribute(std::string_view InTag, std::string_view InName);

/** An attribute's value with its entities resolved; OutStorage holds it if there are any. */
std::string_view ResolveEntities(std::string_view InValue, std::string& OutStorage);

/** What stands between tags, with entities and CDATA sections resolved; anything else that looks like a tag is text. */
void AppendXmlText(std::string& OutText, std::string_view InContent);

} // namespace Flitmark
