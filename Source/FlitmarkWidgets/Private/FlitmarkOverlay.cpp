#include "FlitmarkOverlay.h"

#include "Components/CanvasPanel.h"
#include "FlitmarkComment.h"
#include "FlitmarkViewerComment.h"
#include "UObject/UnrealType.h"
#include "WidgetMaking.h"

UFlitmarkOverlay::UFlitmarkOverlay(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	// Set in the constructor, so that blueprints start with them.
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
	// The last processed second is private to the base; only construction resets it.
	UUI_Danmaku::NativeConstruct();
}

void UFlitmarkOverlay::InitializeNativeClassData()
{
	Super::InitializeNativeClassData();
	UCanvasPanel& Canvas = FlitmarkWidgets::MakeBound<UCanvasPanel>(*this, TEXT("DanmakuCanvasPanel"));
	WidgetTree->RootWidget = &Canvas;
}
