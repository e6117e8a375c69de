#pragma once

#include "Playback/PlayerOptions.h"

#include <QQmlApplicationEngine>
#include <QSettings>
#include <QSize>

#include <memory>
#include <string>

class QQuickWindow;

namespace Flitmark
{

class FFrameDrive;
class FOverlay;
class FPlayer;
class FPlayerSettings;
class FPreferences;
class FScreenSaver;
class FViewerBridge;
class FViewSettings;

/** The player's window and everything in it. One at a time in a process; GUI thread. */
class FPlayerWindow
{
public:
	/** Null with OutError set if it can't be shown. Needs a QGuiApplication, and OpenGL as the graphics API. */
	static std::unique_ptr<FPlayerWindow> Create(const FPlayerOptions& InOptions, std::string& OutError);
	~FPlayerWindow();
	FPlayerWindow(const FPlayerWindow&) = delete;
	FPlayerWindow& operator=(const FPlayerWindow&) = delete;

	QQuickWindow& GetWindow() const { return *Window; }
	FPlayer& GetPlayer() const { return *Player; }
	FOverlay& GetOverlay() const { return *Overlay; }

private:
	explicit FPlayerWindow(const FPlayerOptions& InOptions);
	bool MakeParts(const FPlayerOptions& InOptions, std::string& OutError);
	bool MakeWindow(const FPlayerOptions& InOptions, std::string& OutError);
	void Connect();
	void Show(bool bInFullScreen);

	QSettings Settings;
	std::unique_ptr<FPlayerSettings> Choices;
	std::unique_ptr<FOverlay> Overlay;
	std::unique_ptr<FViewSettings> View;
	std::unique_ptr<FViewerBridge> Bridge;
	std::unique_ptr<FPlayer> Player;
	std::unique_ptr<FPreferences> Preferences;
	/** Owns the window. */
	std::unique_ptr<QQmlApplicationEngine> Engine;
	QQuickWindow* Window = nullptr;
	std::unique_ptr<FFrameDrive> Drive;
	std::unique_ptr<FScreenSaver> ScreenSaver;
	/** The window's size when it is neither maximized nor full screen. */
	QSize UsualSize;
};

} // namespace Flitmark
