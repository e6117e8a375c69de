#include "TraceViewer.h"

#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "DanmakuSave.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNodeSetting.h"

namespace Flitmark
{

namespace
{

template <class T>
T& FindWidget(const UUserWidget& InOwner, const TCHAR* InName)
{
	return *Cast<T>(InOwner.GetWidgetFromName(InName));
}

std::string_view GetVisibilityName(const UWidget& InWidget)
{
	switch (InWidget.GetVisibility())
	{
	case ESlateVisibility::Visible:
		return "Visible";
	case ESlateVisibility::Collapsed:
		return "Collapsed";
	case ESlateVisibility::Hidden:
		return "Hidden";
	case ESlateVisibility::HitTestInvisible:
		return "HitTestInvisible";
	case ESlateVisibility::SelfHitTestInvisible:
		return "SelfHitTestInvisible";
	}
	return "";
}

void AddBar(FJsonLine& InOutLine, const UUI_DanmakuBar& InBar)
{
	const UEditableText& Field = FindWidget<UEditableText>(InBar, TEXT("InputDanmakuText"));
	const UTextBlock& Counter = FindWidget<UTextBlock>(InBar, TEXT("TextNum"));
	InOutLine.BeginObject("bar");
	InOutLine.Add("text", Field.GetText().ToString());
	InOutLine.Add("counter", Counter.GetText().ToString());
	InOutLine.Add("text_enabled", Field.GetIsEnabled());
	InOutLine.Add("send_enabled", FindWidget<UButton>(InBar, TEXT("SendDanmakuButton")).GetIsEnabled());
	InOutLine.Add("counter_visibility", GetVisibilityName(Counter));
	InOutLine.Add("setting_visibility",
				  GetVisibilityName(FindWidget<UButton>(InBar, TEXT("DanmakuNodeSettingButton"))));
	InOutLine.Add("focused", Field.HasKeyboardFocus());
	InOutLine.Add("open_checked", FindWidget<UCheckBox>(InBar, TEXT("OpenDanmakuButton")).IsChecked());
	InOutLine.EndObject();
}

void AddPanel(FJsonLine& InOutLine, const UUI_DanmakuNodeSetting& InPanel)
{
	const FLinearColor Swatch = FindWidget<UImage>(InPanel, TEXT("DisplayColorImage")).GetColorAndOpacity();
	InOutLine.BeginObject("panel");
	InOutLine.Add("visibility", GetVisibilityName(InPanel));
	InOutLine.Add("mode", static_cast<int32>(InPanel.GetModel()));
	InOutLine.Add("font_size", InPanel.GetFontSize());
	InOutLine.Add("color", InPanel.GetFontColor());
	InOutLine.Add("text", FindWidget<UEditableText>(InPanel, TEXT("InputColorText")).GetText().ToString());
	InOutLine.Add("swatch", FString(TEXT("#")) + Swatch.ToFColorSRGB().ToHex());
	InOutLine.BeginArray("checked");
	for (const TCHAR* Box : {TEXT("Scroll"), TEXT("Top"), TEXT("Bottom"), TEXT("Small"), TEXT("Normal"),
							 TEXT("C_FE0302"), TEXT("C_00CD00"), TEXT("C_4266BE"), TEXT("C_FFFFFF")})
	{
		if (FindWidget<UCheckBox>(InPanel, Box).IsChecked())
		{
			InOutLine.Add({}, FString(Box));
		}
	}
	InOutLine.EndArray();
	InOutLine.EndObject();
}

void AddPreferences(FJsonLine& InOutLine)
{
	InOutLine.BeginObject("preferences");
	InOutLine.Add("FontSize", UDanmakuSave::LoadFontSize());
	InOutLine.Add("SpeedScale", UDanmakuSave::LoadSpeedScale());
	InOutLine.Add("bIsOpened", UDanmakuSave::LoadIsOpend());
	InOutLine.EndObject();
}

} // namespace

void ActAsViewer(const FTraceStep& InStep, FStage& InOutStage)
{
	const UUI_DanmakuBar& Bar = InOutStage.GetBar();
	UUI_DanmakuNodeSetting& Panel = InOutStage.GetPanel();
	const bool bBarBox = InStep.Text.Equals(TEXT("OpenDanmakuButton"));
	switch (InStep.Action)
	{
	case ETraceAction::Type:
		FindWidget<UEditableText>(Bar, TEXT("InputDanmakuText")).TypeText(FText::FromString(InStep.Text));
		break;
	case ETraceAction::Commit:
		FindWidget<UEditableText>(Bar, TEXT("InputDanmakuText")).Commit(InStep.Commit);
		break;
	case ETraceAction::Click:
		FindWidget<UButton>(Bar, TEXT("SendDanmakuButton")).Click();
		break;
	case ETraceAction::Check:
		FindWidget<UCheckBox>(bBarBox ? static_cast<const UUserWidget&>(Bar) : Panel, *InStep.Text)
			.Toggle(InStep.bFlag);
		break;
	case ETraceAction::Color:
		FindWidget<UEditableText>(Panel, TEXT("InputColorText")).TypeText(FText::FromString(InStep.Text));
		break;
	case ETraceAction::Hover:
		FindWidget<UButton>(Bar, TEXT("DanmakuNodeSettingButton")).Hover();
		break;
	case ETraceAction::Unhover:
		FindWidget<UButton>(Bar, TEXT("DanmakuNodeSettingButton")).Unhover();
		break;
	case ETraceAction::EnterPanel:
		Panel.PointerEnter();
		break;
	case ETraceAction::LeavePanel:
		Panel.PointerLeave();
		break;
	case ETraceAction::SaveFontSize:
		UDanmakuSave::SaveFontSize(static_cast<int32>(InStep.Number));
		break;
	case ETraceAction::SaveSpeedScale:
		UDanmakuSave::SaveSpeedScale(InStep.Scale);
		break;
	case ETraceAction::SaveIsOpened:
		UDanmakuSave::SaveIsOpend(InStep.bFlag);
		break;
	default:
		break;
	}
}

void AddViewerState(FJsonLine& InOutLine, const FStage& InStage)
{
	InOutLine.Add("canvas", GetVisibilityName(InStage.GetCanvas()));
	AddBar(InOutLine, InStage.GetBar());
	AddPanel(InOutLine, InStage.GetPanel());
	AddPreferences(InOutLine);
}

} // namespace Flitmark
