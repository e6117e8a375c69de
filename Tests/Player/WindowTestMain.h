#pragma once

#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTest>

namespace Flitmark
{

/**
 * Waits until a window has the keyboard, which the window manager gives to each new one; false where that doesn't happen.
 * Nobody asks for it: an answer that comes late takes the keyboard away for a moment, and with it whatever is pressed.
 */
inline bool Activate(QWindow& InWindow)
{
	[[maybe_unused]] const bool bActive = QTest::qWaitFor([&] { return InWindow.isActive(); }, 20'000);
	QTest::qWait(200);
	return InWindow.isActive();
}

/** The main function of a test that opens windows. */
template <class TTest>
int RunWindowTest(int ArgumentCount, char** Arguments)
{
	QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
	QQuickStyle::setStyle("Basic");
	// Never ended: the driver would be unloaded, and what it keeps be taken for leaks of ours.
	static QGuiApplication* const Application = new QGuiApplication(ArgumentCount, Arguments);
	Application->setQuitOnLastWindowClosed(false);
	TTest Test;
	return QTest::qExec(&Test, ArgumentCount, Arguments);
}

} // namespace Flitmark
