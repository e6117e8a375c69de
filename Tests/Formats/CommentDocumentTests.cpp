#include "Formats/CommentDocument.h"

#include "Formats/CommentDocumentWriter.h"
#include "Formats/CommentTraits.h"
#include "StageFixture.h"

#include <algorithm>

namespace Flitmark
{
namespace
{

/** Values that a key may have, including absurd ones; the first stands for a missing key. */
constexpr const char* Values[] = {"",
								  "null",
								  "true",
								  "false",
								  "0",
								  "-1",
								  "1.9",
								  "-0.5",
								  "25.7",
								  "2147483648",
								  "1e999",
								  "-1e999",
								  "1e300",
								  "\"12\"",
								  "\"-3\"",
								  "\"+2.5\"",
								  "\"1e3\"",
								  "\"\"",
								  "\"x\"",
								  "\"#FE0302\"",
								  "\"#0f08\"",
								  "\"#GG00FF\"",
								  "\"11223344\"",
								  "[]",
								  "[1]",
								  "{}",
								  "19999999",
								  "-19999999",
								  "-9999999",
								  "864000000000",
								  "863999999999",
								  "9223372036854775807",
								  "\"20000000\"",
								  "\"a\\u0000\\uD83D\""};

constexpr const char* Keys[] = {"danmaku_spawn_time", "danmaku_content", "danmaku_mode",   "danmaku_font_size",
								"danmaku_font_color", "DANMAKU_MODE",	 "Danmaku_Content"};

class FCommentDocumentTest : public FStageFixture
{
protected:
	/** A document's only comment as the overlay shows it when its second comes; null if it never does. */
	const FDanmakuData* ShowOnly(const FString& InDocument, const FCommentEntry& InEntry)
	{
		GoTo(50'000.0);
		Log.Release();
		Stage->GetOverlay().LoadDanmaku(InDocument);
		GoTo(static_cast<double>(InEntry.IsReached() ? InEntry.GetSecond() : 0));
		return Log.GetNodes().size() == 1 ? &GetLastNode()->GetData() : nullptr;
	}
};

TEST_F(FCommentDocumentTest, AgreesWithTheOverlay)
{
	for (const char* Key : Keys)
	{
		for (const std::string Value : Values)
		{
			SCOPED_TRACE(Key + (": " + Value));
			const std::string Member = Value.empty() ? "" : "\"" + std::string(Key) + "\":" + Value;
			const FString Text = FromUtf8("{\"datas\":[{" + Member + "}]}");
			const FCommentDocument Document = FCommentDocument::Read(Text);
			ASSERT_EQ(Document.GetEntries().size(), 1u);
			const FCommentEntry& Entry = Document.GetEntries()[0];
			const FDanmakuData* Shown = ShowOnly(Text, Entry);
			ASSERT_EQ(Shown != nullptr, Entry.IsReached());
			EXPECT_EQ(FindLastSecond(Text), Entry.IsReached() ? Entry.GetSecond() : -1);
			if (Shown != nullptr)
			{
				EXPECT_EQ(Entry.SpawnTicks, Shown->SpawnTime.GetTicks());
				constexpr int32 FirstUnserved = 3;
				const auto Mode = static_cast<uint32>(Shown->Mode);
				EXPECT_EQ(IsServed(Entry.Kind), Mode < FirstUnserved);
				EXPECT_TRUE(!IsServed(Entry.Kind) || Mode == static_cast<uint32>(Entry.Kind));
				EXPECT_EQ(Entry.FontSize, Shown->FontSize);
				const FColor Color = FColor::FromHex(Shown->FontColor);
				EXPECT_EQ(Entry.Color, static_cast<uint32>(Color.R) << 24 | static_cast<uint32>(Color.G) << 16 |
										   static_cast<uint32>(Color.B) << 8 | Color.A);
				EXPECT_EQ(Document.GetText(Entry), Shown->Content.GetStd());
			}
		}
	}
}

TEST_F(FCommentDocumentTest, ElementsThatAreNoObjectAreCommentsWithoutKeys)
{
	const FString Text = TEXT("{\"datas\":[7, \"x\", null, [], {\"danmaku_spawn_time\":35000000}]}");
	const FCommentDocument Document = FCommentDocument::Read(Text);
	ASSERT_EQ(Document.GetEntries().size(), 5u);
	for (std::size_t Index = 0; Index < 4; ++Index)
	{
		EXPECT_FALSE(Document.GetEntries()[Index].Keys.bIsObject);
		EXPECT_TRUE(Document.GetEntries()[Index].Keys.IsMissing(ECommentKey::Content));
	}
	EXPECT_TRUE(Document.GetEntries()[4].Keys.bIsObject);
	EXPECT_EQ(FindLastSecond(Text), 3);
	EXPECT_EQ(FindLastSecond(TEXT("{\"datas\":[]}")), -1);
}

/** Different code finds the elements and reads their contents. */
TEST(CommentDocument, KeepsEveryElementToTheByte)
{
	const std::string_view Elements[] = {
		R"({"danmaku_content": "a", "danmaku_spawn_time": 10000000, "danmaku_mode": 7, "other": [1, {"x": null}]})",
		"{\n\t\"danmaku_content\" : \"\\u4f60\\n\\ud83d\\ude00\"\n}",
		"{}",
		"null",
		"[1, [2]]",
		R"("text ] , { \" \\")",
		"-1.5e3",
		R"({"danmaku_content":5,"danmaku_content":"half \ud800"})",
		R"({"datas":[{"danmaku_content":"inner"}],"danmaku_content":"outer"})",
		R"({"user_id":7012345678901234567})",
	};
	std::string List;
	for (const std::string_view Element : Elements)
	{
		List += (List.empty() ? " " : " ,\r\n") + std::string(Element);
	}
	// What the overlay accepts as the list's name, and which list it uses if there are several.
	const std::pair<const char*, const char*> Around[] = {
		{"{\"before\":{\"datas\":[{}]},\"list\":[[\"datas\"]],\"datas\" : [", "] , \"after\": {\"datas\":0}}"},
		{"{\"Datas\":[", "]}"},
		{"\uFEFF{\"datas\":[8],\"d\\u0061TAS\"\n:\t[", "]}\n"},
	};
	for (const auto& [Before, After] : Around)
	{
		const std::string Text = Before + List + After;
		const FCommentDocument Document = FCommentDocument::Read(FromUtf8(Text));
		ASSERT_FALSE(Document.GetFault()) << Document.GetFault()->Reason;
		const std::vector<FServiceComment> Comments = Document.MakeComments(Text);
		EXPECT_TRUE(std::ranges::equal(Comments, Elements, {}, &FServiceComment::Source)) << Before;
		EXPECT_EQ(Comments[1].Text, "你\n😀");
		EXPECT_EQ(Comments[7].Text, "half \uFFFD");
		EXPECT_EQ(Comments[8].Text, "outer");
		EXPECT_EQ(Comments[9].UserId, 7'012'345'678'901'234'567);
	}
}

TEST(CommentDocument, OfCommentsIsWhatTheirDocumentReadsAs)
{
	FServiceComment Plain;
	Plain.Text = "a\n你😀 \"\\";
	Plain.PostDate = 1;
	Plain.SpawnTicks = -5;
	FServiceComment Top = Plain;
	Top.Text.clear();
	Top.Kind = ECommentKind::Top;
	Top.FontSize = MAX_int32;
	Top.Color = 0x01020304;
	Top.SpawnTicks = int64{1} << 53;
	const std::vector Comments = {Plain, Top, Plain};
	const FCommentDocument Expected = FCommentDocument::Read(FromUtf8(WriteCommentDocument(Comments)));
	const FCommentDocument Document = FCommentDocument::Of(Comments);
	ASSERT_EQ(Document.GetEntries().size(), Comments.size());
	for (std::size_t Index = 0; Index < Comments.size(); ++Index)
	{
		const FCommentEntry& Entry = Document.GetEntries()[Index];
		const FCommentEntry& Read = Expected.GetEntries()[Index];
		EXPECT_EQ(Document.GetText(Entry), Expected.GetText(Read));
		EXPECT_EQ(Entry.SpawnTicks, Read.SpawnTicks);
		EXPECT_EQ(Entry.Kind, Read.Kind);
		EXPECT_EQ(Entry.FontSize, Read.FontSize);
		EXPECT_EQ(Entry.Color, Read.Color);
		EXPECT_EQ(Entry.Keys.Missing | Entry.Keys.Mistyped, Read.Keys.Missing | Read.Keys.Mistyped);
	}
}

TEST(CommentTraits, TextIsWhatAPersonSees)
{
	const std::pair<const char16_t*, bool> Cases[] = {
		{u"", false},
		{u" \t\n\u3000\u00A0\u2028", false},
		{u"\u200B\u2060\uFEFF\u00AD\u3164\uFE0F", false},
		{u"\u0001\u007F\u0085", false},
		{u"\u200B.", true},
		{u"\u2800", true},
		{u"😀", true},
	};
	for (const auto& [Text, bExpected] : Cases)
	{
		const std::string Utf8 = ToUtf8(FString(Text));
		EXPECT_EQ(HasText(std::u16string_view(Text)), bExpected) << Utf8;
		EXPECT_EQ(HasText(Utf8), bExpected) << Utf8;
	}
	EXPECT_TRUE(HasText("\xFF")) << "shows as U+FFFD";
}

} // namespace
} // namespace Flitmark
