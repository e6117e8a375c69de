#include "JsonTestKit.h"

#include <gtest/gtest.h>

namespace
{
TEST(JsonHostile, DeepNestingEndangersNothing)
{
	for (const std::size_t Depth : {64u, 65u, 10'000u, 1'000'000u})
	{
		const std::u16string Arrays = std::u16string(Depth, u'[') + std::u16string(Depth, u']');
		EXPECT_TRUE(ReadJson(FString(Arrays)).IsValid()) << Depth;
		EXPECT_FALSE(ReadJson(FString(Arrays.substr(1))).IsValid()) << Depth;
		EXPECT_FALSE(ReadJson(FString(std::u16string(Depth, u'['))).IsValid()) << Depth;

		std::u16string Objects;
		for (std::size_t Level = 0; Level < Depth; ++Level)
		{
			Objects += u"{\"a\":";
		}
		Objects += u"1" + std::u16string(Depth, u'}');
		const TSharedPtr<FJsonValue> Root = ReadJson(FString(u"{\"deep\":" + Objects + u",\"b\":2}"));
		ASSERT_TRUE(Root.IsValid()) << Depth;
		EXPECT_EQ(Root->AsObject()->GetNumberField(TEXT("b")), 2.0) << Depth;
		EXPECT_TRUE(Root->AsObject()->GetObjectField(TEXT("deep"))->HasField(TEXT("a"))) << Depth;
	}
}

TEST(JsonHostile, LongStringsAndNumbersAreRead)
{
	constexpr int32 Length = 5'000'000;
	const std::u16string Letters(Length, u'x');
	EXPECT_EQ(ReadMember(u"\"" + Letters + u"\"")->AsString().Len(), Length);
	EXPECT_EQ(ReadMember(u"\"" + Letters + u"\\n\"")->AsString().Len(), Length + 1);
	EXPECT_EQ(ReadMember(u"\"\\uD800" + Letters + u"\"")->AsString().Len(), Length + 1);
	EXPECT_FALSE(ReadMember(u"\"" + Letters).IsValid());
	EXPECT_GT(ReadMember(std::u16string(Length, u'9'))->AsNumber(), 1e308);
	EXPECT_EQ(ReadMember(u"0." + std::u16string(Length, u'0') + u"1")->AsNumber(), 0.0);
	EXPECT_EQ(ReadJson(FString(u"{\"" + Letters + u"\":3}"))->AsObject()->GetNumberField(FStringView(Letters)), 3.0);
}

TEST(JsonHostile, ManyNamesAreFound)
{
	constexpr int32 Count = 100'000;
	std::u16string Text = u"{\"name\":0";
	for (int32 Index = 0; Index < Count; ++Index)
	{
		Text += u",\"name" + FString::FromInt(Index).GetStd() + u"\":" + FString::FromInt(Index).GetStd();
	}
	const TSharedPtr<FJsonValue> Root = ReadJson(FString(Text + u"}"));
	ASSERT_TRUE(Root.IsValid());
	EXPECT_EQ(Root->AsObject()->GetNumberField(TEXT("NAME99999")), 99'999.0);
	EXPECT_EQ(Root->AsObject()->GetNumberField(TEXT("name0")), 0.0);
	EXPECT_FALSE(Root->AsObject()->HasField(TEXT("name100000")));
}

TEST(JsonHostile, NoPartOfADocumentIsADocument)
{
	const std::u16string Text =
		u"{\"datas\":[{\"a\":-12.5e3,\"b\":\"x\\n\\uD83D\\u0041\",\"c\":[true,false,null]},{}],\"d\":\"\"}";
	ASSERT_TRUE(ReadJson(FString(Text)).IsValid());
	for (std::size_t Length = 0; Length < Text.size(); ++Length)
	{
		EXPECT_FALSE(ReadJson(FString(Text.substr(0, Length))).IsValid()) << Length;
	}
}

TEST(JsonHostile, ReadsATextThatTheCallerKeeps)
{
	const FString Text = TEXT("{\"text\":\"kept by the caller\"}");
	TSharedPtr<FJsonValue> Value;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(Text), Value));
	EXPECT_EQ(Value->AsObject()->GetStringField(TEXT("text")).GetStd(), u"kept by the caller");
}
} // namespace
