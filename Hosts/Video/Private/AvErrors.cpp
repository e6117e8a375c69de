#include "AvErrors.h"

#include "AvHandles.h"
#include "Files/ExceptionText.h"

extern "C"
{
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fcntl.h>
#include <mutex>
#include <new>
#include <string_view>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

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
	try
	{
		FAvLog::Add(Buffer);
	}
	catch (const std::bad_alloc&)
	{
		// The callers, threads among them, are C and let no exception through; what failed is reported without the line.
	}
}

} // namespace

void FAvLog::Add(const std::string& InLine)
{
	std::string Line = Trimmed(InLine);
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

std::string AvErrorText(int InCode)
{
	// No stream here is one that would have to wait; it comes of a thread that could not be started.
	if (InCode == AVERROR(EAGAIN))
	{
		return ExplainException(std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again)));
	}
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

FStrayOutput::FStrayOutput()
{
	std::fflush(stderr);
	Terminal = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
	Kept = Terminal >= 0 ? memfd_create("stray output", MFD_CLOEXEC) : -1;
	if (Kept >= 0)
	{
		dup2(Kept, STDERR_FILENO);
	}
}

FStrayOutput::~FStrayOutput()
{
	if (Kept >= 0)
	{
		std::fflush(stderr);
		dup2(Terminal, STDERR_FILENO);
		std::array<char, 2048> Text;
		const ssize_t Size = pread(Kept, Text.data(), Text.size(), 0);
		std::string_view Rest(Text.data(), static_cast<size_t>(std::max<ssize_t>(0, Size)));
		while (!Rest.empty())
		{
			const size_t End = std::min(Rest.find('\n'), Rest.size() - 1) + 1;
			FAvLog::Add(std::string(Rest.substr(0, End)));
			Rest.remove_prefix(End);
		}
		close(Kept);
	}
	if (Terminal >= 0)
	{
		close(Terminal);
	}
}

} // namespace Flitmark
