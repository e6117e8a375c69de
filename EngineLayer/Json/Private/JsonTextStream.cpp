#include "JsonTextStream.h"

namespace
{
bool IsHexDigit(TCHAR Character)
{
	return (Character >= u'0' && Character <= u'9') || (Character >= u'A' && Character <= u'F') ||
		   (Character >= u'a' && Character <= u'f');
}

uint32 HexValue(TCHAR Digit)
{
	return Digit <= u'9' ? Digit - u'0' : (Digit | 0x20u) - u'a' + 10u;
}

/** The surrogate that the backslash at At escapes; 0 if it's another escape. */
TCHAR ReadSurrogateEscape(const TCHAR* At, const TCHAR* End)
{
	if (End - At < 6 || At[1] != u'u')
	{
		return 0;
	}
	uint32 Unit = 0;
	for (int32 Index = 2; Index < 6; ++Index)
	{
		if (!IsHexDigit(At[Index]))
		{
			return 0;
		}
		Unit = Unit * 16 + HexValue(At[Index]);
	}
	return Unit >= 0xD800 && Unit <= 0xDFFF ? static_cast<TCHAR>(Unit) : TCHAR(0);
}
} // namespace

void FJsonTextStream::ReplaceSurrogateEscapes(const TCHAR* FirstEscape)
{
	Replaced.clear();
	const TCHAR* Copied = StringBegin;
	const TCHAR* At = FirstEscape;
	while (At < End && *At != u'"')
	{
		if (*At != u'\\')
		{
			++At;
			continue;
		}
		if (const TCHAR Surrogate = ReadSurrogateEscape(At, End))
		{
			Replaced.append(Copied, At);
			Replaced.push_back(Surrogate);
			Copied = At + 6;
			At = Copied;
		}
		else
		{
			At += 2;
		}
	}
	if (Copied != StringBegin)
	{
		Rest = At < End ? At + 1 : End;
		Replaced.append(Copied, Rest);
		Current = Replaced.c_str();
	}
}
