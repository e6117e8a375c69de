#pragma once

// Only the engine's build includes this. Every file still includes what it uses.

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"
