#include "Viewer/PanelMirror.h"

#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Viewer/TakeNew.h"
#include "UI_DanmakuNodeSetting.h"
#include "Viewer/WidgetLookup.h"

namespace Flitmark
{

namespace
{

constexpr const TCHAR* BoxNames[] = {TEXT("Scroll"),   TEXT("Top"),		 TEXT("Bottom"),
									 TEXT("Small"),	   TEXT("Normal"),	 TEXT("C_FE0302"),
									 TEXT("C_00CD00"), TEXT("C_4266BE"), TEXT("C_FFFFFF")};

QColor ToQColor(const FLinearColor& InColor)
{
	const FColor Color = InColor.ToFColorSRGB();
	return QColor(Color.R, Color.G, Color.B, Color.A);
}

} // namespace

FPanelMirror::FPanelMirror(UUI_DanmakuNodeSetting& InPanel)
	: FWidgetMirror(InPanel)
	, Panel(InPanel)
	, Image(GetBoundWidget<UImage>(InPanel, TEXT("DisplayColorImage")))
	, ColorField(GetBoundWidget<UEditableText>(InPanel, TEXT("InputColorText")))
	, Swatch(ToQColor(Image.GetColorAndOpacity()))
{
	for (const TCHAR* Name : BoxNames)
	{
		Boxes.push_back(std::make_unique<FCheckBoxMirror>(GetBoundWidget<UCheckBox>(InPanel, Name)));
		connect(Boxes.back().get(), &FWidgetMirror::Acted, this, &FWidgetMirror::Acted);
	}
	connect(&ColorField, &FWidgetMirror::Acted, this, &FWidgetMirror::Acted);
}

void FPanelMirror::Read()
{
	FWidgetMirror::Read();
	for (const std::unique_ptr<FCheckBoxMirror>& Box : Boxes)
	{
		Box->Read();
	}
	ColorField.Read();
	if (TakeNew(Swatch, ToQColor(Image.GetColorAndOpacity())))
	{
		Q_EMIT SwatchChanged();
	}
}

QList<QObject*> FPanelMirror::GetBoxes(std::size_t InFirst, std::size_t InCount) const
{
	QList<QObject*> Group;
	for (std::size_t Index = InFirst; Index < InFirst + InCount; ++Index)
	{
		Group.append(Boxes[Index].get());
	}
	return Group;
}

void FPanelMirror::Enter()
{
	Panel.PointerEnter();
	Q_EMIT Acted();
}

void FPanelMirror::Leave()
{
	Panel.PointerLeave();
	Q_EMIT Acted();
}

void FPanelMirror::Dismiss()
{
	Panel.SetVisibility(ESlateVisibility::Hidden);
	Q_EMIT Acted();
}

} // namespace Flitmark
