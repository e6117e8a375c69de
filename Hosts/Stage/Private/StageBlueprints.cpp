#include "StageBlueprints.h"

#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "Components/WrapBox.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"

namespace Flitmark
{

namespace
{

/** Width of the comments' outline in canvas units, so that white text reads on a white wall. */
constexpr int32 OutlineSize = 2;

std::unique_ptr<UWidgetBlueprintGeneratedClass> BuildComment(const TCHAR* Name, std::string& OutError)
{
	// The text block alone: a comment is measured by its text, and cheap to make.
	return FWidgetBlueprintBuilder(Name, UUI_DanmakuNode::StaticClass())
		.Add(UTextBlock::StaticClass(), TEXT("NodeContentText"), NAME_None,
			 [](UWidget& Widget)
			 {
				 UTextBlock& Text = static_cast<UTextBlock&>(Widget);
				 FSlateFontInfo Font = Text.GetFont();
				 Font.OutlineSettings.OutlineSize = OutlineSize;
				 Text.SetFont(Font);
			 })
		.Build(OutError);
}

std::unique_ptr<UWidgetBlueprintGeneratedClass> BuildBar(std::string& OutError)
{
	FWidgetBlueprintBuilder Builder(TEXT("WBP_DanmakuBar"), UUI_DanmakuBar::StaticClass());
	Builder.Add(UWrapBox::StaticClass(), TEXT("Controls"));
	Builder.Add(UCheckBox::StaticClass(), TEXT("OpenDanmakuButton"), TEXT("Controls"),
				[](UWidget& Widget) { static_cast<UCheckBox&>(Widget).SetIsChecked(true); });
	Builder.Add(UButton::StaticClass(), TEXT("DanmakuNodeSettingButton"), TEXT("Controls"));
	// The viewer goes on writing after a comment is sent.
	Builder.Add(UEditableText::StaticClass(), TEXT("InputDanmakuText"), TEXT("Controls"),
				[](UWidget& Widget) { static_cast<UEditableText&>(Widget).ClearKeyboardFocusOnCommit = false; });
	Builder.Add(UTextBlock::StaticClass(), TEXT("TextNum"), TEXT("Controls"));
	Builder.Add(UButton::StaticClass(), TEXT("SendDanmakuButton"), TEXT("Controls"));
	return Builder.Build(OutError);
}

std::unique_ptr<UWidgetBlueprintGeneratedClass> BuildPanel(std::string& OutError)
{
	FWidgetBlueprintBuilder Builder(TEXT("WBP_DanmakuNodeSetting"), UUI_DanmakuNodeSetting::StaticClass());
	Builder.Add(UWrapBox::StaticClass(), TEXT("Groups"));
	const auto AddGroup = [&Builder](const TCHAR* Group, std::initializer_list<const TCHAR*> Boxes)
	{
		Builder.Add(UWrapBox::StaticClass(), Group, TEXT("Groups"));
		for (const TCHAR* Box : Boxes)
		{
			Builder.Add(UCheckBox::StaticClass(), Box, Group);
		}
	};
	AddGroup(TEXT("ModelBox"), {TEXT("Scroll"), TEXT("Top"), TEXT("Bottom")});
	AddGroup(TEXT("FontBox"), {TEXT("Small"), TEXT("Normal")});
	AddGroup(TEXT("ColorBox"), {TEXT("C_FE0302"), TEXT("C_00CD00"), TEXT("C_4266BE"), TEXT("C_FFFFFF")});
	Builder.Add(UEditableText::StaticClass(), TEXT("InputColorText"), TEXT("Groups"));
	Builder.Add(UImage::StaticClass(), TEXT("DisplayColorImage"), TEXT("Groups"));
	return Builder.Build(OutError);
}

} // namespace

bool FStageBlueprints::Build(std::string& OutError)
{
	Screen = FWidgetBlueprintBuilder(TEXT("WBP_Screen"), UUserWidget::StaticClass())
				 .Add(UCanvasPanel::StaticClass(), TEXT("Screen"))
				 .Build(OutError);
	Overlay = Screen ? FWidgetBlueprintBuilder(TEXT("WBP_Danmaku"), UUI_Danmaku::StaticClass())
						   .Add(UCanvasPanel::StaticClass(), TEXT("DanmakuCanvasPanel"))
						   .Build(OutError)
					 : nullptr;
	Comment = Overlay ? BuildComment(TEXT("WBP_DanmakuNode"), OutError) : nullptr;
	ViewerComment = Comment ? BuildComment(TEXT("WBP_DanmakuNodeUser"), OutError) : nullptr;
	Bar = ViewerComment ? BuildBar(OutError) : nullptr;
	Panel = Bar ? BuildPanel(OutError) : nullptr;
	return Panel != nullptr;
}

} // namespace Flitmark
