#include "GameFramework/SaveGame.h"
#include "Engine/World.h"
#include "Modules/ModuleManager.h"
#include "UObject/GeneratedCppIncludes.h"

#pragma GCC diagnostic ignored "-Winvalid-offsetof"

/** A module's class that leaves traces of its code wherever a module can: a default object, a timer, a text. */
class UReloadProbe : public USaveGame
{
public:
	typedef USaveGame Super;
	static UClass* StaticClass();
	static void __DefaultConstructor(const FObjectInitializer& X) { new (X.GetObj()) UReloadProbe(X); }

	explicit UReloadProbe(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
		if (UWorld* World = GetWorld())
		{
			World->GetTimerManager().SetTimer(Handle, this, &UReloadProbe::OnTimer, 1.f);
		}
	}

	void OnTimer() { ++Count; }

	int32 Count = 5;
	FTimerHandle Handle;
};

namespace
{

UClass* ProbeClass = nullptr;

constexpr UECodeGen_Private::FClassRegisterCompiledInInfo Classes[] = {
	{&UReloadProbe::StaticClass, &ProbeClass, "UReloadProbe"}};
constexpr UECodeGen_Private::FCompiledInInfo Info{"/Script/LayerReload", Classes, 1, nullptr, 0, nullptr, 0};
const UECodeGen_Private::FRegisterCompiledInInfo Registered(Info);

} // namespace

UClass* UReloadProbe::StaticClass()
{
	using namespace UECodeGen_Private;
	static const FPropertyParams Properties[] = {{"Count",
												  EPropertyGenKind::Int32,
												  CPF_None,
												  static_cast<uint32>(offsetof(UReloadProbe, Count)),
												  nullptr,
												  nullptr,
												  nullptr,
												  nullptr,
												  {}}};
	static const FClassParams Params{"ReloadProbe",
									 "UReloadProbe",
									 &Super::StaticClass,
									 CLASS_Native,
									 sizeof(UReloadProbe),
									 alignof(UReloadProbe),
									 &InternalConstructor<UReloadProbe>,
									 Properties,
									 1,
									 nullptr,
									 0,
									 {}};
	return ConstructUClass(ProbeClass, Params);
}

IMPLEMENT_MODULE(FDefaultModuleImpl, LayerReload)
