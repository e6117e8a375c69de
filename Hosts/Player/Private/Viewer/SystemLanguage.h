#pragma once

#include <QStringList>

class QCoreApplication;

namespace Flitmark
{

/**
 * The first of the languages that the player speaks: "en", "ja" or "zh_CN", for any Chinese. InLanguages: tags in the
 * viewer's order, such as "fr-FR", "zh-Hant-TW". English where it speaks none of them.
 */
QString ChooseLanguage(const QStringList& InLanguages);

/** Texts of the player and of the module in that language, one of ChooseLanguage's. False where its texts are not there. */
bool UseLanguage(QCoreApplication& InApplication, const QString& InLanguage);

/** Texts in the language of the system's locale; call it before anything is shown. */
void UseSystemLanguage(QCoreApplication& InApplication);

} // namespace Flitmark
