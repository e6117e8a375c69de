#include "Internationalization/Internationalization.h"
#include "Internationalization/TextLocalizationManager.h"
#include "Kismet/KismetStringLibrary.h"
#include "TestClasses.h"

#include <gtest/gtest.h>

#define LOCTEXT_NAMESPACE "LayerTests"

namespace
{

class FTexts : public testing::Test
{
protected:
	~FTexts() override { FInternationalization::Get().SetCurrentCulture(TEXT("en-US")); }

	static void SetCulture(const TCHAR* Name) { ASSERT_TRUE(FInternationalization::Get().SetCurrentCulture(Name)); }
	static std::string Read(const FText& Text) { return LayerTest::ToUtf8(Text.ToString()); }
};

TEST_F(FTexts, WhitespaceIsUnicodes)
{
	const struct
	{
		const TCHAR* Text;
		bool bWhitespace;
	} Cases[] = {{TEXT(""), true},
				 {TEXT(" \t\r\n\v\f"), true},
				 {u"\u0085\u00A0\u1680", true},
				 {u"\u2000\u200A", true},
				 {u"\u3000\u205F\u202F", true},
				 {u"\u2028\u2029", true},
				 {u"\u200B", false},
				 {u"\uFEFF", false},
				 {TEXT("  a "), false},
				 {u"\u180E", false},
				 {u"\xD800", false}};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(FText::FromString(Case.Text).IsEmptyOrWhitespace(), Case.bWhitespace)
			<< Read(FText::FromString(Case.Text));
	}
	EXPECT_TRUE(FText().IsEmptyOrWhitespace());
	EXPECT_TRUE(FText::GetEmpty().IsEmpty());
}

TEST_F(FTexts, NumbersAreGroupedByThousands)
{
	const std::pair<int64, const char*> Cases[] = {{0, "0"},
												   {7, "7"},
												   {-7, "-7"},
												   {999, "999"},
												   {-999, "-999"},
												   {1000, "1,000"},
												   {-1000, "-1,000"},
												   {123456, "123,456"},
												   {-123456, "-123,456"},
												   {1000000, "1,000,000"},
												   {MAX_int32, "2,147,483,647"},
												   {MIN_int32, "-2,147,483,648"},
												   {MIN_int64, "-9,223,372,036,854,775,808"}};
	for (const auto& [Number, Expected] : Cases)
	{
		EXPECT_EQ(Read(FText::AsNumber(Number)), Expected);
	}
	EXPECT_EQ(Read(FText::AsNumber(1000)), "1,000");
}

TEST_F(FTexts, FormatsTakeOrderedArguments)
{
	const std::pair<const TCHAR*, const char*> Cases[] = {{TEXT("{0}/{1}"), "37/1,000"},
														  {TEXT("{1}{0}{1}"), "1,000371,000"},
														  {TEXT(""), ""},
														  {TEXT("none"), "none"},
														  {TEXT("{2}|{99999999999}"), "{2}|{99999999999}"},
														  {TEXT("{}{a}{-1}"), "{}{a}{-1}"},
														  {TEXT("{0"), "{0"},
														  {TEXT("{{0}}"), "{37}"},
														  {TEXT("`{0}` ``{0}"), "{0}` `37"},
														  {TEXT("}{01}`"), "}1,000`"}};
	for (const auto& [Pattern, Expected] : Cases)
	{
		EXPECT_EQ(Read(FText::Format(FText::FromString(Pattern), FText::AsNumber(37), 1000)), Expected);
	}
	EXPECT_EQ(Read(FText::Format(FTextFormat::FromString(TEXT("{0}")),
								 FFormatOrderedArguments{FText::FromString(TEXT("{1}"))})),
			  "{1}")
		<< "an argument is not a pattern";
}

TEST_F(FTexts, LocalizableTextsFollowTheCulture)
{
	FPolyglotTextData Data(TEXT("LayerTests"), TEXT("Hello"), TEXT("Hello {0}"));
	Data.AddLocalizedString(TEXT("zh"), u"\u4F60\u597D {0}");
	Data.AddLocalizedString(TEXT("zh-Hant"), u"\u60A8\u597D {0}");
	FTextLocalizationManager::Get().RegisterPolyglotTextData(Data);
	const FText Hello = LOCTEXT("Hello", "Hello {0}");
	const FText Formatted = FText::Format(Hello, 1000);
	const struct
	{
		const TCHAR* Culture;
		const char* Expected;
	} Cases[] = {{TEXT("en-US"), "Hello 1,000"},
				 {TEXT("zh-Hans-CN"), "你好 1,000"},
				 {TEXT("ja"), "Hello 1,000"},
				 {TEXT("zh-Hant-TW"), "您好 1,000"},
				 {TEXT("zh"), "你好 1,000"}};
	for (const auto& Case : Cases)
	{
		SetCulture(Case.Culture);
		EXPECT_EQ(Read(Formatted), Case.Expected);
	}
	EXPECT_EQ(Read(NSLOCTEXT("Other", "Hello", "Hello {0}")), "Hello {0}") << "another namespace";
	EXPECT_EQ(Read(LOCTEXT("Hello", "Good day")), "Good day") << "a source that was not translated";
	EXPECT_FALSE(FInternationalization::Get().SetCurrentCulture(TEXT("tlh")));
	EXPECT_EQ(Read(Hello), "你好 {0}");
	Data.AddLocalizedString(TEXT("zh"), u"\u563F");
	FTextLocalizationManager::Get().RegisterPolyglotTextData(Data);
	EXPECT_EQ(Read(Hello), "嘿") << "a translation that came later";
}

TEST_F(FTexts, SubstringsStayInside)
{
	const struct
	{
		int32 Start;
		int32 Length;
		const char* Expected;
	} Cases[] = {{0, 3, "abc"}, {0, 0, ""}, {0, -5, ""},		{0, 99, "abcd"},
				 {2, 99, "cd"}, {9, 1, ""}, {0, MIN_int32, ""}, {1, MAX_int32, "bcd"}};
	for (const auto& Case : Cases)
	{
		const FString Result = UKismetStringLibrary::GetSubstring(TEXT("abcd"), Case.Start, Case.Length);
		EXPECT_EQ(LayerTest::ToUtf8(Result), Case.Expected);
	}
	// Cuts by units, not by characters.
	EXPECT_EQ(UKismetStringLibrary::GetSubstring(u"\U0001F600", 0, 1).Len(), 1);
}

} // namespace

#undef LOCTEXT_NAMESPACE
