#pragma once

#include <string>
#include <vector>

/** The records' data about the headers' module. */
struct FModuleInfo
{
	/** "Flitmark". */
	std::string Name;
	/** "/Script/Flitmark". */
	std::string Package;
	/** "FLITMARK_API"; empty for a module that exports nothing. */
	std::string Api;
};

struct FTextFile
{
	std::string Path;
	std::string Text;
};

struct FGenerated
{
	/**
	 * `X.generated.h` and `X.gen.cpp` for each header, in order; Path is just the file name. Empty if a header was
	 * refused.
	 */
	std::vector<FTextFile> Files;
	/** "FILE:LINE: message": what is wrong and how to fix it. */
	std::vector<std::string> Errors;
};

/**
 * Reads the macros in a module's headers, all at once because classes refer to each other, and writes their records.
 * Used: headers of other modules to which these refer; nothing is written for them.
 */
FGenerated GenerateReflection(const FModuleInfo& Module, const std::vector<FTextFile>& Headers,
							  const std::vector<FTextFile>& Used = {});
