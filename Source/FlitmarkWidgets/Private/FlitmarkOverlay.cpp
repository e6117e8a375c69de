#include "FlitmarkOverlay.h"

#include "Components/CanvasPanel.h"
#include "FlitmarkComment.h"
#include "FlitmarkViewerComment.h"
#include "UObject/UnrealType.h"
#include "WidgetMaking.h"

UFlitmarkOverlay::UFlitmarkOverlay(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	// In the constructor, so that a blueprint starts with them.
	SetVisibility(ESlateVisibility::HitTestInvisible);
	const auto SetCommentClass = [this](const TCHAR* Name, UClass* CommentClass)
	{
		if (const FObjectProperty* Member = FindFProperty<FClassProperty>(UUI_Danmaku::StaticClass(), Name))
		{
			Member->SetObjectPropertyValue_InContainer(this, CommentClass);
		}
	};
	SetCommentClass(TEXT("DanmakuNodeClass"), UFlitmarkComment::StaticClass());
	SetCommentClass(TEXT("DanmakuNodeUserClass"), UFlitmarkViewerComment::StaticClass());
}

void UFlitmarkOverlay::RestartSecond()
{
	// Which second was processed last is the base's own affair; being constructed is what resets it.
	UUI_Danmaku::NativeConstruct();
}

void UFlitmarkOverlay::InitializeNativeClassData()
{
	Super::InitializeNativeClassData();
	UCanvasPanel& Canvas = FlitmarkWidgets::MakeBound<UCanvasPanel>(*this, TEXT("DanmakuCanvasPanel"));
	WidgetTree->RootWidget = &Canvas;
}
