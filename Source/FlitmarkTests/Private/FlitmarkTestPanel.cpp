#include "FlitmarkTestPanel.h"

void UFlitmarkTestPanel::EnsureInitialized()
{
	if (!bIsInitialized)
	{
		NativeOnInitialized();
	}
}

void UFlitmarkTestPanel::NativeOnInitialized()
{
	Super::NativeOnInitialized();
	bIsInitialized = true;
}
