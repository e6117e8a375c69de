#include "FormatsKit.h"

/** Any bytes as every JSON format. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	Flitmark::ImportChecked(Flitmark::ToBytes(Data, Size), Flitmark::EFormatSyntax::Json);
	return 0;
}
