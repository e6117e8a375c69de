#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "CoreTypes.h"

#include <vector>

#define WITH_DEV_AUTOMATION_TESTS 1

/** Where a test can run, and what kind of test it is; the values are the engine's. */
struct EAutomationTestFlags
{
	enum Type : uint32
	{
		EditorContext = 0x00000001,
		ClientContext = 0x00000002,
		ServerContext = 0x00000004,
		CommandletContext = 0x00000008,
		ApplicationContextMask = EditorContext | ClientContext | ServerContext | CommandletContext,
		ProductFilter = 0x04000000,
	};
};

/** One engine-style test. It is registered for as long as it lives. */
class ENGINELAYER_API FAutomationTestBase
{
public:
	/** InName: its class's name. */
	FAutomationTestBase(const FString& InName, bool bInComplexTask);
	virtual ~FAutomationTestBase();
	FAutomationTestBase(const FAutomationTestBase&) = delete;
	FAutomationTestBase& operator=(const FAutomationTestBase&) = delete;

	virtual uint32 GetTestFlags() const = 0;
	/** The dotted name by which people pick the test. */
	FString GetTestFullName() const { return GetBeautifiedTestName(); }

	/** Runs the test; false if it returned false or recorded an error. */
	bool Execute();
	const TArray<FString>& GetErrors() const { return Errors; }

	void AddError(const FString& InError, int32 StackOffset = 0);

	/** Each records an error that begins with What, and returns false, if the values differ. */
	bool TestTrue(const TCHAR* What, bool Value);
	bool TestFalse(const TCHAR* What, bool Value) { return TestTrue(What, !Value); }
	bool TestEqual(const TCHAR* What, int32 Actual, int32 Expected);
	bool TestEqual(const TCHAR* What, double Actual, double Expected, double Tolerance = 1.e-4);
	/** Ignores case. */
	bool TestEqual(const TCHAR* What, const FString& Actual, const FString& Expected);
	bool TestNotNull(const TCHAR* What, const void* Pointer);
	bool TestNull(const TCHAR* What, const void* Pointer);

protected:
	virtual bool RunTest(const FString& Parameters) = 0;
	virtual FString GetBeautifiedTestName() const = 0;

private:
	TArray<FString> Errors;
};

/** Every test in the loaded libraries, in order of registration. */
ENGINELAYER_API const std::vector<FAutomationTestBase*>& GetAutomationTests();

#define IMPLEMENT_SIMPLE_AUTOMATION_TEST(TClass, PrettyName, TFlags)                                                   \
	class TClass final : public FAutomationTestBase                                                                    \
	{                                                                                                                  \
	public:                                                                                                            \
		explicit TClass(const FString& InName)                                                                         \
			: FAutomationTestBase(InName, false)                                                                       \
		{                                                                                                              \
		}                                                                                                              \
		uint32 GetTestFlags() const override { return TFlags; }                                                        \
                                                                                                                       \
	protected:                                                                                                         \
		bool RunTest(const FString& Parameters) override;                                                              \
		FString GetBeautifiedTestName() const override { return TEXT(PrettyName); }                                    \
	};                                                                                                                 \
	namespace                                                                                                          \
	{                                                                                                                  \
	TClass TClass##AutomationTestInstance(TEXT(#TClass));                                                              \
	}
