#include "FormatsKit.h"
#include "XmlImport.h"

/** Any bytes as both forms of XML. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	using namespace Flitmark;
	ImportChecked(ToBytes(Data, Size), ImportListXml);
	ImportChecked(ToBytes(Data, Size), ImportChatXml);
	return 0;
}
