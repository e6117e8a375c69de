#include "Scene/CommentLayer.h"

#include "Scene/CommentNode.h"
#include "Scene/Overlay.h"

#include <QQuickWindow>
#include <QScreen>

#include <chrono>

namespace Flitmark
{

namespace
{

/** How long a size must last before sprites are made for it. */
constexpr std::chrono::milliseconds SettleTime{150};

} // namespace

FCommentLayer::FCommentLayer(QQuickItem* InParent)
	: QQuickItem(InParent)
{
	setFlag(ItemHasContents);
	setClip(true);
	SettleTimer.setSingleShot(true);
	SettleTimer.setInterval(SettleTime);
	connect(&SettleTimer, &QTimer::timeout, this, &FCommentLayer::Settle);
}

FCommentLayer::~FCommentLayer()
{
	LetGo();
}

void FCommentLayer::LetGo()
{
	if (Overlay != nullptr)
	{
		Overlay->GetMaker()->SetListener(nullptr);
		Overlay->GetMaker()->SetWanted({});
		Overlay = nullptr;
	}
}

void FCommentLayer::SetOverlay(FOverlay* InOverlay)
{
	LetGo();
	Overlay = InOverlay;
	RasterScale = 0.0;
	if (Overlay != nullptr)
	{
		// Called from workers and the render thread.
		Overlay->GetMaker()->SetListener(
			[this] { QMetaObject::invokeMethod(this, &QQuickItem::update, Qt::QueuedConnection); });
	}
	TellView();
	TellRefreshRate();
	update();
}

void FCommentLayer::SetLift(double InLift)
{
	if (InLift != Lift)
	{
		Lift = InLift;
		update();
		Q_EMIT LiftChanged();
	}
}

QSGNode* FCommentLayer::updatePaintNode(QSGNode* InNode, UpdatePaintNodeData*)
{
	// The interface thread waits meanwhile.
	if (Overlay == nullptr || RasterScale == 0.0)
	{
		delete InNode;
		return nullptr;
	}
	const FMeteredWork Work(Overlay->GetMeter());
	FCommentNode* Node = static_cast<FCommentNode*>(InNode);
	if (Node == nullptr)
	{
		Node = new FCommentNode(*window());
	}
	Node->Sync(*Overlay, RasterScale, mapToScene(QPointF()) * Overlay->GetDevicePixelRatio(),
			   Lift * Overlay->GetDevicePixelRatio());
	return Node;
}

void FCommentLayer::geometryChange(const QRectF& InNew, const QRectF& InOld)
{
	QQuickItem::geometryChange(InNew, InOld);
	TellView();
}

void FCommentLayer::itemChange(ItemChange InChange, const ItemChangeData& InData)
{
	QQuickItem::itemChange(InChange, InData);
	if (InChange == ItemSceneChange)
	{
		disconnect(ScreenChanged);
		if (InData.window != nullptr)
		{
			ScreenChanged = connect(InData.window, &QWindow::screenChanged, this, &FCommentLayer::TellRefreshRate);
		}
	}
	if (InChange == ItemSceneChange || InChange == ItemDevicePixelRatioHasChanged)
	{
		TellView();
		TellRefreshRate();
	}
}

void FCommentLayer::TellRefreshRate()
{
	if (Overlay != nullptr && window() != nullptr && window()->screen() != nullptr)
	{
		Overlay->SetRefreshRate(window()->screen()->refreshRate());
	}
}

void FCommentLayer::TellView()
{
	if (Overlay == nullptr || window() == nullptr || size().isEmpty())
	{
		return;
	}
	Overlay->SetView(size(), window()->effectiveDevicePixelRatio());
	if (RasterScale == 0.0 || Overlay->GetScene().GetComments().empty())
	{
		Settle();
	}
	else if (RasterScale != Overlay->GetView().Scale.Y)
	{
		SettleTimer.start();
	}
	update();
}

void FCommentLayer::Settle()
{
	if (Overlay != nullptr)
	{
		RasterScale = Overlay->GetView().Scale.Y;
		update();
	}
}

} // namespace Flitmark
