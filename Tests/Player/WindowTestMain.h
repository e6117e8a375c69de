#pragma once

#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTest>

namespace Flitmark
{

/** Gives a window keyboard focus; false if that fails. */
inline bool Activate(QWindow& InWindow)
{
	// The window manager may still be starting. It is not asked often: each time it may take the focus away for a
	// moment.
	for (int Turn = 0; Turn < 10 && !InWindow.isActive(); ++Turn)
	{
		InWindow.requestActivate();
		[[maybe_unused]] const bool bActive = QTest::qWaitFor([&] { return InWindow.isActive(); }, 2'000);
	}
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
