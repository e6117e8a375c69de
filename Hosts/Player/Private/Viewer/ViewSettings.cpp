#include "Viewer/ViewSettings.h"

#include "Scene/Overlay.h"
#include "Viewer/TakeNew.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr const char* OpacityKey = "view/opacity";
constexpr const char* AreaKey = "view/area";
constexpr const char* FontScaleKey = "view/fontScale";
constexpr const char* ScrollingKey = "view/scrolling";
constexpr const char* TopKey = "view/top";
constexpr const char* BottomKey = "view/bottom";

const FOverlaySettings Usual;

FViewSettings* Living = nullptr;

/** NaN would get past the clamp. */
double Bound(double InValue, double InLeast, double InMost, double InUsual)
{
	return std::isnan(InValue) ? InUsual : std::clamp(InValue, InLeast, InMost);
}

double BoundOpacity(double InValue)
{
	return Bound(InValue, FViewSettings::LowestOpacity, 1.0, Usual.Opacity);
}

double BoundArea(double InValue)
{
	constexpr double Step = FViewSettings::AreaStep;
	return std::round(Bound(InValue, Step, 1.0, Usual.Area) / Step) * Step;
}

double BoundFontScale(double InValue)
{
	return Bound(InValue, FViewSettings::SmallestFontScale, FViewSettings::LargestFontScale, Usual.FontScale);
}

} // namespace

FViewSettings::FViewSettings(FOverlay& InOverlay, QSettings& InOutSettings)
	: Overlay(InOverlay)
	, Settings(InOutSettings)
{
	FOverlaySettings Stored = Get();
	Stored.Opacity = BoundOpacity(ReadNumber(OpacityKey, Usual.Opacity));
	Stored.Area = BoundArea(ReadNumber(AreaKey, Usual.Area));
	Stored.FontScale = BoundFontScale(ReadNumber(FontScaleKey, Usual.FontScale));
	Stored.bShowsScrolling = Settings.value(ScrollingKey, Usual.bShowsScrolling).toBool();
	Stored.bShowsTop = Settings.value(TopKey, Usual.bShowsTop).toBool();
	Stored.bShowsBottom = Settings.value(BottomKey, Usual.bShowsBottom).toBool();
	Overlay.SetSettings(Stored);
	Living = this;
}

FViewSettings::~FViewSettings()
{
	Living = nullptr;
}

FViewSettings* FViewSettings::create(QQmlEngine*, QJSEngine*)
{
	QJSEngine::setObjectOwnership(Living, QJSEngine::CppOwnership);
	return Living;
}

void FViewSettings::SetOpacity(double InOpacity)
{
	Change(&FOverlaySettings::Opacity, BoundOpacity(InOpacity), OpacityKey);
}

void FViewSettings::SetArea(double InArea)
{
	Change(&FOverlaySettings::Area, BoundArea(InArea), AreaKey);
}

void FViewSettings::SetFontScale(double InScale)
{
	Change(&FOverlaySettings::FontScale, BoundFontScale(InScale), FontScaleKey);
}

double FViewSettings::GetOffset() const
{
	return static_cast<double>(Get().Offset) / ETimespan::TicksPerSecond;
}

void FViewSettings::SetOffset(double InSeconds)
{
	const double Seconds = Bound(InSeconds, -LongestOffset, LongestOffset, 0.0);
	Change<int64>(&FOverlaySettings::Offset, std::llround(Seconds * ETimespan::TicksPerSecond), nullptr);
}

void FViewSettings::SetShowsScrolling(bool bInShows)
{
	Change(&FOverlaySettings::bShowsScrolling, bInShows, ScrollingKey);
}

void FViewSettings::SetShowsTop(bool bInShows)
{
	Change(&FOverlaySettings::bShowsTop, bInShows, TopKey);
}

void FViewSettings::SetShowsBottom(bool bInShows)
{
	Change(&FOverlaySettings::bShowsBottom, bInShows, BottomKey);
}

void FViewSettings::Restore()
{
	SetOpacity(Usual.Opacity);
	SetArea(Usual.Area);
	SetFontScale(Usual.FontScale);
	SetOffset(0.0);
	SetShowsScrolling(true);
	SetShowsTop(true);
	SetShowsBottom(true);
}

const FOverlaySettings& FViewSettings::Get() const
{
	return Overlay.GetSettings();
}

double FViewSettings::ReadNumber(const char* InKey, double InUsual) const
{
	bool bIsNumber = false;
	const double Value = Settings.value(InKey).toDouble(&bIsNumber);
	return bIsNumber ? Value : InUsual;
}

template <typename T>
void FViewSettings::Change(T FOverlaySettings::*InField, T InValue, const char* InKey)
{
	FOverlaySettings Wanted = Get();
	if (!TakeNew(Wanted.*InField, InValue))
	{
		return;
	}
	Overlay.SetSettings(Wanted);
	if (InKey != nullptr)
	{
		Settings.setValue(InKey, QVariant::fromValue(InValue));
	}
	Q_EMIT Changed();
}

} // namespace Flitmark
