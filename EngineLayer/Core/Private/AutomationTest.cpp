#include "Misc/AutomationTest.h"

#include "Containers/StringConv.h"

#include <cmath>
#include <string>

namespace
{

std::vector<FAutomationTestBase*>& GetRegistered()
{
	static std::vector<FAutomationTestBase*> Registered;
	return Registered;
}

FString ToText(double Number)
{
	return FString(UTF8_TO_TCHAR(std::to_string(Number).c_str()));
}

FString Differ(const TCHAR* What, const FString& Actual, const FString& Expected)
{
	return FString(What) + TEXT(": expected ") + Expected + TEXT(", but it was ") + Actual;
}

} // namespace

const std::vector<FAutomationTestBase*>& GetAutomationTests()
{
	return GetRegistered();
}

FAutomationTestBase::FAutomationTestBase(const FString&, bool)
{
	GetRegistered().push_back(this);
}

FAutomationTestBase::~FAutomationTestBase()
{
	std::erase(GetRegistered(), this);
}

bool FAutomationTestBase::Execute()
{
	Errors.Empty();
	const bool bSaidSo = RunTest(FString());
	return bSaidSo && Errors.IsEmpty();
}

void FAutomationTestBase::AddError(const FString& InError, int32)
{
	Errors.Add(InError);
}

bool FAutomationTestBase::TestTrue(const TCHAR* What, bool Value)
{
	if (!Value)
	{
		AddError(FString(What) + TEXT(": not as expected"));
	}
	return Value;
}

bool FAutomationTestBase::TestEqual(const TCHAR* What, int32 Actual, int32 Expected)
{
	if (Actual != Expected)
	{
		AddError(Differ(What, FString::FromInt(Actual), FString::FromInt(Expected)));
	}
	return Actual == Expected;
}

bool FAutomationTestBase::TestEqual(const TCHAR* What, double Actual, double Expected, double Tolerance)
{
	const bool bEqual = std::abs(Actual - Expected) <= Tolerance;
	if (!bEqual)
	{
		AddError(Differ(What, ToText(Actual), ToText(Expected)));
	}
	return bEqual;
}

bool FAutomationTestBase::TestEqual(const TCHAR* What, const FString& Actual, const FString& Expected)
{
	const bool bEqual = Actual == Expected;
	if (!bEqual)
	{
		AddError(Differ(What, Actual, Expected));
	}
	return bEqual;
}

bool FAutomationTestBase::TestNotNull(const TCHAR* What, const void* Pointer)
{
	return TestTrue(What, Pointer != nullptr);
}

bool FAutomationTestBase::TestNull(const TCHAR* What, const void* Pointer)
{
	return TestTrue(What, Pointer == nullptr);
}
