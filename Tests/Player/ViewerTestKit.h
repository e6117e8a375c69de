#pragma once

#include "Components/CanvasPanel.h"
#include "Scene/Overlay.h"
#include "Stage/Stage.h"
#include "Viewer/ViewerBridge.h"

#include <memory>
#include <stdexcept>

namespace Flitmark
{

/** An overlay on a laid-out canvas, with bar and panel but no window. */
struct FViewerStage
{
	explicit FViewerStage(bool bLaidOut = true)
	{
		std::string Error;
		Overlay = FOverlay::Create(Error);
		if (Overlay == nullptr)
		{
			throw std::runtime_error(Error);
		}
		Overlay->SetUrl("file:///film.mp4");
		Bridge = std::make_unique<FViewerBridge>(*Overlay);
		if (bLaidOut)
		{
			LayOut();
		}
	}

	void LayOut()
	{
		Overlay->SetView(QSizeF(960, 540), 1);
		Run(0.02);
	}

	void Run(double Seconds)
	{
		Overlay->RunFrame(Seconds);
		Bridge->Update();
	}

	FBarMirror& Bar() { return *Bridge->GetBar(); }
	FPanelMirror& Panel() { return *Bridge->GetPanel(); }
	FCheckBoxMirror& Box(const QList<QObject*>& Group, int Index)
	{
		return *static_cast<FCheckBoxMirror*>(Group[Index]);
	}
	int CountComments() { return Overlay->GetStage().GetCanvas().GetChildrenCount(); }

	std::unique_ptr<FOverlay> Overlay;
	std::unique_ptr<FViewerBridge> Bridge;
};

} // namespace Flitmark
