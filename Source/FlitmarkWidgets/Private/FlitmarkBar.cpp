#include "FlitmarkBar.h"

#include "Components/Border.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/HorizontalBox.h"
#include "Components/HorizontalBoxSlot.h"
#include "Components/TextBlock.h"
#include "WidgetMaking.h"

#define LOCTEXT_NAMESPACE "FlitmarkWidgets"

namespace FlitmarkWidgets
{

/** Adds a control to the bar's row; the one that fills it gets the remaining room. */
static void AddToRow(UHorizontalBox& Row, UWidget& Control, bool bFill = false)
{
	UHorizontalBoxSlot* Place = Row.AddChildToHorizontalBox(&Control);
	Place->SetPadding(FMargin(6.f, 0.f));
	Place->SetVerticalAlignment(VAlign_Center);
	Place->SetSize(FSlateChildSize(bFill ? ESlateSizeRule::Fill : ESlateSizeRule::Automatic));
}

static UButton& MakeTextButton(UUserWidget& Owner, const TCHAR* Name, const FText& Text, const FLinearColor& Color)
{
	UButton& Button = MakeBound<UButton>(Owner, Name);
	Button.SetBackgroundColor(Color);
	Button.SetContent(&MakeLabel(Owner, Text));
	return Button;
}

} // namespace FlitmarkWidgets

void UFlitmarkBar::InitializeNativeClassData()
{
	using namespace FlitmarkWidgets;
	Super::InitializeNativeClassData();

	UCheckBox& Toggle = MakeBound<UCheckBox>(*this, TEXT("OpenDanmakuButton"));
	Toggle.SetIsChecked(true);
	Toggle.SetContent(&MakeLabel(*this, LOCTEXT("Comments", "Comments")));

	UEditableText& Field = MakeBound<UEditableText>(*this, TEXT("InputDanmakuText"));
	FSlateFontInfo FieldFont = Field.GetFont();
	FieldFont.Size = LabelSize;
	Field.SetFont(FieldFont);
	Field.SetHintText(LOCTEXT("WriteAComment", "Write a comment"));
	Field.SetMinimumDesiredWidth(160.f);
	// The viewer can keep typing after a comment is sent.
	Field.SetClearKeyboardFocusOnCommit(false);

	UTextBlock& Counter = MakeBound<UTextBlock>(*this, TEXT("TextNum"));
	Counter.SetFont(FieldFont);

	UHorizontalBox& Row = Make<UHorizontalBox>(*this);
	AddToRow(Row, Toggle);
	AddToRow(Row, MakeTextButton(*this, TEXT("DanmakuNodeSettingButton"), LOCTEXT("Style", "Style"),
								 FLinearColor(0.1f, 0.1f, 0.12f)));
	AddToRow(Row, MakeFieldFrame(*this, Field), true);
	AddToRow(Row, Counter);
	AddToRow(Row, MakeTextButton(*this, TEXT("SendDanmakuButton"), LOCTEXT("Send", "Send"),
								 FLinearColor(0.02f, 0.2f, 0.7f)));

	UBorder& Background = MakeBackground(*this);
	Background.SetContent(&Row);
	WidgetTree->RootWidget = &Background;
}

#undef LOCTEXT_NAMESPACE
