#include "JsonReference.h"
#include "Misc/FileHelper.h"

#include <cstdio>
#include <cstdlib>

/** Any bytes: decoded, read and held against RapidJSON alone. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	FString Text;
	FFileHelper::BufferToString(Text, Data, static_cast<int32>(Size));
	const std::string Difference = CompareWithReference(Text);
	if (!Difference.empty())
	{
		std::fprintf(stderr, "The readers differ: %s\n", Difference.c_str());
		std::abort();
	}
	return 0;
}
