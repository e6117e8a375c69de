#pragma once

#include <string>
#include <vector>

/** What the records say about the module that the headers belong to. */
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
	/** `X.generated.h` and `X.gen.cpp` of each header, in its order; Path is the plain name. Empty when a header is refused. */
	std::vector<FTextFile> Files;
	/** "FILE:LINE: message": what is wrong and how to mend it. */
	std::vector<std::string> Errors;
};

/**
 * Reads the marks of a module's headers, all in one go because classes refer to each other, and writes their records. Used:
 * headers of other modules that these refer to; nothing is written for them.
 */
FGenerated GenerateReflection(const FModuleInfo& Module, const std::vector<FTextFile>& Headers,
							  const std::vector<FTextFile>& Used = {});
