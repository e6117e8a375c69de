#include "Engine/World.h"

#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS(UWorld, "World")
