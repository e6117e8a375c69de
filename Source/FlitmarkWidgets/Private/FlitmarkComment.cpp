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
	// Just the text: it is what gets measured, and it keeps comments cheap to create.
	WidgetTree->RootWidget = &Content;
}
