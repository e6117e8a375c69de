#include "JsonTestKit.h"

#include <gtest/gtest.h>

namespace
{
TEST(JsonReader, TakesOnlyWholeObjectsAndArrays)
{
	const struct
	{
		std::u16string Text;
		bool bAccepted;
	} Cases[] = {
		{u"{}", true},
		{u"[]", true},
		{u" \t\r\n{ \"a\" : [ 1 , -2.5e-3 , true , false , null , \"x\" ] } \n", true},
		{u"[0,-0,0.0,1E+2,1e5,10.01]", true},
		{u"[1e999,-1e999,1e-999,0e999999999999]", true},
		{u"[" + std::u16string(400, u'9') + u"]", true},
		{u"[1." + std::u16string(400, u'0') + u"e" + std::u16string(400, u'0') + u"1]", true},
		{u"[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0041\\uD83D\\uDE00\"]", true},
		{u"[\"\\uD800\",\"\\uDC00\",\"\\uD800x\",\"\\uDC00\\uD800\",\"\\uD800\\n\"]", true},
		{u"[\"\xD800\",\"\x7F\",\"\x2028\"]", true},
		{u"{\"a\":1,\"a\":2}", true},
		{u"{\"\":1}", true},
		{u"", false},
		{u"  ", false},
		{u"1", false},
		{u"\"x\"", false},
		{u"null", false},
		{u"{}x", false},
		{u"{}{}", false},
		{u"[],", false},
		{u"{\"a\":1,}", false},
		{u"[1,]", false},
		{u"[,1]", false},
		{u"[1 2]", false},
		{u"{\"a\" 1}", false},
		{u"{\"a\":}", false},
		{u"{a:1}", false},
		{u"{'a':1}", false},
		{u"{1:1}", false},
		{u"[1}", false},
		{u"// note\n[]", false},
		{u"[/**/]", false},
		{u"[NaN]", false},
		{u"[Infinity]", false},
		{u"[-Infinity]", false},
		{u"[nul]", false},
		{u"[True]", false},
		{u"[01]", false},
		{u"[-01]", false},
		{u"[00]", false},
		{u"[12.]", false},
		{u"[.5]", false},
		{u"[+1]", false},
		{u"[-]", false},
		{u"[1e]", false},
		{u"[1e+]", false},
		{u"[1.2.3]", false},
		{u"[1-2]", false},
		{u"[1e2e3]", false},
		{u"[0x10]", false},
		{u"[\"a\nb\"]", false},
		{u"[\"a\tb\"]", false},
		{u"[\"\x1F\"]", false},
		{u"[\"\\x41\"]", false},
		{u"[\"\\u12G4\"]", false},
		{u"[\"\\uD8\"]", false},
		{u"[\"\\uD800\\x\"]", false},
		{u"[\"\\\\uD800\\\"]", false},
		{u"[\"abc", false},
		{u"[\"abc\\", false},
		{u"[\"\\uD800", false},
		{u"\uFEFF[]", false},
		{u"[]" + std::u16string(1, u'\0'), false},
		{u"[]" + std::u16string(1, u'\0') + u"[]", false},
		{u"[" + std::u16string(1, u'\0') + u"]", false},
		{u"[\"" + std::u16string(1, u'\0') + u"\"]", false},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ReadJson(FString(Case.Text)).IsValid(), Case.bAccepted) << Narrow(Case.Text);
	}
}

TEST(JsonReader, DecodesStringsToTheUnit)
{
	const std::u16string HalfPair(1, TCHAR(0xD800));
	const struct
	{
		std::u16string Text;
		std::u16string Expected;
	} Cases[] = {
		{u"\"\"", u""},
		{u"\"plain\"", u"plain"},
		{u"\"\u65E5\u672C \U0001F600\"", u"\u65E5\u672C \U0001F600"},
		{u"\"0123456789abcdef\\n\"", u"0123456789abcdef\n"},
		{u"\"1\\\"9\\\"\"", u"1\"9\""},
		{u"\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"", u"\"\\/\b\f\n\r\t"},
		{u"\"\\u00e9\\u65E5\"", u"\u00E9\u65E5"},
		{u"\"\\uD83D\\uDE00\"", u"\U0001F600"},
		{u"\"\\ud83d\\ude00!\"", u"\U0001F600!"},
		{u"\"a\\uD800b\"", u"a" + HalfPair + u"b"},
		{u"\"\\uDE00\\uD83D\"", {TCHAR(0xDE00), TCHAR(0xD83D)}},
		{u"\"\\\\uD800\\uD800\\n\"", u"\\uD800" + HalfPair + u"\n"},
		{u"\"" + HalfPair + u"\"", HalfPair},
		{u"\"a\\u0000b\"", {u'a', u'\0', u'b'}},
	};
	for (const auto& Case : Cases)
	{
		const TSharedPtr<FJsonValue> Value = ReadMember(Case.Text);
		ASSERT_TRUE(Value.IsValid()) << Narrow(Case.Text);
		EXPECT_EQ(Value->AsString().GetStd(), Case.Expected) << Narrow(Case.Text);
		const TSharedPtr<FJsonValue> Keyed = ReadJson(FString(u"{" + Case.Text + u":1}"));
		ASSERT_TRUE(Keyed.IsValid()) << Narrow(Case.Text);
		EXPECT_TRUE(Keyed->AsObject()->HasField(FStringView(Case.Expected))) << Narrow(Case.Text);
	}
}

TEST(JsonReader, TellsWhereAndWhyItFailed)
{
	const struct
	{
		FString Text;
		uint32 Line;
		uint32 Character;
	} Cases[] = {
		{TEXT(""), 1, 1},
		{TEXT("3"), 1, 1},
		{TEXT("{\n  \"a\": 12345 x\n}"), 2, 14},
		{TEXT("[\"123\",\n\"ab\\q\"]"), 2, 4},
		{TEXT("[1,\r\n2,\r\n]"), 3, 1},
		{TEXT("[\"\\uD800\",\n x]"), 2, 2},
	};
	for (const auto& Case : Cases)
	{
		const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(Case.Text);
		TSharedPtr<FJsonValue> Value;
		EXPECT_FALSE(FJsonSerializer::Deserialize(Reader, Value));
		EXPECT_FALSE(Reader->GetErrorMessage().IsEmpty()) << Narrow(Case.Text.GetStd());
		EXPECT_EQ(Reader->GetLineNumber(), Case.Line) << Narrow(Case.Text.GetStd());
		EXPECT_EQ(Reader->GetCharacterNumber(), Case.Character) << Narrow(Case.Text.GetStd());
	}
}

TEST(JsonReader, LeavesTheOutputUntouchedOnFailure)
{
	const TSharedPtr<FJsonValue> Before = ReadJson(TEXT("[1]"));
	TSharedPtr<FJsonValue> Value = Before;
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(FString(TEXT("[1"))), Value));
	EXPECT_EQ(Value.Get(), Before.Get());

	TSharedPtr<FJsonObject> Object;
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(FString(TEXT("[1]"))), Object));
	EXPECT_FALSE(Object.IsValid());
	EXPECT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(FString(TEXT("{\"a\":7}"))), Object));
	EXPECT_EQ(Object->GetNumberField(TEXT("a")), 7.0);

	TArray<TSharedPtr<FJsonValue>> Array;
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(FString(TEXT("{}"))), Array));
	EXPECT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(FString(TEXT("[1,2]"))), Array));
	EXPECT_EQ(Array.Num(), 2);
}
} // namespace
