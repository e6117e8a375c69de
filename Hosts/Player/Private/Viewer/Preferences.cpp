#include "Viewer/Preferences.h"

#include "DanmakuSave.h"
#include "Playback/FileMessages.h"
#include "Scene/Overlay.h"
#include "Stage/Stage.h"
#include "Viewer/TakeNew.h"
#include "UI_DanmakuNodeSetting.h"
#include "Viewer/ViewerBridge.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace Flitmark
{

namespace
{

// The defaults of the store.
constexpr int FirstFontSize = 24;
constexpr double FirstSpeedScale = 1;

FPreferences* Living = nullptr;

void SetNormalFontSize(UUI_DanmakuNodeSetting& InPanel, int InFontSize)
{
	const FProperty* Property = InPanel.GetClass()->FindPropertyByName(TEXT("NormalFontSize"));
	*Property->ContainerPtrToValuePtr<int32>(&InPanel) = InFontSize;
}

} // namespace

FPreferences::FPreferences(FOverlay& InOverlay, FViewerBridge& InBridge, std::filesystem::path InFolder,
						   FFileCalls& InCalls)
	: Overlay(InOverlay)
	, Open(*InBridge.GetBar()->GetOpen())
	, Slots(std::move(InFolder), InCalls)
	, FontSize(FirstFontSize)
	, SpeedScale(FirstSpeedScale)
{
	using namespace std::chrono_literals;
	ISaveGameSystem::Install(&Slots);
	StoreTimer.setSingleShot(true);
	StoreTimer.setInterval(400ms);
	connect(&StoreTimer, &QTimer::timeout, this, &FPreferences::Store);
	connect(&Open, &FCheckBoxMirror::CheckedChanged, this, &FPreferences::OnOpenChanged);
	Living = this;
}

FPreferences::~FPreferences()
{
	Living = nullptr;
	Store();
	ISaveGameSystem::Install(nullptr);
}

FPreferences* FPreferences::create(QQmlEngine*, QJSEngine*)
{
	QJSEngine::setObjectOwnership(Living, QJSEngine::CppOwnership);
	return Living;
}

void FPreferences::Load()
{
	const bool bOpen = UDanmakuSave::LoadIsOpend();
	ApplyFontSize(UDanmakuSave::LoadFontSize());
	ApplySpeedScale(static_cast<double>(UDanmakuSave::LoadSpeedScale()));
	Open.Toggle(bOpen);
	bLoaded = true;
	ReportFailure();
}

void FPreferences::SetFontSize(int InFontSize)
{
	if (InFontSize != FontSize)
	{
		ApplyFontSize(InFontSize);
		bFontSizeToStore = true;
		StoreTimer.start();
	}
}

void FPreferences::SetSpeedScale(double InSpeedScale)
{
	if (InSpeedScale != SpeedScale)
	{
		ApplySpeedScale(InSpeedScale);
		bSpeedScaleToStore = true;
		StoreTimer.start();
	}
}

double FPreferences::GetScale() const
{
	return Overlay.GetView().Scale.Y / Overlay.GetDevicePixelRatio();
}

void FPreferences::Restore()
{
	SetFontSize(FirstFontSize);
	SetSpeedScale(FirstSpeedScale);
	Open.Toggle(true);
}

void FPreferences::ApplyFontSize(int InWanted)
{
	const int Applied = std::clamp(InWanted, SmallestFontSize, LargestFontSize);
	SetNormalFontSize(Overlay.GetStage().GetPanel(), Applied);
	if (TakeNew(FontSize, Applied))
	{
		Q_EMIT FontSizeChanged();
	}
}

void FPreferences::ApplySpeedScale(double InWanted)
{
	// NaN would get past both the clamp and the comparison.
	const double Applied =
		std::isnan(InWanted) ? FirstSpeedScale : std::clamp(InWanted, SlowestSpeedScale, FastestSpeedScale);
	Overlay.SetSpeedScale(Applied);
	if (TakeNew(SpeedScale, Applied))
	{
		Q_EMIT SpeedScaleChanged();
	}
}

void FPreferences::OnOpenChanged()
{
	if (bLoaded)
	{
		UDanmakuSave::SaveIsOpend(Open.IsChecked());
		ReportFailure();
	}
}

void FPreferences::Store()
{
	StoreTimer.stop();
	if (std::exchange(bFontSizeToStore, false))
	{
		UDanmakuSave::SaveFontSize(FontSize);
		ReportFailure();
	}
	if (std::exchange(bSpeedScaleToStore, false))
	{
		UDanmakuSave::SaveSpeedScale(static_cast<float>(SpeedScale));
		ReportFailure();
	}
}

void FPreferences::ReportFailure()
{
	if (!Slots.GetLastError().empty())
	{
		Q_EMIT Failed(tr("Couldn't save your settings: %1.")
						  .arg(TranslateFileMessage(QString::fromStdString(Slots.GetLastError()))));
	}
}

} // namespace Flitmark
