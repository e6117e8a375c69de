#include "FlitmarkTestComment.h"

#include "Blueprint/WidgetTree.h"
#include "Components/Spacer.h"

FVector2D UFlitmarkTestComment::NextSize = FVector2D(0.0, 0.0);

void UFlitmarkTestComment::InitializeNativeClassData()
{
	Super::InitializeNativeClassData();
	WidgetTree = NewObject<UWidgetTree>(this, UWidgetTree::StaticClass(), TEXT("WidgetTree"), RF_Transient);
	USpacer* Spacer = WidgetTree->ConstructWidget<USpacer>();
	Spacer->SetSize(NextSize);
	WidgetTree->RootWidget = Spacer;
}
