#pragma once

#include "Playback/PlayerWindow.h"

#include <QImage>
#include <QTemporaryDir>

#include <memory>

class QQuickItem;

namespace Flitmark
{

/** The whole player in its window, with a viewer's input and view. */
class FPlayerInWindow
{
public:
	/** A time limit for anything, in milliseconds. */
	static constexpr int Patience = 20'000;

	/** InVideo, InComments: names in Media; empty for none. */
	FPlayerOptions MakeOptions(const QString& InVideo, const QString& InComments) const;
	void Open(const QString& InVideo, const QString& InComments = {});
	void PlayTo(double InPosition);
	/** Plays to that position and stops there, with every comment drawn. */
	void StopAt(double InPosition);
	void Drop(const QString& InPath);
	void Type(const QString& InText);
	void Click(const char* InName);

	QQuickItem* Find(const char* InName) const;
	QPoint CenterOf(const char* InName) const;
	QRect RectOf(const char* InName) const;
	QImage Grab() const;
	/** Counts the picture's pixels that are close to a color. */
	int CountPixels(QRgb InColor) const;
	bool IsOnCanvas(const char16_t* InText) const;
	/** Whether a message contains that word. */
	bool TellsOf(const QString& InWord) const;

	QTemporaryDir Media;
	std::unique_ptr<QTemporaryDir> Home;
	std::unique_ptr<FPlayerWindow> Player;
	QQuickWindow* Window = nullptr;
};

} // namespace Flitmark
