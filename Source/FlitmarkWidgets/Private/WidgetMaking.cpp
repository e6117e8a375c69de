#include "WidgetMaking.h"

#include "Components/Border.h"
#include "Components/TextBlock.h"
#include "UObject/UnrealType.h"

namespace FlitmarkWidgets
{

UWidgetTree& EnsureTree(UUserWidget& Owner)
{
	if (!Owner.WidgetTree)
	{
		static const FName TreeName(TEXT("WidgetTree"));
		Owner.WidgetTree = NewObject<UWidgetTree>(&Owner, UWidgetTree::StaticClass(), TreeName, RF_Transient);
	}
	return *Owner.WidgetTree;
}

void BindWidget(UUserWidget& Owner, UWidget& Widget)
{
	if (const FObjectProperty* Member = FindFProperty<FObjectProperty>(Owner.GetClass(), Widget.GetFName()))
	{
		Member->SetObjectPropertyValue_InContainer(&Owner, &Widget);
	}
}

UTextBlock& MakeLabel(UUserWidget& Owner, const FText& Text)
{
	UTextBlock& Label = Make<UTextBlock>(Owner);
	FSlateFontInfo LabelFont = Label.GetFont();
	LabelFont.Size = LabelSize;
	Label.SetFont(LabelFont);
	Label.SetText(Text);
	return Label;
}

UBorder& MakeBackground(UUserWidget& Owner)
{
	UBorder& Background = Make<UBorder>(Owner);
	Background.SetBrushColor(FLinearColor(0.02f, 0.02f, 0.025f, 0.85f));
	Background.SetPadding(FMargin(12.f, 8.f));
	return Background;
}

UBorder& MakeFieldFrame(UUserWidget& Owner, UWidget& Field)
{
	UBorder& Frame = Make<UBorder>(Owner);
	Frame.SetBrushColor(FLinearColor(0.9f, 0.9f, 0.9f, 1.f));
	Frame.SetPadding(FMargin(8.f, 4.f));
	Frame.SetContent(&Field);
	return Frame;
}

} // namespace FlitmarkWidgets
