#include "FormatsKit.h"

/** Any bytes as every XML format. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	Flitmark::ImportChecked(Flitmark::ToBytes(Data, Size), Flitmark::EFormatSyntax::Xml);
	return 0;
}
