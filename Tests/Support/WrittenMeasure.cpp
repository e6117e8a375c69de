#include "WrittenMeasure.h"

#include "Files/FileText.h"

#include <cstdlib>

namespace Flitmark
{

FVector2D FWrittenMeasure::Measure(const FString& Text, const FSlateFontInfo&)
{
	++NumCalls;
	const std::string Written = ToUtf8(Text);
	char* End = nullptr;
	const double Width = std::strtod(Written.c_str(), &End);
	if (End == Written.c_str() || *End != 'x')
	{
		return FVector2D(0.0, 0.0);
	}
	return FVector2D(Width, std::strtod(End + 1, nullptr));
}

} // namespace Flitmark
