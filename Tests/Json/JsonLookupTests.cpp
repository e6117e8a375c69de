#include "JsonTestKit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(JsonLookup, ReadsNumbersAsTheEngineDoes)
{
	const struct
	{
		std::u16string Value;
		bool bReads;
		double Expected;
	} Cases[] = {
		{u"0", true, 0},
		{u"-0", true, 0},
		{u"123456789", true, 123456789},
		{u"1234567890", true, 1234567890},
		{u"-7", true, -7},
		{u"999999999999999", true, 999999999999999.0},
		{u"9007199254740993", true, 9007199254740992.0},
		{u"18446744073709551616", true, 18446744073709551616.0},
		{u"0.1", true, 0.1},
		{u"-0.5", true, -0.5},
		{u"1.7976931348623157e308", true, std::numeric_limits<double>::max()},
		{u"2.2250738585072011e-308", true, 2.2250738585072011e-308},
		{u"5e-324", true, 5e-324},
		{u"1e23", true, 1e23},
		{u"8.5e1", true, 85},
		{u"1E2", true, 100},
		{u"1e999", true, Infinity},
		{u"-1e999", true, -Infinity},
		{u"1e-999", true, 0},
		{u"0e999", true, 0},
		{u"0." + std::u16string(400, u'0') + u"1e402", true, 10},
		{std::u16string(310, u'9') + u".0", true, Infinity},
		{std::u16string(310, u'9') + u"e-400", true, std::strtod((std::string(310, '9') + "e-400").c_str(), nullptr)},
		{u"1e99999999999999999999", true, Infinity},
		{u"1e-99999999999999999999", true, 0},
		{u"true", true, 1},
		{u"false", true, 0},
		{u"\"12\"", true, 12},
		{u"\"+12.5\"", true, 12.5},
		{u"\"-.5\"", true, -0.5},
		{u"\"3.\"", true, 3},
		{u"\"1\\u0032\"", true, 12},
		{u"\"\"", false, 0},
		{u"\" 1\"", false, 0},
		{u"\"1e3\"", false, 0},
		{u"\"1.2.3\"", false, 0},
		{u"\"abc\"", false, 0},
		{u"null", false, 0},
		{u"[1]", false, 0},
		{u"{\"v\":1}", false, 0},
	};
	for (const auto& Case : Cases)
	{
		const TSharedPtr<FJsonValue> Value = ReadMember(Case.Value);
		ASSERT_TRUE(Value.IsValid()) << Narrow(Case.Value);
		double Number = 77.0;
		EXPECT_EQ(Value->TryGetNumber(Number), Case.bReads) << Narrow(Case.Value);
		EXPECT_EQ(Number, Case.bReads ? Case.Expected : 77.0) << Narrow(Case.Value);
		EXPECT_EQ(Value->AsNumber(), Case.Expected) << Narrow(Case.Value);
	}
}

TEST(JsonLookup, RoundsTo64BitsOrFails)
{
	const struct
	{
		std::u16string Value;
		bool bReads;
		int64 Expected;
	} Cases[] = {
		{u"125000000", true, 125000000},
		{u"72000000000", true, 72000000000},
		{u"0.5", true, 1},
		{u"-0.5", true, -1},
		{u"0.49999999999999994", true, 0},
		{u"2.4999", true, 2},
		{u"-1.5", true, -2},
		{u"4503599627370497.5", true, 4503599627370498},
		{u"9223372036854775807", true, MAX_int64},
		{u"9223372036854775808", true, MAX_int64},
		{u"-9223372036854775808", true, MIN_int64},
		{u"9223372036854777856", false, 0},
		{u"-9223372036854777856", false, 0},
		{u"1e999", false, 0},
		{u"-1e999", false, 0},
		{u"\"20\"", true, 20},
		{u"true", true, 1},
		{u"\"x\"", false, 0},
		{u"null", false, 0},
	};
	for (const auto& Case : Cases)
	{
		const TSharedPtr<FJsonValue> Value = ReadMember(Case.Value);
		ASSERT_TRUE(Value.IsValid()) << Narrow(Case.Value);
		int64 Number = 77;
		EXPECT_EQ(Value->TryGetNumber(Number), Case.bReads) << Narrow(Case.Value);
		EXPECT_EQ(Number, Case.bReads ? Case.Expected : 77) << Narrow(Case.Value);
	}
}

TEST(JsonLookup, WritesValuesAsStrings)
{
	const struct
	{
		std::u16string Value;
		std::u16string Expected;
	} Cases[] = {
		{u"\"as it is\"", u"as it is"},
		{u"0", u"0"},
		{u"-0", u"0"},
		{u"-0.0", u"0"},
		{u"12", u"12"},
		{u"100", u"100"},
		{u"-2.50", u"-2.5"},
		{u"0.1234567", u"0.123457"},
		{u"1e21", u"1000000000000000000000"},
		{u"1e999", u"inf"},
		{u"-1e999", u"-inf"},
		{u"true", u"true"},
		{u"false", u"false"},
		{u"null", u""},
		{u"[\"x\"]", u""},
		{u"{\"x\":\"y\"}", u""},
	};
	for (const auto& Case : Cases)
	{
		const TSharedPtr<FJsonValue> Root = ReadJson(FString(u"{\"v\":" + Case.Value + u"}"));
		ASSERT_TRUE(Root.IsValid()) << Narrow(Case.Value);
		EXPECT_EQ(Root->AsObject()->GetStringField(TEXT("v")).GetStd(), Case.Expected) << Narrow(Case.Value);
	}
}

TEST(JsonLookup, FindsMembersInAnyOrderAndCase)
{
	const FString Text =
		TEXT("{\"list\":[{\"a\":1,\"B\":2,\"c\":3},{\"c\":6,\"b\":5},{\"x\":0,\"a\":7},{\"a\":[8,9],\"b\":10}]}");
	const TSharedPtr<FJsonValue> Root = ReadJson(Text);
	const TArray<TSharedPtr<FJsonValue>> List = Root->AsObject()->GetArrayField(TEXT("LIST"));
	ASSERT_EQ(List.Num(), 4);
	const double Expected[4][3] = {{1, 2, 3}, {0, 5, 6}, {7, 0, 0}, {0, 10, 0}};
	// In both directions, since lookups learn from earlier ones.
	for (const bool bBackwards : {false, true})
	{
		for (int32 Step = 0; Step < 12; ++Step)
		{
			const int32 Index = bBackwards ? 11 - Step : Step;
			const TCHAR Name[] = {static_cast<TCHAR>(u'a' + Index % 3), u'\0'};
			EXPECT_EQ(List[Index / 3]->AsObject()->GetNumberField(Name), Expected[Index / 3][Index % 3]) << Index;
		}
	}
	EXPECT_EQ(List[3]->AsObject()->GetArrayField(TEXT("a")).Num(), 2);
	EXPECT_FALSE(List[0]->AsObject()->HasField(TEXT("list")));
}

TEST(JsonLookup, TakesTheLastOfRepeatedMembers)
{
	const struct
	{
		FString Text;
		double Expected;
	} Cases[] = {
		{TEXT("{\"a\":1,\"a\":2}"), 2},
		{TEXT("{\"a\":1,\"b\":5,\"A\":2,\"c\":0}"), 2},
		{TEXT("{\"a\":1,\"b\":{\"a\":3},\"a\":2}"), 2},
		{TEXT("{\"a\":1,\"b\":[{\"a\":3}],\"a\":2,\"b\":{\"a\":4}}"), 2},
		{TEXT("{\"b\":{\"a\":3}}"), 0},
		{TEXT("{\"a\":1,\"b\":{\"a\":3}}"), 1},
		{TEXT("{\"b\":[3,{\"a\":3}],\"a\":1}"), 1},
		{TEXT("{\"a\":{\"a\":{\"a\":3}}}"), 0},
		{TEXT("{\"\\u0061\":1,\"a\":2}"), 2},
		{TEXT("{\"a\":1,\"\\u0041\":2}"), 2},
	};
	for (const auto& Case : Cases)
	{
		const TSharedPtr<FJsonValue> Root = ReadJson(Case.Text);
		// Twice, since the second lookup starts from what the first one found.
		EXPECT_EQ(Root->AsObject()->GetNumberField(TEXT("a")), Case.Expected) << Narrow(Case.Text.GetStd());
		EXPECT_EQ(Root->AsObject()->GetNumberField(TEXT("a")), Case.Expected) << Narrow(Case.Text.GetStd());
	}
}

TEST(JsonLookup, GivesEmptyThingsForWhatIsNotThere)
{
	const TSharedPtr<FJsonValue> Root = ReadJson(TEXT("[5,{\"a\":null,\"o\":{\"x\":1}}]"));
	const TSharedPtr<FJsonObject> NoObject = Root->AsArray()[0]->AsObject();
	ASSERT_TRUE(NoObject.IsValid());
	EXPECT_FALSE(NoObject->HasField(TEXT("a")));
	EXPECT_EQ(Root->AsObject()->GetArrayField(TEXT("datas")).Num(), 0);
	const TSharedPtr<FJsonObject> Object = Root->AsArray()[1]->AsObject();
	EXPECT_TRUE(Object->HasField(TEXT("a")));
	EXPECT_TRUE(Object->TryGetField(TEXT("a"))->IsNull());
	EXPECT_EQ(Object->GetArrayField(TEXT("a")).Num(), 0);
	EXPECT_EQ(Object->GetObjectField(TEXT("o"))->GetNumberField(TEXT("x")), 1.0);
	EXPECT_FALSE(Object->GetObjectField(TEXT("missing"))->HasField(TEXT("x")));
	EXPECT_FALSE(Object->TryGetField(TEXT("missing")).IsValid());
	FString String = TEXT("before");
	int64 Integer = 3;
	EXPECT_FALSE(Object->TryGetStringField(TEXT("a"), String));
	EXPECT_FALSE(Object->TryGetNumberField(TEXT("missing"), Integer));
	EXPECT_EQ(String.GetStd(), u"before");
	EXPECT_EQ(Integer, 3);
	EXPECT_EQ(FJsonObject().GetStringField(TEXT("a")).Len(), 0);
}

TEST(JsonLookup, ValuesKeepTheirDocument)
{
	TSharedPtr<FJsonObject> Object;
	{
		const TSharedPtr<FJsonValue> Root =
			ReadJson(TEXT("{\"list\":[{\"text\":\"a text too long to be kept in place\"}]}"));
		Object = Root->AsObject()->GetArrayField(TEXT("list"))[0]->AsObject();
	}
	EXPECT_EQ(Object->GetStringField(TEXT("text")).GetStd(), u"a text too long to be kept in place");
}
} // namespace
