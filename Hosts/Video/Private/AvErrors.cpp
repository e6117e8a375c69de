#include "AvErrors.h"

#include "AvHandles.h"

extern "C"
{
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>

namespace Flitmark
{

namespace
{

constexpr size_t MostLines = 3;

std::mutex LogMutex;
std::deque<std::string> LogLines;

std::string Trimmed(std::string InText)
{
	const size_t End = InText.find_last_not_of(" \r\n");
	InText.resize(End == std::string::npos ? 0 : End + 1);
	return InText;
}

void KeepLine(void*, int InLevel, const char* InFormat, va_list InArguments)
{
	if (InLevel > AV_LOG_ERROR)
	{
		return;
	}
	char Buffer[512];
	vsnprintf(Buffer, sizeof(Buffer), InFormat, InArguments);
	std::string Line = Trimmed(Buffer);
	const std::lock_guard Lock(LogMutex);
	if (Line.empty() || (!LogLines.empty() && LogLines.back() == Line))
	{
		return;
	}
	LogLines.push_back(std::move(Line));
	if (LogLines.size() > MostLines)
	{
		LogLines.pop_front();
	}
}

} // namespace

std::string AvErrorText(int InCode)
{
	char Buffer[AV_ERROR_MAX_STRING_SIZE] = {};
	av_strerror(InCode, Buffer, sizeof(Buffer));
	return Buffer;
}

void FAvLog::Start()
{
	static std::once_flag Once;
	std::call_once(Once,
				   []
				   {
					   av_log_set_callback(&KeepLine);
					   // SVT-AV1 writes to the terminal, bypassing FFmpeg's log; this keeps only its errors.
					   setenv("SVT_LOG", "1", 0);
				   });
	const std::lock_guard Lock(LogMutex);
	LogLines.clear();
}

std::string FAvLog::Explain(int InCode)
{
	std::string Text = AvErrorText(InCode);
	const std::lock_guard Lock(LogMutex);
	if (!LogLines.empty())
	{
		Text += " (";
		for (size_t Index = 0; Index < LogLines.size(); ++Index)
		{
			Text += (Index > 0 ? "; " : "") + LogLines[Index];
		}
		Text += ")";
	}
	return Text;
}

} // namespace Flitmark
