#include "Values/VisibleText.h"

#include <gtest/gtest.h>

namespace Flitmark
{
namespace
{

TEST(VisibleText, ShowsWhatATerminalWouldActOn)
{
	struct FCase
	{
		std::string Text;
		std::string Shown;
	};
	const FCase Cases[] = {
		{"film, naïve, 映画 👋🏽.mp4", "film, naïve, 映画 👋🏽.mp4"},
		{"", ""},
		{"\x1b]0;title\x07", "\\u001b]0;title\\u0007"},
		{"two\r\nlines\t", "two\\u000d\\u000alines\\u0009"},
		{std::string("a\0b", 3), "a\\u0000b"},
		{"\x7f", "\\u007f"},
		{"\xc2\x9b"
		 "2J",
		 "\\u009b2J"},
		{"txt.\u202e3pm", "txt.\\u202e3pm"},
		{"\u2066\u2028", "\\u2066\\u2028"},
		// Not UTF-8: stray and missing bytes, overlong forms, half a surrogate pair, beyond the last character.
		{"\x9b"
		 "2J",
		 "\\x9b2J"},
		{"\xe6\x98", "\\xe6\\x98"},
		{"\xc0\x9b", "\\xc0\\x9b"},
		{"\xe0\x82\x9b", "\\xe0\\x82\\x9b"},
		{"\xed\xa0\x80", "\\xed\\xa0\\x80"},
		{"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(MakeVisible(Case.Text), Case.Shown);
	}
}

} // namespace
} // namespace Flitmark
