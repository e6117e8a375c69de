#include "Viewer/BarMirror.h"

#include "Components/EditableText.h"
#include "Components/TextBlock.h"
#include "UI_DanmakuBar.h"
#include "Viewer/WidgetLookup.h"

namespace Flitmark
{

FBarMirror::FBarMirror(UUI_DanmakuBar& InBar)
	: Open(GetBoundWidget<UCheckBox>(InBar, TEXT("OpenDanmakuButton")))
	, Settings(GetBoundWidget<UButton>(InBar, TEXT("DanmakuNodeSettingButton")))
	, Field(GetBoundWidget<UEditableText>(InBar, TEXT("InputDanmakuText")))
	, Counter(GetBoundWidget<UTextBlock>(InBar, TEXT("TextNum")))
	, Send(GetBoundWidget<UButton>(InBar, TEXT("SendDanmakuButton")))
{
	for (FWidgetMirror* Each : std::initializer_list<FWidgetMirror*>{&Open, &Settings, &Field, &Counter, &Send})
	{
		connect(Each, &FWidgetMirror::Acted, this, &FBarMirror::Acted);
	}
}

void FBarMirror::Read()
{
	for (FWidgetMirror* Each : std::initializer_list<FWidgetMirror*>{&Open, &Settings, &Field, &Counter, &Send})
	{
		Each->Read();
	}
}

} // namespace Flitmark
