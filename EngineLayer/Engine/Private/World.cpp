#include "Engine/World.h"

#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS(UWorld, "World")

UWorld* UWorld::CreateWorld(EWorldType::Type, bool)
{
	UWorld* World = NewObject<UWorld>();
	World->AddToRoot();
	return World;
}

void UWorld::DestroyWorld(bool)
{
	RemoveFromRoot();
}
