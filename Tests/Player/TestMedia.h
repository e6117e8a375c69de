#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Flitmark
{

/** Makes media for window tests; any failure fails the test. */
void RunFFmpeg(const QStringList& InArguments);
/** A minute of a still picture of 640 x 360: one color, and what a filter draws on it. */
void MakeVideo(const QString& InPath, const QString& InFilter = "null");
void Write(const QString& InPath, const QByteArray& InText);
/** One entry of our own document. */
QByteArray MakeComment(double InSeconds, const char* InText, int InMode, const char* InColor);

} // namespace Flitmark
