#pragma once

#include "Overlay/OverlaySettings.h"

#include <QObject>
#include <QQmlEngine>
#include <QSettings>

namespace Flitmark
{

class FOverlay;

/**
 * How the viewer wants to see the comments, as "ViewSettings" in QML: applied to the overlay and written at once. What is
 * read or set is brought within bounds. GUI thread.
 */
class FViewSettings final : public QObject
{
	Q_OBJECT
	QML_NAMED_ELEMENT(ViewSettings)
	QML_SINGLETON
	Q_PROPERTY(double opacity READ GetOpacity WRITE SetOpacity NOTIFY Changed)
	Q_PROPERTY(double area READ GetArea WRITE SetArea NOTIFY Changed)
	Q_PROPERTY(double fontScale READ GetFontScale WRITE SetFontScale NOTIFY Changed)
	Q_PROPERTY(double offset READ GetOffset WRITE SetOffset NOTIFY Changed)
	Q_PROPERTY(bool showsScrolling READ ShowsScrolling WRITE SetShowsScrolling NOTIFY Changed)
	Q_PROPERTY(bool showsTop READ ShowsTop WRITE SetShowsTop NOTIFY Changed)
	Q_PROPERTY(bool showsBottom READ ShowsBottom WRITE SetShowsBottom NOTIFY Changed)
	Q_PROPERTY(double lowestOpacity MEMBER LowestOpacity CONSTANT)
	Q_PROPERTY(double areaStep MEMBER AreaStep CONSTANT)
	Q_PROPERTY(double smallestFontScale MEMBER SmallestFontScale CONSTANT)
	Q_PROPERTY(double largestFontScale MEMBER LargestFontScale CONSTANT)
	Q_PROPERTY(double longestOffset MEMBER LongestOffset CONSTANT)

public:
	/** Both outlive this. */
	FViewSettings(FOverlay& InOverlay, QSettings& InOutSettings);
	~FViewSettings() override;

	/** QML calls this for the singleton; C++ keeps ownership. */
	static FViewSettings* create(QQmlEngine* InEngine, QJSEngine* InScriptEngine);

	/** See FOverlaySettings for what has no words here. */
	double GetOpacity() const { return Get().Opacity; }
	void SetOpacity(double InOpacity);
	double GetArea() const { return Get().Area; }
	void SetArea(double InArea);
	double GetFontScale() const { return Get().FontScale; }
	void SetFontScale(double InScale);
	/** Seconds. It belongs to one file of comments and is not stored. */
	double GetOffset() const;
	void SetOffset(double InSeconds);
	bool ShowsScrolling() const { return Get().bShowsScrolling; }
	void SetShowsScrolling(bool bInShows);
	bool ShowsTop() const { return Get().bShowsTop; }
	void SetShowsTop(bool bInShows);
	bool ShowsBottom() const { return Get().bShowsBottom; }
	void SetShowsBottom(bool bInShows);

	/** Back to the defaults. */
	Q_INVOKABLE void Restore();

	/** Comments any fainter would look switched off. */
	static constexpr double LowestOpacity = 0.1;
	/** Areas are multiples of it, up to 1. */
	static constexpr double AreaStep = 0.25;
	static constexpr double SmallestFontScale = 0.5;
	static constexpr double LargestFontScale = 2.0;
	/** Seconds, either way. */
	static constexpr double LongestOffset = 60.0;

Q_SIGNALS:
	void Changed();

private:
	const FOverlaySettings& Get() const;
	double ReadNumber(const char* InKey, double InUsual) const;
	/** InKey: where it is stored; null if it is not. */
	template <typename T>
	void Change(T FOverlaySettings::*InField, T InValue, const char* InKey);

	FOverlay& Overlay;
	QSettings& Settings;
};

} // namespace Flitmark
