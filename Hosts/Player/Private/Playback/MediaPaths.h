#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace Flitmark
{

/** Whether it is an address such as "https://...", not a file's path. */
bool IsAddress(const QString& InText);

/** A path made absolute, the path of a "file:" address, or any other address as it is. */
QString ToPathOrAddress(const QString& InText);
QString ToPathOrAddress(const QUrl& InUrl);

/** The name to show: a file's name, or the last part of an address. */
QString NameOf(const QString& InPathOrAddress);

/** Why a file can't be opened, as the end of a sentence; empty if it can, and for addresses. */
QString FindFileFault(const QString& InPathOrAddress);

/** Detected from its content, whatever its name. False for addresses. */
bool IsCommentFile(const QString& InPath);

/** By its name's ending, such as ".srt". */
bool IsSubtitleFile(const QString& InPathOrAddress);

/**
 * Files next to the video that belong to it by name, the likeliest first: those with the same base name, then those with
 * a word in between ("film.en.xml"), InLanguages ("en", "zh_CN") before the rest.
 */
QStringList FindCommentsBeside(const QString& InVideo, const QStringList& InLanguages);

} // namespace Flitmark
