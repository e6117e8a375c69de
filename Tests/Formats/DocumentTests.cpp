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

std::string WriteAnew(FImportResult InResult)
{
	for (FServiceComment& Comment : InResult.Comments)
	{
		Comment.Source.clear();
	}
	return WriteCommentDocument(InResult.Comments);
}

} // namespace

TEST(OwnDocument, ComesBackToTheByte)
{
	const std::string_view Entries[] = {
		R"({"danmaku_content": "a", "danmaku_spawn_time": 10000000, "danmaku_mode": 7, "other": [1, {"x": null}]})",
		"{\n\t\"danmaku_content\" : \"\\u4f60\\n\\ud83d\\ude00\"\n}",
		"{}",
		"null",
		"[1, [2]]",
		"\"text ] , {\"",
		"-1.5e3",
		R"({"danmaku_content":5,"danmaku_content":"twice"})",
		R"({"datas":[{"danmaku_content":"inner"}],"danmaku_content":"outer"})",
	};
	std::string Document = "{\"before\":{\"datas\":[{}]},\"list\":[{\"danmaku_content\":\"no\"}],\"datas\" : [";
	for (const std::string_view Text : Entries)
	{
		Document += std::string(Document.ends_with('[') ? " " : " ,\r\n") + std::string(Text);
	}
	const FImportResult Result = ImportText(Document + "] , \"after\": {\"datas\":0}}");
	ASSERT_EQ(Result.Comments.size(), std::size(Entries));
	for (std::size_t Index = 0; Index < std::size(Entries); ++Index)
	{
		EXPECT_EQ(Result.Comments[Index].Source, Entries[Index]);
	}
	EXPECT_EQ(DescribeFaults(Result), "");
	EXPECT_EQ(Result.Comments[1].Text, "你\n😀");
	EXPECT_EQ(Result.Comments[8].Text, "outer");
	const std::string Written = WriteCommentDocument(Result.Comments);
	EXPECT_EQ(WriteCommentDocument(ImportText(Written).Comments), Written);
}

TEST(OwnDocument, IsReadByItsRules)
{
	const FImportResult Result = ImportText(R"({"datas":[
{"danmaku_id":1,"post_id":7,"user_id":101,"user_display_name":"Mira","danmaku_post_date":"2026.01.31-20.15.00",
 "danmaku_spawn_time":125000000,"danmaku_content":"a","danmaku_mode":1,"danmaku_font_size":24,"danmaku_font_color":"#FFD166"},
{"danmaku_spawn_time":"12.6","danmaku_mode":"2","danmaku_font_size":30.9,"danmaku_font_color":"#11223344","danmaku_content":8},
{"danmaku_font_color":"#abc","danmaku_mode":3,"danmaku_spawn_time":"soon","danmaku_post_date":"never"},
{"danmaku_content":["x"],"danmaku_mode":true,"danmaku_spawn_time":-1e300,"danmaku_font_size":1e300,"danmaku_id":{}}]})");
	EXPECT_EQ(Describe(Result), "125000000 T24 FFD166FF \"a\"\n13 B30 11223344 \"8\"\n0 U0 AABBCCFF \"\"\n"
								"-1000000000000000000 T2147483647 00000000 \"\"\n");
	EXPECT_EQ(DescribeOrigin(Result), "1 7 101 \"Mira\" 1769890500\n0 0 0 \"\" 0\n0 0 0 \"\" 0\n0 0 0 \"\" 0\n");
}

TEST(OwnDocument, DamagedEntriesCostThemselvesAlone)
{
	const std::string Well = R"({"danmaku_content":"well"})";
	struct FCase
	{
		std::string Entry;
		/** Of the comments, the well one behind it left out; empty where the entry is lost. */
		std::string Source;
		std::string Text;
	};
	const FCase Cases[] = {
		{R"({"danmaku_content":"a","danmaku_mode":1,})", "", "a"},
		{"{\"danmaku_content\":\"a\nb\"}", R"({"danmaku_content":"a\nb"})", "a\nb"},
		{"{\"danmaku_content\":\"a\xFF\"}", "{\"danmaku_content\":\"a\uFFFD\"}", "a\uFFFD"},
		{R"({"danmaku_content":"\ud800"})", R"({"danmaku_content":"\ufffd"})", "\uFFFD"},
		{R"({"danmaku_content":"a" "danmaku_mode":1})", "", "a"},
	};
	for (const FCase& Case : Cases)
	{
		const FImportResult Result = ImportText("{\"datas\":[" + Case.Entry + "," + Well + "]}");
		ASSERT_EQ(Result.Comments.size(), 2U) << Case.Entry;
		EXPECT_EQ(Result.Comments[0].Source, Case.Source);
		EXPECT_EQ(Result.Comments[0].Text, Case.Text);
		EXPECT_EQ(Result.Comments[1].Source, Well);
	}
	const FImportResult Cut = ImportText("{\"datas\":[" + Well + ",{\"danmaku_content\":\"a\"");
	EXPECT_EQ(DescribeFaults(Cut), "1/2 the file ends in the middle of this entry\n");
	EXPECT_EQ(ImportText("{\"datas\":[{\"danmaku_mode\":}," + Well + "]}").Report.NumBroken, 1U);
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
	EXPECT_EQ(WriteAnew(ImportText(Written)), Written);
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
		ASSERT_EQ(Result.Comments[Index].Id, Comments[Index].Id) << Index;
		ASSERT_EQ(Result.Comments[Index].Text, Comments[Index].Text);
	}
	int NumPieces = 0;
	EXPECT_FALSE(WriteCommentDocument(Comments, [&NumPieces](std::string_view) { return ++NumPieces < 2; }));
	EXPECT_EQ(NumPieces, 2) << "nothing is handed out after the output stopped";
}

} // namespace Flitmark
