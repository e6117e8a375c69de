#include "Containers/StringConv.h"
#include "Misc/AutomationTest.h"
#include "Modules/ModuleManager.h"
#include "SaveGameSystem.h"
#include "UObject/UObjectGlobals.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

namespace
{

/** In-memory slots, so that no test touches the user's. */
class FMemorySlots final : public ISaveGameSystem
{
public:
	FMemorySlots() { Install(this); }
	~FMemorySlots() override { Install(nullptr); }

	bool DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex) override
	{
		return Slots.contains({Name, UserIndex});
	}
	bool SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data) override
	{
		Slots[{Name, UserIndex}] = Data;
		return true;
	}
	bool LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data) override
	{
		const auto Found = Slots.find({Name, UserIndex});
		if (Found != Slots.end())
		{
			Data = Found->second;
		}
		return Found != Slots.end();
	}

private:
	std::map<std::pair<std::u16string, int32>, TArray<uint8>> Slots;
};

std::string ToUtf8(const FString& Text)
{
	return TCHAR_TO_UTF8(*Text);
}

bool Run(FAutomationTestBase& Test)
{
	const bool bPassed = Test.Execute();
	for (const FString& Error : Test.GetErrors())
	{
		std::fprintf(stderr, "%s\n", ToUtf8(Error).c_str());
	}
	std::printf("%s %s\n", bPassed ? "passed" : "FAILED", ToUtf8(Test.GetTestFullName()).c_str());
	return bPassed;
}

/** Runs every test whose name is InName or begins with it and a dot; false if one fails or there is none. */
bool RunNamed(const std::string& InName)
{
	int32 NumRun = 0;
	bool bPassed = true;
	for (FAutomationTestBase* Test : GetAutomationTests())
	{
		if ((ToUtf8(Test->GetTestFullName()) + ".").starts_with(InName + "."))
		{
			++NumRun;
			bPassed = Run(*Test) && bPassed;
		}
	}
	if (NumRun == 0)
	{
		std::fprintf(stderr, "there is no test %s; --list lists them\n", InName.c_str());
	}
	return bPassed && NumRun > 0;
}

} // namespace

/** Runs automation tests, or lists them. */
int main(int NumArguments, char** Arguments)
{
	const std::string Asked = NumArguments == 2 ? Arguments[1] : "";
	if (Asked.empty())
	{
		std::fprintf(stderr, "usage: %s --list | NAME    NAME: a test, or the first parts of its name\n", Arguments[0]);
		return 2;
	}
	FMemorySlots Slots;
	std::string Error;
	if (FModuleManager::Get().LoadModule(TEXT("FlitmarkTests"), Error) == nullptr)
	{
		std::fprintf(stderr, "%s\n", Error.c_str());
		return 2;
	}
	bool bPassed = true;
	if (Asked == "--list")
	{
		for (const FAutomationTestBase* Test : GetAutomationTests())
		{
			std::printf("%s\n", ToUtf8(Test->GetTestFullName()).c_str());
		}
	}
	else
	{
		bPassed = RunNamed(Asked);
	}
	// Refused if a test left objects in use.
	CollectGarbage();
	if (!FModuleManager::Get().UnloadModule(TEXT("FlitmarkTests"), Error))
	{
		std::fprintf(stderr, "%s\n", Error.c_str());
		return 1;
	}
	return bPassed ? 0 : 1;
}
