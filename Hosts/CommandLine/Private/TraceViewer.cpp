#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "DanmakuSave.h"
#include "TraceRunner.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNodeSetting.h"

/** The viewer's part of a trace: what they do, and what they see of bar, panel and preferences. */
namespace Flitmark
{

namespace
{

template <class T>
T& FindWidget(const UUserWidget& Owner, const TCHAR* Name)
{
	return *Cast<T>(Owner.GetWidgetFromName(Name));
}

std::string_view GetVisibilityName(const UWidget& Widget)
{
	switch (Widget.GetVisibility())
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

void AddBar(FJsonLine& Line, const UUI_DanmakuBar& Bar)
{
	const UEditableText& Field = FindWidget<UEditableText>(Bar, TEXT("InputDanmakuText"));
	const UTextBlock& Counter = FindWidget<UTextBlock>(Bar, TEXT("TextNum"));
	Line.BeginObject("bar");
	Line.Add("text", Field.GetText().ToString());
	Line.Add("counter", Counter.GetText().ToString());
	Line.Add("text_enabled", Field.GetIsEnabled());
	Line.Add("send_enabled", FindWidget<UButton>(Bar, TEXT("SendDanmakuButton")).GetIsEnabled());
	Line.Add("counter_visibility", GetVisibilityName(Counter));
	Line.Add("setting_visibility", GetVisibilityName(FindWidget<UButton>(Bar, TEXT("DanmakuNodeSettingButton"))));
	Line.Add("focused", Field.HasKeyboardFocus());
	Line.Add("open_checked", FindWidget<UCheckBox>(Bar, TEXT("OpenDanmakuButton")).IsChecked());
	Line.EndObject();
}

void AddPanel(FJsonLine& Line, const UUI_DanmakuNodeSetting& Panel)
{
	const FLinearColor Swatch = FindWidget<UImage>(Panel, TEXT("DisplayColorImage")).GetColorAndOpacity();
	Line.BeginObject("panel");
	Line.Add("visibility", GetVisibilityName(Panel));
	Line.Add("mode", static_cast<int32>(Panel.GetModel()));
	Line.Add("font_size", Panel.GetFontSize());
	Line.Add("color", Panel.GetFontColor());
	Line.Add("text", FindWidget<UEditableText>(Panel, TEXT("InputColorText")).GetText().ToString());
	Line.Add("swatch", FString(TEXT("#")) + Swatch.ToFColorSRGB().ToHex());
	Line.BeginArray("checked");
	for (const TCHAR* Box : {TEXT("Scroll"), TEXT("Top"), TEXT("Bottom"), TEXT("Small"), TEXT("Normal"),
							 TEXT("C_FE0302"), TEXT("C_00CD00"), TEXT("C_4266BE"), TEXT("C_FFFFFF")})
	{
		if (FindWidget<UCheckBox>(Panel, Box).IsChecked())
		{
			Line.Add({}, FString(Box));
		}
	}
	Line.EndArray();
	Line.EndObject();
}

void AddPreferences(FJsonLine& Line)
{
	Line.BeginObject("preferences");
	Line.Add("FontSize", UDanmakuSave::LoadFontSize());
	Line.Add("SpeedScale", UDanmakuSave::LoadSpeedScale());
	Line.Add("bIsOpened", UDanmakuSave::LoadIsOpend());
	Line.EndObject();
}

} // namespace

void FTraceRunner::ExecuteViewer(const FTraceStep& Step)
{
	const UUI_DanmakuBar& Bar = Stage->GetBar();
	UUI_DanmakuNodeSetting& Panel = Stage->GetPanel();
	const bool bBarBox = Step.Text.Equals(TEXT("OpenDanmakuButton"));
	switch (Step.Action)
	{
	case ETraceAction::Type:
		FindWidget<UEditableText>(Bar, TEXT("InputDanmakuText")).TypeText(FText::FromString(Step.Text));
		break;
	case ETraceAction::Commit:
		FindWidget<UEditableText>(Bar, TEXT("InputDanmakuText")).Commit(Step.Commit);
		break;
	case ETraceAction::Click:
		FindWidget<UButton>(Bar, TEXT("SendDanmakuButton")).Click();
		break;
	case ETraceAction::Check:
		FindWidget<UCheckBox>(bBarBox ? static_cast<const UUserWidget&>(Bar) : Panel, *Step.Text).Toggle(Step.bFlag);
		break;
	case ETraceAction::Color:
		FindWidget<UEditableText>(Panel, TEXT("InputColorText")).TypeText(FText::FromString(Step.Text));
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
		UDanmakuSave::SaveFontSize(static_cast<int32>(Step.Number));
		break;
	case ETraceAction::SaveSpeedScale:
		UDanmakuSave::SaveSpeedScale(Step.Scale);
		break;
	case ETraceAction::SaveIsOpened:
		UDanmakuSave::SaveIsOpend(Step.bFlag);
		break;
	default:
		break;
	}
}

void FTraceRunner::WriteReport()
{
	const FTrackCounts Tracks = Stage->GetTrackCounts();
	BeginLine("report");
	Line.BeginObject("tracks");
	Line.Add("scroll", Tracks.Scroll);
	Line.Add("top", Tracks.Top);
	Line.Add("bottom", Tracks.Bottom);
	Line.Add("reverse", Tracks.Reverse);
	Line.EndObject();
	Line.Add("alive", Stage->GetCanvas().GetChildrenCount());
	Line.Add("canvas", GetVisibilityName(Stage->GetCanvas()));
	AddBar(Line, Stage->GetBar());
	AddPanel(Line, Stage->GetPanel());
	AddPreferences(Line);
	EndLine();
}

} // namespace Flitmark
