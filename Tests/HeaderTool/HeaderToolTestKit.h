#pragma once

#include "HeaderTool.h"

#include <string>

/** Runs one header, Public/Sample.h of the module Sample. */
inline FGenerated Generate(const std::string& Text)
{
	return GenerateReflection({"Sample", "/Script/Sample", "SAMPLE_API"}, {{"Sample/Public/Sample.h", Text}});
}

/** A header with these declarations, the first of which is on line 3. */
inline std::string WithInclude(const std::string& Declarations)
{
	return "#pragma once\n#include \"Sample.generated.h\"\n" + Declarations;
}

/** A header with one widget class with these members, the first of which is on line 7. */
inline std::string WithMembers(const std::string& Members)
{
	return WithInclude("UCLASS()\nclass SAMPLE_API USample : public UUserWidget\n{\n\tGENERATED_BODY()\n" + Members +
					   "\n};\n");
}
