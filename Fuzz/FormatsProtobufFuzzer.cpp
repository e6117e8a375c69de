#include "FormatsKit.h"
#include "ProtobufImport.h"

/** Any bytes as the binary form of a list. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	using namespace Flitmark;
	ImportChecked(ToBytes(Data, Size), ImportListProtobuf);
	return 0;
}
