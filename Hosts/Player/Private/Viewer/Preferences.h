#pragma once

#include "Files/SaveSlots.h"

#include <QObject>
#include <QQmlEngine>
#include <QTimer>

#include <filesystem>

namespace Flitmark
{

class FCheckBoxMirror;
class FOverlay;
class FViewerBridge;

/**
 * The viewer's stored preferences, as "Preferences" in QML: read once, applied to overlay, bar and panel, and stored when
 * the viewer changes them. While one lives, it is the process's place for save slots. GUI thread.
 */
class FPreferences final : public QObject
{
	Q_OBJECT
	QML_NAMED_ELEMENT(Preferences)
	QML_SINGLETON
	Q_PROPERTY(int fontSize READ GetFontSize WRITE SetFontSize NOTIFY FontSizeChanged)
	Q_PROPERTY(double speedScale READ GetSpeedScale WRITE SetSpeedScale NOTIFY SpeedScaleChanged)
	Q_PROPERTY(int smallestFontSize MEMBER SmallestFontSize CONSTANT)
	Q_PROPERTY(int largestFontSize MEMBER LargestFontSize CONSTANT)
	Q_PROPERTY(double slowestSpeedScale MEMBER SlowestSpeedScale CONSTANT)
	Q_PROPERTY(double fastestSpeedScale MEMBER FastestSpeedScale CONSTANT)

public:
	/** Both outlive the preferences. InFolder: where they are kept. InCalls: see FSaveSlots. */
	FPreferences(FOverlay& InOverlay, FViewerBridge& InBridge,
				 std::filesystem::path InFolder = FSaveSlots::GetUserFolder(), FFileCalls& InCalls = FFileCalls::Get());
	/** Saves pending changes. */
	~FPreferences() override;

	/** QML calls this for the singleton; C++ keeps ownership. */
	static FPreferences* create(QQmlEngine* InEngine, QJSEngine* InScriptEngine);

	/** Reads the store and applies it, once; connect to Failed first. */
	void Load();

	/** Points, clamped. */
	int GetFontSize() const { return FontSize; }
	void SetFontSize(int InFontSize);
	/** A factor on the comments' time, clamped. */
	double GetSpeedScale() const { return SpeedScale; }
	void SetSpeedScale(double InSpeedScale);
	/** Logical pixels per unit of the overlay's canvas, for a preview in its true size. */
	Q_INVOKABLE double GetScale() const;
	/** Back to the defaults. */
	Q_INVOKABLE void Restore();

	// A stored value beyond these stays in the store, but no comment is shown smaller, larger, slower or faster.
	static constexpr int SmallestFontSize = 12;
	static constexpr int LargestFontSize = 60;
	static constexpr double SlowestSpeedScale = 0.5;
	static constexpr double FastestSpeedScale = 2;

Q_SIGNALS:
	void FontSizeChanged();
	void SpeedScaleChanged();
	/** Storing failed; the sentence is for the viewer. */
	void Failed(const QString& InMessage);

private:
	void ApplyFontSize(int InWanted);
	void ApplySpeedScale(double InWanted);
	void OnOpenChanged();
	void Store();
	void ReportFailure();

	FOverlay& Overlay;
	FCheckBoxMirror& Open;
	FSaveSlots Slots;
	/** Delays saving until the viewer is done: each save goes to disk. */
	QTimer StoreTimer;
	int FontSize = 0;
	double SpeedScale = 0;
	bool bFontSizeToStore = false;
	bool bSpeedScaleToStore = false;
	bool bLoaded = false;
};

} // namespace Flitmark
