#pragma once

#include <QStringList>

class QCoreApplication;

namespace Flitmark
{

/**
 * The first language that the player has: "en", "ja" or "zh_CN" (for any Chinese); English if it has none of them.
 * InLanguages: tags in the viewer's order, such as "fr-FR", "zh-Hant-TW".
 */
QString ChooseLanguage(const QStringList& InLanguages);

/** Switches player and module to a language that ChooseLanguage returns. False if its texts are missing. */
bool UseLanguage(QCoreApplication& InApplication, const QString& InLanguage);

/** Switches to the language of the system's locale; call it before anything is shown. */
void UseSystemLanguage(QCoreApplication& InApplication);

} // namespace Flitmark
