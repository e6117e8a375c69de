#include "Formats/CommentDocumentWriter.h"
#include "ImportKit.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

FServiceComment MakeComment(ECommentKind InKind, std::string InText)
{
	FServiceComment Comment;
	Comment.Kind = InKind;
	Comment.Text = std::move(InText);
	return Comment;
}

} // namespace

TEST(OwnDocument, IsReadByItsRules)
{
	const FImportResult Result = ImportText(R"({"datas":[
{"danmaku_id":1,"post_id":7,"user_id":101,"user_display_name":"Mira","danmaku_post_date":"2026.01.31-20.15.00",
 "danmaku_spawn_time":125000000,"danmaku_content":"a","danmaku_mode":1,"danmaku_font_size":24,"danmaku_font_color":"#FFD166"},
{"danmaku_spawn_time":"12.6","danmaku_mode":"2","danmaku_font_size":30.9,"danmaku_font_color":"#11223344","danmaku_content":8},
{"danmaku_font_color":"#abc","danmaku_mode":3,"danmaku_spawn_time":"soon","danmaku_post_date":"never"},
{"danmaku_content":["x"],"danmaku_mode":true,"danmaku_spawn_time":-1e300,"danmaku_font_size":1e300,"danmaku_id":{}}]})");
	EXPECT_EQ(Describe(Result), "125000000 T24 FFD166FF \"a\"\n13 B30 11223344 \"8\"\n0 U0 AABBCCFF \"\"\n"
								"0 T2147483647 00000000 \"\"\n");
	EXPECT_EQ(Result.Comments[0].UserId, 101);
}

TEST(OwnDocument, IsReadWholeOrNotAtAll)
{
	const std::pair<const char*, const char*> Cases[] = {
		{"{\"datas\":[\n{\"danmaku_content\":\"a\",}]}", "2:24: not JSON: "},
		{"{\"datas\":[{\"danmaku_content\":\"a\"", "1:33: not JSON: "},
		{"{\"datas\":7}", "its \"datas\" is not a list"},
		{"{\"comments\":[]}", "it has no list of comments"},
	};
	for (const auto& [Text, Said] : Cases)
	{
		EXPECT_EQ(ImportRefused(Text).find(Said), 0U) << Text << ": " << ImportRefused(Text);
	}
}

TEST(Writer, WritesWhatTheReaderReads)
{
	FServiceComment Comment = MakeComment(ECommentKind::Bottom, "a\"\\\n\t\x01 你 \xF0\x9F\x91\x8B");
	Comment.Id = 5;
	Comment.PostId = -6;
	Comment.UserId = 4'294'967'295;
	Comment.UserName = "Mo \"x\"";
	Comment.PostDate = 951'782'399;
	Comment.SpawnTicks = 12'345'678'901;
	Comment.FontSize = 36;
	Comment.Color = 0x01ABCDFF;
	EXPECT_EQ(WriteCommentDocument(std::vector{Comment}),
			  R"({"datas":[)"
			  "\n"
			  R"({"danmaku_id":5,"post_id":-6,"user_id":4294967295,"user_display_name":"Mo \"x\"",)"
			  R"("danmaku_post_date":"2000.02.28-23.59.59","danmaku_spawn_time":12345678901,)"
			  R"("danmaku_content":"a\"\\\n\t\u0001 你 👋","danmaku_mode":2,"danmaku_font_size":36,)"
			  R"("danmaku_font_color":"#01ABCD"})"
			  "\n]}\n");
	Comment.Color = 0x01ABCD80;
	Comment.Text = "a";
	const std::string Written = WriteCommentDocument(std::vector{Comment, Comment});
	EXPECT_EQ(ImportText(Written).Comments[0].Color, Comment.Color);
	EXPECT_EQ(WriteCommentDocument(std::vector<FServiceComment>()), "{\"datas\":[\n]}\n");
}

TEST(Writer, LeavesOutDatesThatCannotBe)
{
	FServiceComment Comment;
	for (const int64 Date : {int64{0}, int64{253'402'300'800}, INT64_MIN, INT64_MAX})
	{
		Comment.PostDate = Date;
		EXPECT_EQ(WriteCommentDocument(std::vector{Comment}).find("post_date"), std::string::npos) << Date;
	}
}

TEST(Writer, WritesOnlyUtf8)
{
	FServiceComment Comment = MakeComment(ECommentKind::Scroll, "a\xFF"
																"b");
	EXPECT_NE(WriteCommentDocument(std::vector{Comment}).find("\"a\uFFFDb\""), std::string::npos);
}

TEST(Writer, StopsWithItsOutput)
{
	const std::vector<FServiceComment> Comments(10000);
	int NumPieces = 0;
	EXPECT_FALSE(WriteCommentDocument(Comments, [&NumPieces](std::string_view) { return ++NumPieces < 2; }));
	EXPECT_EQ(NumPieces, 2);
}

// So many that they are written in several slices.
TEST(OwnDocument, HoldsManyCommentsInOrder)
{
	constexpr int64 Count = 10'000;
	std::vector<FServiceComment> Comments;
	for (int64 Id = 0; Id < Count; ++Id)
	{
		FServiceComment& Comment = Comments.emplace_back();
		Comment.Id = Id;
		Comment.Text = "\"" + std::to_string(Id);
	}
	const FImportResult Result = ImportText(WriteCommentDocument(Comments));
	EXPECT_EQ(DescribeFaults(Result), "");
	ASSERT_EQ(Result.Comments.size(), Comments.size());
	for (std::size_t Index = 0; Index < Comments.size(); ++Index)
	{
		ASSERT_EQ(Result.Comments[Index].Text, Comments[Index].Text) << Index;
	}
	int NumPieces = 0;
	EXPECT_FALSE(WriteCommentDocument(Comments, [&NumPieces](std::string_view) { return ++NumPieces < 2; }));
	EXPECT_EQ(NumPieces, 2) << "nothing is handed out after the output stopped";
}

} // namespace Flitmark
