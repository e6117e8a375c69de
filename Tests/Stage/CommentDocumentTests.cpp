#include "Stage/CommentDocument.h"

#include "StageFixture.h"

namespace Flitmark
{
namespace
{

/** Values that a key may have, also absurd ones; the first stands for a key that is not there. */
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

constexpr const char* Keys[] = {"danmaku_spawn_time", "danmaku_content",	"danmaku_mode",
								"danmaku_font_size",  "danmaku_font_color", "DANMAKU_MODE"};

class FCommentDocumentTest : public FStageFixture
{
protected:
	/** The only comment of a document as the overlay shows it when its second comes; null where it never does. */
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
				EXPECT_EQ(Entry.Mode, static_cast<int32>(Shown->Mode));
				EXPECT_EQ(Entry.FontSize, Shown->FontSize);
				EXPECT_EQ(Entry.Color, FColor::FromHex(Shown->FontColor));
				EXPECT_EQ(Document.GetText(Entry), Shown->Content.GetStd());
			}
		}
	}
}

TEST_F(FCommentDocumentTest, ElementsThatAreNoObjectAreCommentsWithoutKeys)
{
	const FCommentDocument Document =
		FCommentDocument::Read(TEXT("{\"datas\":[7, \"x\", null, [], {\"danmaku_spawn_time\":35000000}]}"));
	ASSERT_EQ(Document.GetEntries().size(), 5u);
	for (std::size_t Index = 0; Index < 4; ++Index)
	{
		EXPECT_FALSE(Document.GetEntries()[Index].bIsObject);
		EXPECT_TRUE(Document.GetEntries()[Index].IsMissing(ECommentKey::Content));
	}
	EXPECT_TRUE(Document.GetEntries()[4].bIsObject);
	EXPECT_EQ(Document.GetLastSecond(), 3);
	EXPECT_EQ(FCommentDocument::Read(TEXT("{\"datas\":[]}")).GetLastSecond(), std::nullopt);
}

} // namespace
} // namespace Flitmark
