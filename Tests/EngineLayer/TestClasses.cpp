#include "TestClasses.h"

#include "Containers/StringConv.h"
#include "UObject/GeneratedCppIncludes.h"

#include <utility>

#pragma GCC diagnostic ignored "-Winvalid-offsetof"

using namespace UECodeGen_Private;

namespace
{

constexpr FMetaDataPairParam BindWidget[] = {{"BindWidget", "true"}};

constexpr FPropertyParams MakeProperty(const char* Name, EPropertyGenKind Kind, std::size_t Offset,
									   uint64 Flags = CPF_None)
{
	return {Name, Kind, Flags, static_cast<uint32>(Offset), nullptr, nullptr, nullptr, nullptr, {}};
}

FPropertyParams MakeBound(const char* Name, std::size_t Offset, UClass* (*ClassGetter)())
{
	return {Name,
			EPropertyGenKind::Object,
			CPF_InstancedReference,
			static_cast<uint32>(Offset),
			ClassGetter,
			nullptr,
			nullptr,
			nullptr,
			{BindWidget, 1}};
}

template <class T, std::size_t NumProperties, std::size_t NumFunctions>
FClassParams MakeClass(const char* CppName, const FPropertyParams (&Properties)[NumProperties],
					   const FFunctionParams (&Functions)[NumFunctions])
{
	return {CppName + 1,
			CppName,
			&T::Super::StaticClass,
			CLASS_Native,
			sizeof(T),
			alignof(T),
			&InternalConstructor<T>,
			Properties,
			NumProperties,
			Functions,
			// The last one stands for an empty table.
			NumFunctions - 1,
			{}};
}

constexpr FFunctionParams NoFunctions[1] = {};

FFunctionParams MakeFunction(const char* Name, FNativeFuncPtr Native)
{
	return {Name, Native, FUNC_Final | FUNC_Native | FUNC_Private, nullptr, 0, {}};
}

} // namespace

std::string LayerTest::ToUtf8(const FString& Text)
{
	const FTCHARToUTF8 Converted(*Text, Text.Len());
	return std::string(Converted.Get(), static_cast<std::size_t>(Converted.Length()));
}

std::string LayerTest::NameOf(const UObject& Object)
{
	return ToUtf8(Object.GetName().ToUpper());
}

std::vector<std::string>& LayerTest::GetLog()
{
	static std::vector<std::string> Log;
	return Log;
}

std::vector<std::string> LayerTest::TakeLog()
{
	return std::exchange(GetLog(), {});
}

UClass* UTestListener::StaticClass()
{
	static const FPropertyParams Element = MakeProperty("HeldList", EPropertyGenKind::Object, 0);
	static const FPropertyParams Properties[] = {
		MakeProperty("Held", EPropertyGenKind::Object, offsetof(UTestListener, Held)),
		{"HeldList",
		 EPropertyGenKind::Array,
		 CPF_None,
		 offsetof(UTestListener, HeldList),
		 nullptr,
		 nullptr,
		 nullptr,
		 &Element,
		 {}}};
	static const FFunctionParams Functions[] = {
		MakeFunction("OnPlain", &execOnPlain), MakeFunction("OnBool", &execOnBool), MakeFunction("OnText", &execOnText),
		MakeFunction("OnCommitted", &execOnCommitted), FFunctionParams()};
	static const FClassParams Params = MakeClass<UTestListener>("UTestListener", Properties, Functions);
	static UClass* Class = nullptr;
	return ConstructUClass(Class, Params);
}

UClass* UTestWidget::StaticClass()
{
	static const FClassParams Params = []
	{
		FClassParams Made =
			MakeClass<UTestWidget>("UTestWidget", {MakeProperty("", EPropertyGenKind::Int32, 0)}, NoFunctions);
		Made.Properties = nullptr;
		Made.NumProperties = 0;
		return Made;
	}();
	static UClass* Class = nullptr;
	return ConstructUClass(Class, Params);
}

UClass* UTestBoundWidget::StaticClass()
{
	static const FPropertyParams Properties[] = {
		MakeBound("Go", offsetof(UTestBoundWidget, Go), &UButton::StaticClass),
		MakeBound("Field", offsetof(UTestBoundWidget, Field), &UEditableText::StaticClass),
		MakeProperty("Limit", EPropertyGenKind::Int32, offsetof(UTestBoundWidget, Limit), CPF_Edit)};
	static const FClassParams Params = MakeClass<UTestBoundWidget>("UTestBoundWidget", Properties, NoFunctions);
	static UClass* Class = nullptr;
	return ConstructUClass(Class, Params);
}

UClass* UTestSave::StaticClass()
{
	static const FPropertyParams Properties[] = {
		MakeProperty("Count", EPropertyGenKind::Int32, offsetof(UTestSave, Count)),
		MakeProperty("Ticks", EPropertyGenKind::Int64, offsetof(UTestSave, Ticks)),
		MakeProperty("Scale", EPropertyGenKind::Float, offsetof(UTestSave, Scale)),
		MakeProperty("Exact", EPropertyGenKind::Double, offsetof(UTestSave, Exact)),
		MakeProperty("bOpen", EPropertyGenKind::Bool, offsetof(UTestSave, bOpen)),
		MakeProperty("Title", EPropertyGenKind::String, offsetof(UTestSave, Title))};
	static const FClassParams Params = MakeClass<UTestSave>("UTestSave", Properties, NoFunctions);
	static UClass* Class = nullptr;
	return ConstructUClass(Class, Params);
}

UClass* UTestUnkeptSave::StaticClass()
{
	static const FPropertyParams Properties[] = {
		MakeProperty("Friend", EPropertyGenKind::Object, offsetof(UTestUnkeptSave, Friend))};
	static const FClassParams Params = MakeClass<UTestUnkeptSave>("UTestUnkeptSave", Properties, NoFunctions);
	static UClass* Class = nullptr;
	return ConstructUClass(Class, Params);
}

DEFINE_FUNCTION(UTestListener::execOnPlain)
{
	static_cast<void>(Stack);
	static_cast<UTestListener*>(Context)->OnPlain();
}

DEFINE_FUNCTION(UTestListener::execOnBool)
{
	static_cast<UTestListener*>(Context)->OnBool(Stack.StepParam<bool>());
}

DEFINE_FUNCTION(UTestListener::execOnText)
{
	static_cast<UTestListener*>(Context)->OnText(Stack.StepParam<FText>());
}

DEFINE_FUNCTION(UTestListener::execOnCommitted)
{
	const FText& Text = Stack.StepParam<FText>();
	static_cast<UTestListener*>(Context)->OnCommitted(Text, Stack.StepParam<ETextCommit::Type>());
}

void UTestListener::Log(const std::string& What)
{
	LayerTest::GetLog().push_back(LayerTest::NameOf(*this) + ":" + What);
	// A copy: it may remove itself.
	if (const std::function<void()> Called = Reaction)
	{
		Called();
	}
}

void UTestListener::BeginDestroy()
{
	if (!HasAnyFlags(RF_ClassDefaultObject))
	{
		LayerTest::GetLog().push_back(LayerTest::NameOf(*this) + ":destroy");
	}
	if (Dying)
	{
		Dying();
	}
	Super::BeginDestroy();
}

void UTestListener::OnPlain()
{
	Log("plain");
}

void UTestListener::OnBool(bool bValue)
{
	Log(bValue ? "true" : "false");
}

void UTestListener::OnText(const FText& Text)
{
	Log("text " + LayerTest::ToUtf8(Text.ToString()));
}

void UTestListener::OnCommitted(const FText& Text, ETextCommit::Type CommitMethod)
{
	Log("commit " + std::to_string(CommitMethod) + " " + LayerTest::ToUtf8(Text.ToString()));
}

void UTestListener::OnNumber(int32 Number)
{
	Log(std::to_string(Number));
}

void UTestWidget::Log(const char* What)
{
	LayerTest::GetLog().push_back(LayerTest::NameOf(*this) + ":" + What);
}

void UTestWidget::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
	Log("tick");
	// A copy: it may remove itself.
	if (const std::function<void()> Called = Ticked)
	{
		Called();
	}
}
