#pragma once

#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTest>

namespace Flitmark
{

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
