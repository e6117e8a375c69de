#include "Filtering/KindPolicy.h"

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

TEST(KindPolicy, SettlesEveryKind)
{
	using enum ECommentKind;
	std::vector<FServiceComment> Comments = {
		MakeComment(Scroll, "scroll"),
		MakeComment(Reverse, "reverse"),
		MakeComment(Positioned, R"([0.5,"0.1","1-0",4.5,"text/nmore",0,0])"),
		MakeComment(Top, "top"),
		MakeComment(Positioned, R"([0,0,"1-1",4])"),
		MakeComment(Positioned, "[0,0,1,2,\"cut"),
		MakeComment(Positioned, "plain"),
		MakeComment(Positioned, R"([0,0,"1-1",4,"\u2588\u3000\u2588/n|_|"])"),
		MakeComment(Positioned, R"([0,0,"1-1",4,"\ud83d\udc31"])"),
		MakeComment(Script, "draw()"),
		MakeComment(Unknown, "what"),
		MakeComment(Paid, "Ann (30): {}"),
		MakeComment(Positioned, R"({"x":1,"n":"[words]/n\r","z":{}})"),
		MakeComment(Positioned, R"({"n":7})"),
		MakeComment(Positioned, R"({"n":"cut)"),
		MakeComment(Positioned, R"({"m":"other"})"),
	};
	FServiceComment OfOurs = MakeComment(Unknown, "ours");
	OfOurs.Source = "{}";
	Comments.push_back(OfOurs);
	struct FCase
	{
		FKindPolicy Policy;
		std::string Left;
		FKindCounts Counts;
	};
	const FCase Cases[] = {
		{{true, true, true},
		 "0scroll 0reverse 1text\nmore 1top 1plain 1\U0001F431 1Ann (30): {} 1[words]/n\n 7ours ",
		 {1, 0, 4, 5, 1, 1, 1, 1, 0}},
		{{false, false, false}, "0scroll 1top 7ours ", {0, 1, 0, 10, 0, 1, 1, 0, 1}},
	};
	for (const FCase& Case : Cases)
	{
		std::vector<FServiceComment> Left = Comments;
		const FKindCounts Counts = ApplyKindPolicy(Left, Case.Policy);
		std::string Text;
		for (const FServiceComment& Comment : Left)
		{
			Text += std::to_string(static_cast<int>(Comment.Kind)) + Comment.Text + " ";
		}
		EXPECT_EQ(Text, Case.Left);
		EXPECT_EQ(Counts.NumReverseTurned, Case.Counts.NumReverseTurned);
		EXPECT_EQ(Counts.NumReverseDropped, Case.Counts.NumReverseDropped);
		EXPECT_EQ(Counts.NumPositionedTurned, Case.Counts.NumPositionedTurned);
		EXPECT_EQ(Counts.NumPositionedDropped, Case.Counts.NumPositionedDropped);
		EXPECT_EQ(Counts.NumPaidTurned, Case.Counts.NumPaidTurned);
		EXPECT_EQ(Counts.NumPaidDropped, Case.Counts.NumPaidDropped);
		EXPECT_EQ(Counts.NumDrawingsDropped, Case.Counts.NumDrawingsDropped);
		EXPECT_EQ(Counts.CountDropped(), Comments.size() - Left.size());
	}
}

} // namespace Flitmark
