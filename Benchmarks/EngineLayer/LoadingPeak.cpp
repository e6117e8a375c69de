#include "LoadingPeak.h"
#include "Loading.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace
{
FString ReadText(const char* FileName)
{
	std::string Bytes(std::filesystem::file_size(FileName), '\0');
	std::ifstream(FileName, std::ios::binary).read(Bytes.data(), static_cast<std::streamsize>(Bytes.size()));
	return ToString(Bytes);
}

/** The kernel's high-water mark of this process since its program started. */
double ReadPeak()
{
	std::ifstream Status("/proc/self/status");
	for (std::string Line; std::getline(Status, Line);)
	{
		if (Line.starts_with("VmHWM:"))
		{
			return std::atof(Line.c_str() + 6) * 1024.0;
		}
	}
	return 0.0;
}
} // namespace

int LoadAndPrintPeak(const char* FileName)
{
	const FString Text = ReadText(FileName);
	const FSchedule Schedule = FileRecords(Parse(Text));
	std::printf("%.0f\n", ReadPeak());
	return Schedule.IsEmpty() ? 1 : 0;
}

double MeasureLoadingPeak(const std::string& Document)
{
	const std::filesystem::path File =
		std::filesystem::temp_directory_path() / ("flitmark-loading-" + std::to_string(getpid()) + ".json");
	std::ofstream(File, std::ios::binary) << Document;
	const std::string Program = std::filesystem::read_symlink("/proc/self/exe").string();
	double Peak = 0.0;
	if (std::FILE* const Output = popen(("'" + Program + "' --peak-of '" + File.string() + "'").c_str(), "r"))
	{
		const bool bRead = std::fscanf(Output, "%lf", &Peak) == 1;
		Peak = pclose(Output) == 0 && bRead ? Peak : 0.0;
	}
	std::filesystem::remove(File);
	return Peak;
}
