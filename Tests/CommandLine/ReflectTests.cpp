#include "ProgramKit.h"

#include <gtest/gtest.h>

namespace Flitmark::Testing
{

/**
 * The contract with widget blueprints and stored records. To change it on purpose, split the output of `flitmark
 * reflect` into the two files in Tests/CommandLine/Golden and tell users in the changelog.
 */
TEST(FReflect, ListsWhatBlueprintsRelyOn)
{
	const FProgramResult Result = FProgram({"reflect"}).Wait();
	EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
	// One file per list: the first is a contract, the second may grow.
	EXPECT_EQ(Result.Out,
			  ReadFile(REFLECT_GOLDEN "/reflect.txt") + "\n" + ReadFile(REFLECT_GOLDEN "/reflect-widgets.txt"));
}

TEST(FReflect, SaysItToProgramsToo)
{
	const FProgramResult Result = FProgram({"reflect", "--json"}).Wait();
	EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
	for (const char* Part :
		 {"\"package\":\"/Script/Flitmark\"",
		  "{\"name\":\"DanmakuCanvasPanel\",\"type\":\"TObjectPtr<UCanvasPanel>\",\"kind\":\"bound widget\"",
		  "\"name\":\"SmallFontSize\",\"type\":\"int32\",\"kind\":\"editable "
		  "anywhere\",\"category\":\"Setting\",\"default\":18",
		  "{\"name\":\"EDanmakuMode::REVERSE\",\"value\":3}", "\"ready_made\":{\"module\":\"FlitmarkWidgets\""})
	{
		EXPECT_NE(Result.Out.find(Part), std::string::npos) << Part;
	}
}

TEST(FReflect, FailsWhereNobodyListens)
{
	const FProgramResult Result = FProgram({"reflect"}, "/dev/full").Wait();
	EXPECT_EQ(Result.ExitCode, 1);
	EXPECT_NE(Result.Error.find("cannot be written"), std::string::npos) << Result.Error;
}

} // namespace Flitmark::Testing
