#include "Engine/Texture.h"

#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS_FLAGS(UTexture, "Texture", CLASS_Abstract)
