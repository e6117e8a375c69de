#include "Viewer/ViewerBridge.h"

#include "Components/CheckBox.h"
#include "Scene/Overlay.h"
#include "Stage/Stage.h"
#include "UI_DanmakuBar.h"
#include "Viewer/WidgetLookup.h"

namespace Flitmark
{

namespace
{

FViewerBridge* Living = nullptr;

} // namespace

FViewerBridge::FViewerBridge(FOverlay& InOverlay)
	: Stage(InOverlay.GetStage())
	, Bar(Stage.GetBar())
	, Panel(Stage.GetPanel())
{
	connect(&Bar, &FBarMirror::Acted, this, &FViewerBridge::OnActed);
	connect(&Panel, &FWidgetMirror::Acted, this, &FViewerBridge::OnActed);
	Living = this;
}

FViewerBridge::~FViewerBridge()
{
	Living = nullptr;
}

FViewerBridge* FViewerBridge::create(QQmlEngine*, QJSEngine*)
{
	QJSEngine::setObjectOwnership(Living, QJSEngine::CppOwnership);
	return Living;
}

void FViewerBridge::Update()
{
	if (!bHasTracks)
	{
		LookForTracks();
	}
	Bar.Read();
	Panel.Read();
}

void FViewerBridge::LookForTracks()
{
	bHasTracks = Stage.GetTrackCounts().Scroll > 0;
	UCheckBox& Box = GetBoundWidget<UCheckBox>(Stage.GetBar(), TEXT("OpenDanmakuButton"));
	if (bHasTracks && !Box.IsChecked())
	{
		Box.Toggle(true);
		Box.Toggle(false);
	}
}

void FViewerBridge::OnActed()
{
	Update();
	Q_EMIT Acted();
}

} // namespace Flitmark
