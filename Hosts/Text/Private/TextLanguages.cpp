#include "TextLanguages.h"

#include <cstdlib>
#include <string>

namespace Flitmark
{

namespace
{

struct FLanguages
{
	hb_language_t Japanese = hb_language_from_string("ja", -1);
	hb_language_t Korean = hb_language_from_string("ko", -1);
	hb_language_t Simplified = hb_language_from_string("zh-Hans", -1);
	hb_language_t Traditional = hb_language_from_string("zh-Hant", -1);
	std::array<hb_language_t, 4> All = {Japanese, Korean, Simplified, Traditional};
	hb_language_t OfLocale = ReadLocale();

private:
	/** Looks at the variables in setlocale's order; a library must not call setlocale for its host. */
	hb_language_t ReadLocale() const
	{
		std::string Locale;
		for (const char* Name : {"LC_ALL", "LC_CTYPE", "LANG"})
		{
			const char* Value = std::getenv(Name);
			if (Value != nullptr && *Value != '\0')
			{
				Locale = Value;
				break;
			}
		}
		if (Locale.starts_with("ja"))
		{
			return Japanese;
		}
		if (Locale.starts_with("ko"))
		{
			return Korean;
		}
		const bool bTraditional = Locale.starts_with("zh_TW") || Locale.starts_with("zh_HK");
		return bTraditional ? Traditional : Simplified;
	}
};

const FLanguages& GetLanguages()
{
	static const FLanguages Languages;
	return Languages;
}

bool IsKana(char16_t InUnit)
{
	return (InUnit >= 0x3041 && InUnit <= 0x30fa) || (InUnit >= 0x31f0 && InUnit <= 0x31ff) ||
		   (InUnit >= 0xff66 && InUnit <= 0xff9d);
}

} // namespace

hb_language_t GuessHanLanguage(std::u16string_view InText)
{
	const FLanguages& Languages = GetLanguages();
	hb_language_t Language = Languages.OfLocale;
	for (const char16_t Unit : InText)
	{
		if (IsKana(Unit))
		{
			return Languages.Japanese;
		}
		if (Unit >= 0xac00 && Unit <= 0xd7a3)
		{
			Language = Languages.Korean;
		}
	}
	return Language;
}

const std::array<hb_language_t, 4>& GetHanLanguages()
{
	return GetLanguages().All;
}

} // namespace Flitmark
