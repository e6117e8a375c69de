#include "ListParameters.h"
#include "XmlFormat.h"
#include "XmlTag.h"

namespace Flitmark
{

namespace
{

bool IsListEntry(std::string_view InTag)
{
	return !FindXmlAttribute(InTag, "p").empty();
}

bool ReadListTag(std::string_view InTag, FServiceComment& OutComment)
{
	std::string Storage;
	return ReadListParameters(ResolveEntities(FindXmlAttribute(InTag, "p"), Storage), OutComment);
}

/** `<d p="...">text</d>` */
constexpr FXmlSchema Schema = {
	"i", "d", IsListEntry, ReadListTag, "has no readable time at the start of its attribute \"p\"", FinishListText};

} // namespace

extern const FCommentFormat ListXmlFormat = MakeXmlFormat<Schema>("list-xml", "XML list");

} // namespace Flitmark
