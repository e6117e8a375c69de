#pragma once

#include <hb.h>

#include <array>
#include <string_view>

namespace Flitmark
{

/**
 * The language whose forms of ideographs a text is set in. Comments don't name theirs: kana make it Japanese, Hangul
 * Korean; otherwise it is the viewer's locale if that writes ideographs, else simplified Chinese.
 */
hb_language_t GuessHanLanguage(std::u16string_view InText);

/** All that GuessHanLanguage may answer. */
const std::array<hb_language_t, 4>& GetHanLanguages();

} // namespace Flitmark
