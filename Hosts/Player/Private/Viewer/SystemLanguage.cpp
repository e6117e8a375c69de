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

bool Install(QCoreApplication& Application, const QString& File)
{
	auto* Translator = new QTranslator(&Application);
	return Translator->load(File) && QCoreApplication::installTranslator(Translator);
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

bool UseLanguage(QCoreApplication& Application, const QString& InLanguage)
{
	UseLanguage(FString(InLanguage.toStdU16String()));
	if (InLanguage == u"en")
	{
		RegisterEnglish();
		return true;
	}
	// Qt's own texts, such as its file dialog's; not every system has them.
	Install(Application, QLibraryInfo::path(QLibraryInfo::TranslationsPath) + QStringLiteral("/qt_") + InLanguage);
	return Install(Application, QStringLiteral(":/Flitmark/Translations/flitmark-player_") + InLanguage);
}

void UseSystemLanguage(QCoreApplication& Application)
{
	UseLanguage(Application, ChooseLanguage(QLocale::system().uiLanguages()));
}

} // namespace Flitmark
