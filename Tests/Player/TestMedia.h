#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Flitmark
{

/** Made for window tests; what fails fails the test. */
void RunFFmpeg(const QStringList& InArguments);
/** A minute of the same picture in 640 x 360: one color, and what a filter draws on it. */
void MakeVideo(const QString& InPath, const QString& InFilter = "null");
void Write(const QString& InPath, const QByteArray& InText);
/** One entry of our own document. */
QByteArray MakeComment(double InSeconds, const char* InText, int InMode, const char* InColor);

} // namespace Flitmark
