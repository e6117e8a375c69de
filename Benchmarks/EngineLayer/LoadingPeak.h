#pragma once

#include <string>

/** Most memory that a process holds that does nothing but load this document from a file, in bytes. */
double MeasureLoadingPeak(const std::string& Document);

/** What that process does: loads the file and prints its peak of resident memory in bytes. */
int LoadAndPrintPeak(const char* FileName);
