#include "MediaTexture.h"

#include "MediaPlayer.h"
#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS(UMediaTexture, "MediaTexture")

void UMediaTexture::VisitReferences(FReferenceCollector& Collector)
{
	Super::VisitReferences(Collector);
	Collector.AddReferencedObject(MediaPlayer);
}
