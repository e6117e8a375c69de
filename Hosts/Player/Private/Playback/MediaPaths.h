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

/** What people call it: a file's name, or the last part of an address. */
QString NameOf(const QString& InPathOrAddress);

/** Why a file cannot be opened, as the end of a sentence; empty where nothing speaks against it, and for addresses. */
QString FindFileFault(const QString& InPathOrAddress);

/** Told by what is in the file, whatever its name. False for addresses. */
bool IsCommentFile(const QString& InPath);

/**
 * Files beside the video that by their names belong to it, the likeliest first: those named as the video is, then those
 * with a word between ("film.en.xml"), of which InLanguages ("en", "zh_CN") come first.
 */
QStringList FindCommentsBeside(const QString& InVideo, const QStringList& InLanguages);

} // namespace Flitmark
