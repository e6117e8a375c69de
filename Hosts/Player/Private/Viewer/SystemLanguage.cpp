#include "Viewer/SystemLanguage.h"

#include "Internationalization/TextLocalizationManager.h"
#include "Stage/Languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace Flitmark
{

namespace
{

/** The module's English source of this one text is a name, not a sentence for a viewer. */
void RegisterEnglish()
{
	FPolyglotTextData Closed(TEXT("UUI_DanmakuBar"), TEXT("ClosedBullet"), TEXT("ClosedBullet"));
	Closed.AddLocalizedString(TEXT("en"), TEXT("Comments are off"));
	FTextLocalizationManager::Get().RegisterPolyglotTextData(Closed);
}

bool Install(QCoreApplication& InApplication, const QString& InFile)
{
	auto* Translator = new QTranslator(&InApplication);
	return Translator->load(InFile) && QCoreApplication::installTranslator(Translator);
}

} // namespace

QString ChooseLanguage(const QStringList& InLanguages)
{
	for (const QString& Each : InLanguages)
	{
		switch (QLocale(Each).language())
		{
		case QLocale::Chinese:
			return QStringLiteral("zh_CN");
		case QLocale::Japanese:
			return QStringLiteral("ja");
		case QLocale::English:
			return QStringLiteral("en");
		default:
			break;
		}
	}
	return QStringLiteral("en");
}

bool UseLanguage(QCoreApplication& InApplication, const QString& InLanguage)
{
	UseLanguage(FString(InLanguage.toStdU16String()));
	if (InLanguage == u"en")
	{
		RegisterEnglish();
		return true;
	}
	// Qt's own texts, such as its file dialog's; not every system has them.
	Install(InApplication, QLibraryInfo::path(QLibraryInfo::TranslationsPath) + QStringLiteral("/qt_") + InLanguage);
	return Install(InApplication, QStringLiteral(":/Flitmark/Translations/flitmark-player_") + InLanguage);
}

void UseSystemLanguage(QCoreApplication& InApplication)
{
	UseLanguage(InApplication, ChooseLanguage(QLocale::system().uiLanguages()));
}

} // namespace Flitmark
