#pragma once

#include <hb.h>

#include <array>
#include <string_view>

namespace Flitmark
{

/**
 * The language whose ideograph forms a text uses. Comments do not name theirs: kana make it Japanese, Hangul
 * Korean; otherwise it is the viewer's locale if that uses ideographs, else Simplified Chinese.
 */
hb_language_t GuessHanLanguage(std::u16string_view InText);

/** All possible results of GuessHanLanguage. */
const std::array<hb_language_t, 4>& GetHanLanguages();

} // namespace Flitmark
