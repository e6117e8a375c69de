#include "Formats/CommentListWriter.h"
#include "Formats/CommentOrigin.h"
#include "ImportKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark::Testing
{
namespace
{

std::string WriteList(const std::vector<FServiceComment>& InComments)
{
	std::string Text;
	WriteCommentList(InComments,
					 [&Text](std::string_view InPiece)
					 {
						 Text += InPiece;
						 return true;
					 });
	return Text;
}

TEST(ListWriter, WritesWhatReadsTheSame)
{
	std::vector<FServiceComment> Comments;
	const auto Add = [&Comments](int64 InTicks, ECommentKind InKind, int32 InSize, uint32 InColor, std::string InText)
	{
		FServiceComment& Comment = Comments.emplace_back();
		Comment.Id = 123'456'789'012 + static_cast<int64>(Comments.size());
		Comment.PostId = 7;
		Comment.PostDate = 1'600'000'000;
		Comment.SpawnTicks = InTicks;
		Comment.Kind = InKind;
		Comment.FontSize = InSize;
		Comment.Color = InColor;
		Comment.Text = std::move(InText);
	};
	Add(0, ECommentKind::Scroll, 24, 0xFFFFFFFF, "plain");
	Add(1, ECommentKind::Top, 24, 0x000000FF, "a tick, black");
	Add(-5'000'000, ECommentKind::Bottom, 24, 0x123456FF, "before the start");
	Add(863'999'999'999, ECommentKind::Scroll, 24, 0xFFFFFFFF, "a day's end");
	Add(1'000'000'000, ECommentKind::Scroll, 24, 0xFFFFFFFF, "\"a\" < b && c > 'd' &amp; ]]>");
	Add(1'230'000'000, ECommentKind::Scroll, 24, 0xFFFFFFFF, "two\nlines\n\n  and four");
	Add(1'230'000'000, ECommentKind::Scroll, 24, 0xFFFFFFFF, "字 😀 \xEF\xBF\xBD\tt");
	for (int32 Size = 1; Size <= 1000; Size += Size < 100 ? 1 : 37)
	{
		Add(2'000'000'000, ECommentKind::Scroll, Size, 0xFFFFFFFF, "size");
	}
	FImportResult Expected;
	Expected.Comments = Comments;
	const FImportResult Read = ImportText(WriteList(Comments));
	EXPECT_EQ(Describe(Read), Describe(Expected));
	EXPECT_EQ(Read.Report.NumRepaired + Read.Report.NumBroken, 0U);
	EXPECT_EQ(Read.Comments.front().Id, 123'456'789'013);
	EXPECT_EQ(Read.Comments.front().PostId, 7);
	EXPECT_EQ(Read.Comments.front().PostDate, 1'600'000'000);
}

TEST(ListWriter, KeepsAListFromBreakingLines)
{
	FServiceComment Comment;
	Comment.Text = "yes/no\n//n";
	const FImportResult Read = ImportText(WriteList({Comment}));
	EXPECT_EQ(Read.Comments.at(0).Text, "yes/\u2060no\n//\u2060n");
}

TEST(ListWriter, LeavesOutWhatAListCannotSay)
{
	std::vector<FServiceComment> Comments(5);
	Comments[0].Kind = ECommentKind::Unknown;
	Comments[1].Kind = ECommentKind::Reverse;
	Comments[2].FontSize = 0;
	Comments[3].Color = 0xFFFFFF00;
	Comments[4].Color = 0xFF000080;
	for (FServiceComment& Comment : Comments)
	{
		Comment.Text = "text";
	}
	const FImportResult Read = ImportText(WriteList(Comments));
	ASSERT_EQ(Read.Comments.size(), 1U);
	EXPECT_EQ(Read.Comments[0].Color, 0xFF0000FFU);
}

TEST(Origin, IsReadFromADocumentsOwnWords)
{
	const struct
	{
		std::string Source;
		std::string Expected;
	} Cases[] = {
		{R"({"danmaku_id":9007199254740993,"post_id":"5","danmaku_post_date":"2020.09.13-12.26.40"})",
		 "9007199254740993 5 1600000000"},
		{R"({"DANMAKU_ID":3,"danmaku_post_date":"soon"})", "3 0 0"},
		{R"({"danmaku_id":3,"danmaku_post_date":1600000000})", "3 0 0"},
		{"7", "0 0 0"},
	};
	for (const auto& Case : Cases)
	{
		FServiceComment Comment;
		Comment.Source = Case.Source;
		ReadOrigin(Comment);
		EXPECT_EQ(std::to_string(Comment.Id) + " " + std::to_string(Comment.PostId) + " " +
					  std::to_string(Comment.PostDate),
				  Case.Expected);
	}
	FServiceComment Foreign;
	Foreign.Id = 4;
	ReadOrigin(Foreign);
	EXPECT_EQ(Foreign.Id, 4);
}

} // namespace
} // namespace Flitmark::Testing
