#include "JsonReference.h"
#include "JsonTestKit.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

namespace
{
/** Joins pieces of JSON at random: some documents are valid, most are broken somewhere. */
std::u16string MakeDocument(std::mt19937& Random, int32 Depth)
{
	static const std::u16string Scalars[] = {u"0",
											 u"-1",
											 u"12.5",
											 u"1e3",
											 u"123456789012",
											 u"-0.0",
											 u"true",
											 u"null",
											 u"\"\"",
											 u"\"text\"",
											 u"\"\\n1\\\"2\"",
											 u"\"\\uD83D\\uDE00\"",
											 u"\"a longer text of more than sixteen units\"",
											 u"\"\\u0041\\\\\"",
											 u"[]",
											 u"{}"};
	static const std::u16string Names[] = {u"\"a\":", u"\"b\" : ", u"\"A\":", u"\"\\u0061\":", u"\"danmaku_content\":"};
	if (Depth == 0 || Random() % 4 == 0)
	{
		return Scalars[Random() % std::size(Scalars)];
	}
	const bool bObject = Random() % 2 == 0;
	std::u16string Text = bObject ? u"{" : u"[ ";
	const std::uint_fast32_t Count = Random() % 5;
	for (std::uint_fast32_t Index = 0; Index < Count; ++Index)
	{
		Text += Index > 0 ? u"," : u"";
		Text += bObject ? Names[Random() % std::size(Names)] : u"";
		Text += MakeDocument(Random, Depth - 1);
	}
	return Text + (bObject ? u"}" : u"]");
}

TEST(JsonDifferential, AgreesWithRapidJsonAlone)
{
	constexpr std::u16string_view Spoilers = u"\"\\{}[]:,0123456789.-+eEtfnu \n\tDd";
	std::mt19937 Random(7);
	int32 AcceptedCount = 0;
	for (int32 Round = 0; Round < 20'000; ++Round)
	{
		std::u16string Text = MakeDocument(Random, 4);
		for (std::uint_fast32_t Spoil = Random() % 3; Spoil > 0 && !Text.empty(); --Spoil)
		{
			const std::size_t At = Random() % Text.size();
			const TCHAR Spoiler = Spoilers[Random() % Spoilers.size()];
			Random() % 2 == 0 ? void(Text[At] = Spoiler) : void(Text.erase(At, 1));
		}
		ASSERT_EQ(CompareWithReference(FString(Text)), "") << Narrow(Text);
		AcceptedCount += ReadJson(FString(Text)).IsValid() ? 1 : 0;
	}
	// Otherwise the comparison would prove little.
	EXPECT_GT(AcceptedCount, 2'000);
	EXPECT_LT(AcceptedCount, 18'000);
}
} // namespace
