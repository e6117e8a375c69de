#include "FlitmarkPanel.h"

#include "Components/Border.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/HorizontalBox.h"
#include "Components/HorizontalBoxSlot.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "Components/VerticalBox.h"
#include "Components/VerticalBoxSlot.h"
#include "Components/WrapBox.h"
#include "WidgetMaking.h"

#define LOCTEXT_NAMESPACE "FlitmarkWidgets"

namespace FlitmarkWidgets
{

/** Adds a control, with a label above it, to the panel's column. */
static void AddToColumn(UVerticalBox& Column, UTextBlock& Label, UWidget& Control)
{
	Column.AddChildToVerticalBox(&Label)->SetPadding(FMargin(0.f, 6.f, 0.f, 4.f));
	Column.AddChildToVerticalBox(&Control)->SetPadding(FMargin(0.f, 0.f, 0.f, 6.f));
}

static UWrapBox& MakeGroup(UUserWidget& Owner, const TCHAR* Name)
{
	UWrapBox& Group = MakeBound<UWrapBox>(Owner, Name);
	Group.SetInnerSlotPadding(FVector2D(12.0, 4.0));
	return Group;
}

static void AddChoice(UUserWidget& Owner, UWrapBox& Group, const TCHAR* Name, UWidget& Content)
{
	UCheckBox& Choice = MakeBound<UCheckBox>(Owner, Name);
	Choice.SetContent(&Content);
	Group.AddChild(&Choice);
}

static UImage& MakeSwatch(UUserWidget& Owner, const TCHAR* HexColor)
{
	UImage& Swatch = Make<UImage>(Owner);
	Swatch.SetDesiredSizeOverride(FVector2D(20.0, 20.0));
	Swatch.SetColorAndOpacity(FLinearColor(FColor::FromHex(HexColor)));
	return Swatch;
}

/** The current color, and a field for any other. */
static UHorizontalBox& MakeColorRow(UUserWidget& Owner)
{
	UImage& Shown = MakeBound<UImage>(Owner, TEXT("DisplayColorImage"));
	Shown.SetDesiredSizeOverride(FVector2D(28.0, 28.0));
	UEditableText& Field = MakeBound<UEditableText>(Owner, TEXT("InputColorText"));
	FSlateFontInfo FieldFont = Field.GetFont();
	FieldFont.Size = LabelSize;
	Field.SetFont(FieldFont);
	Field.SetHintText(LOCTEXT("ColorHint", "#RRGGBB"));
	Field.SetMinimumDesiredWidth(90.f);
	UHorizontalBox& Row = Make<UHorizontalBox>(Owner);
	Row.AddChildToHorizontalBox(&Shown)->SetVerticalAlignment(VAlign_Center);
	Row.AddChildToHorizontalBox(&MakeFieldFrame(Owner, Field))->SetPadding(FMargin(8.f, 0.f, 0.f, 0.f));
	return Row;
}

} // namespace FlitmarkWidgets

void UFlitmarkPanel::InitializeNativeClassData()
{
	using namespace FlitmarkWidgets;
	Super::InitializeNativeClassData();

	UWrapBox& Modes = MakeGroup(*this, TEXT("ModelBox"));
	AddChoice(*this, Modes, TEXT("Scroll"), MakeLabel(*this, LOCTEXT("Scroll", "Scroll")));
	AddChoice(*this, Modes, TEXT("Top"), MakeLabel(*this, LOCTEXT("Top", "Top")));
	AddChoice(*this, Modes, TEXT("Bottom"), MakeLabel(*this, LOCTEXT("Bottom", "Bottom")));

	UWrapBox& Sizes = MakeGroup(*this, TEXT("FontBox"));
	AddChoice(*this, Sizes, TEXT("Small"), MakeLabel(*this, LOCTEXT("Small", "Small")));
	AddChoice(*this, Sizes, TEXT("Normal"), MakeLabel(*this, LOCTEXT("Normal", "Normal")));

	UWrapBox& Colors = MakeGroup(*this, TEXT("ColorBox"));
	AddChoice(*this, Colors, TEXT("C_FE0302"), MakeSwatch(*this, TEXT("FE0302")));
	AddChoice(*this, Colors, TEXT("C_00CD00"), MakeSwatch(*this, TEXT("00CD00")));
	AddChoice(*this, Colors, TEXT("C_4266BE"), MakeSwatch(*this, TEXT("4266BE")));
	AddChoice(*this, Colors, TEXT("C_FFFFFF"), MakeSwatch(*this, TEXT("FFFFFF")));

	UVerticalBox& Column = Make<UVerticalBox>(*this);
	AddToColumn(Column, MakeLabel(*this, LOCTEXT("Mode", "Mode")), Modes);
	AddToColumn(Column, MakeLabel(*this, LOCTEXT("Size", "Size")), Sizes);
	AddToColumn(Column, MakeLabel(*this, LOCTEXT("Color", "Color")), Colors);
	Column.AddChildToVerticalBox(&MakeColorRow(*this));

	UBorder& Background = MakeBackground(*this);
	Background.SetContent(&Column);
	WidgetTree->RootWidget = &Background;
}

#undef LOCTEXT_NAMESPACE
