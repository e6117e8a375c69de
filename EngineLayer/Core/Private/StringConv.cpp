#include "Containers/StringConv.h"
#include "Utf8.h"

namespace
{
void AppendUtf8(std::string& Bytes, uint32 Codepoint)
{
	const auto AppendContinuations = [&Bytes, Codepoint](int32 Count)
	{
		for (int32 Shift = (Count - 1) * 6; Shift >= 0; Shift -= 6)
		{
			Bytes.push_back(static_cast<char>(0x80 | (Codepoint >> Shift & 0x3F)));
		}
	};
	if (Codepoint < 0x80)
	{
		Bytes.push_back(static_cast<char>(Codepoint));
	}
	else if (Codepoint < 0x800)
	{
		Bytes.push_back(static_cast<char>(0xC0 | Codepoint >> 6));
		AppendContinuations(1);
	}
	else if (Codepoint < 0x10000)
	{
		Bytes.push_back(static_cast<char>(0xE0 | Codepoint >> 12));
		AppendContinuations(2);
	}
	else
	{
		Bytes.push_back(static_cast<char>(0xF0 | Codepoint >> 18));
		AppendContinuations(3);
	}
}
} // namespace

FUTF8ToTCHAR::FUTF8ToTCHAR(const char* Source, int32 SourceLen)
	: Converted(DecodeUtf8(reinterpret_cast<const uint8*>(Source), static_cast<std::size_t>(SourceLen)))
{
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source, int32 SourceLen)
{
	Converted.reserve(static_cast<std::size_t>(SourceLen));
	const TCHAR* const End = Source + SourceLen;
	while (Source != End)
	{
		const uint32 Unit = *Source++;
		if (StringConv::IsHighSurrogate(Unit) && Source != End && StringConv::IsLowSurrogate(*Source))
		{
			AppendUtf8(Converted, 0x10000 + ((Unit - 0xD800) << 10) + (*Source++ - 0xDC00u));
		}
		else
		{
			const bool bHalfPair = StringConv::IsHighSurrogate(Unit) || StringConv::IsLowSurrogate(Unit);
			AppendUtf8(Converted, bHalfPair ? 0xFFFD : Unit);
		}
	}
}
