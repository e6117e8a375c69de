#pragma once

#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTest>

namespace Flitmark
{

/**
 * Waits until a window has keyboard focus, which the window manager gives to each new one; false if it doesn't. Does
 * not request it: a late answer takes the focus away for a moment, and loses whatever is pressed then.
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
	// Never destroyed: the driver would be unloaded, and its memory reported as our leaks.
	static QGuiApplication* const Application = new QGuiApplication(ArgumentCount, Arguments);
	Application->setQuitOnLastWindowClosed(false);
	TTest Test;
	return QTest::qExec(&Test, ArgumentCount, Arguments);
}

} // namespace Flitmark
