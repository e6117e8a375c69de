#include "Stage/Languages.h"

#include "Internationalization/Internationalization.h"
#include "Internationalization/TextLocalizationManager.h"

namespace Flitmark
{

namespace
{

/** One text of the module and its translations. */
struct FTranslatedText
{
	const TCHAR* Namespace;
	const TCHAR* Key;
	const TCHAR* English;
	const TCHAR* Chinese;
	const TCHAR* Japanese;
};

constexpr FTranslatedText Texts[] = {
	{TEXT("UUI_DanmakuBar"), TEXT("ClosedBullet"), TEXT("ClosedBullet"), TEXT("弹幕已关闭"),
	 TEXT("コメントはオフです")},
	{TEXT("UUI_DanmakuBar"), TEXT("TextNum"), TEXT("{0}/{1}"), TEXT("{0}/{1}"), TEXT("{0}/{1}")},
};

void RegisterTexts()
{
	for (const FTranslatedText& Text : Texts)
	{
		FPolyglotTextData Data(Text.Namespace, Text.Key, Text.English);
		Data.AddLocalizedString(TEXT("zh"), Text.Chinese);
		Data.AddLocalizedString(TEXT("ja"), Text.Japanese);
		FTextLocalizationManager::Get().RegisterPolyglotTextData(Data);
	}
}

/** "ja_JP.UTF-8" as "ja-JP". */
FString ToLanguageTag(const FString& InCulture)
{
	FString Tag;
	for (int32 Index = 0; Index < InCulture.Len() && InCulture[Index] != u'.' && InCulture[Index] != u'@'; ++Index)
	{
		Tag.AppendChar(InCulture[Index] == u'_' ? u'-' : InCulture[Index]);
	}
	return Tag;
}

} // namespace

bool UseLanguage(const FString& InCulture)
{
	RegisterTexts();
	FInternationalization& Language = FInternationalization::Get();
	if (Language.SetCurrentCulture(ToLanguageTag(InCulture)))
	{
		return true;
	}
	Language.SetCurrentCulture(TEXT("en-US"));
	return false;
}

} // namespace Flitmark
