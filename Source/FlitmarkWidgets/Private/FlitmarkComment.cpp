#include "FlitmarkComment.h"

#include "Components/TextBlock.h"
#include "WidgetMaking.h"

void UFlitmarkComment::InitializeNativeClassData()
{
	Super::InitializeNativeClassData();
	static const FName ContentName(TEXT("NodeContentText"));
	UTextBlock& Content = FlitmarkWidgets::MakeBound<UTextBlock>(*this, ContentName);
	FSlateFontInfo Outlined = Content.GetFont();
	// Slate units.
	Outlined.OutlineSettings.OutlineSize = 2;
	Content.SetFont(Outlined);
	// The text alone: a comment is measured by it, and cheap to make.
	WidgetTree->RootWidget = &Content;
}
