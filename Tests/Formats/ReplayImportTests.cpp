#include "ImportKit.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

struct FReplayCase
{
	const char* Name;
	const char* Format;
	std::string Json;
	std::string Comments;
	std::string Skipped;
	std::string Faults;
	uint64 NumEmotes = 0;
};

class ReplayImport : public testing::TestWithParam<FReplayCase>
{
};

/** A live-chat line that adds one item, at a time in milliseconds. */
std::string Line(const std::string& InTime, const std::string& InItem)
{
	return R"({"clickTrackingParams":"C","replayChatItemAction":{"actions":[{"addChatItemAction":{"item":)" + InItem +
		   R"(,"clientId":"c"}}],"videoOffsetTimeMsec":")" + InTime + "\"}}\n";
}

std::string Words(const std::string& InRuns, const std::string& InOther = {})
{
	return R"({"liveChatTextMessageRenderer":{"message":{"runs":[)" + InRuns +
		   R"(]},"authorName":{"simpleText":"Ann"})" + InOther + "}}";
}

std::string Action(const std::string& InAction)
{
	return R"({"replayChatItemAction":{"actions":[)" + InAction + R"(],"videoOffsetTimeMsec":"1000"}})" + "\n";
}

const FReplayCase ReplayCases[] = {
	{"LiveChat", "live-chat-json",
	 Line("1500", Words(R"({"text":"a"})")) +
		 Line("2000",
			  Words(R"({"text":"b "},{"emoji":{"emojiId":"U/x","shortcuts":[":_hi:",":hi:"],"isCustomEmoji":true}},)"
					R"({"emoji":{"emojiId":"😀","shortcuts":[":grin:"]}},{"text":"!","bold":true})")) +
		 Line("2500", Words(R"({"emoji":{"emojiId":"U/x","isCustomEmoji":true,"image":{"accessibility":)"
							R"({"accessibilityData":{"label":"wave"}}}}})")),
	 "15000000 s24 FFFFFFFF \"a\"\n20000000 s24 FFFFFFFF \"b :_hi:😀!\"\n25000000 s24 FFFFFFFF \"wave\"\n", "", "", 2},
	{"LiveChatBeforeTheVideo", "live-chat-json",
	 Line("0", Words(R"({"text":"a"})", R"(,"timestampText":{"simpleText":"-1:02:03"})")) +
		 Line("0", Words(R"({"text":"b"})", R"(,"timestampText":{"simpleText":"0:00"})")),
	 "-37230000000 s24 FFFFFFFF \"a\"\n0 s24 FFFFFFFF \"b\"\n", "", ""},
	{"LiveChatPaid", "live-chat-json",
	 Line("1000", R"({"liveChatPaidMessageRenderer":{"authorName":{"simpleText":"Ann"},"purchaseAmountText":)"
				  R"({"simpleText":"€5.00"},"message":{"runs":[{"text":"wow"}]},"bodyBackgroundColor":4280191205}})") +
		 Line("2000", R"({"liveChatPaidMessageRenderer":{"authorName":{"simpleText":"Bob"},"purchaseAmountText":)"
					  R"({"simpleText":"$2"}}})") +
		 Line("3000", R"({"liveChatPaidStickerRenderer":{"authorName":{"simpleText":"Cy"},"purchaseAmountText":)"
					  R"({"simpleText":"¥100"},"backgroundColor":4278239141,"sticker":{"accessibility":)"
					  R"({"accessibilityData":{"label":"a cat"}}}}})"),
	 "10000000 $24 1E88E5FF \"Ann (€5.00): wow\"\n20000000 $24 FFFFFFFF \"Bob ($2)\"\n"
	 "30000000 $24 00BFA5FF \"Cy (¥100): a cat\"\n",
	 "", ""},
	{"LiveChatNotices", "live-chat-json",
	 Line("1", R"({"liveChatMembershipItemRenderer":{"headerSubtext":{"runs":[{"text":"Welcome"}]}}})") +
		 Line("1000", R"({"liveChatMembershipItemRenderer":{"message":{"runs":[{"text":"six months"}]}}})") +
		 Line("1", R"({"liveChatViewerEngagementMessageRenderer":{"message":{"runs":[{"text":"Be nice"}]}}})") +
		 Line("1", R"({"liveChatPlaceholderItemRenderer":{"id":"x"}})") + Line("1", R"({"newRenderer":{}})") +
		 Action(R"({"addLiveChatTickerItemAction":{"item":{}}})") +
		 Action(R"({"clickTrackingParams":"","markChatItemAsDeletedAction":{"targetItemId":"x"}})") +
		 Action(R"({"removeChatItemAction":{}},{"brandNewAction":{}})") +
		 Action(R"({"replaceChatItemAction":{"targetItemId":"x","replacementItem":)" + Words(R"({"text":"held"})") +
				"}}"),
	 "10000000 s24 FFFFFFFF \"six months\"\n10000000 s24 FFFFFFFF \"held\"\n",
	 "1 memberships without a message\n1 notices of the service\n1 placeholders of held messages\n1 other notices\n"
	 "1 repeats of paid messages in the ticker\n2 deletions of messages\n1 other actions\n",
	 ""},
	{"LiveChatSeveralActions", "live-chat-json",
	 Action(R"({"addChatItemAction":{"item":)" + Words(R"({"text":"a"})") +
			R"(}},{"showLiveChatActionPanelAction":{}},)" + R"({"addChatItemAction":{"item":)" + Words("") +
			R"(}},{"addChatItemAction":{"item":)" + Words(R"({"text":"b"})") + "}}"),
	 "10000000 s24 FFFFFFFF \"a\"\n10000000 s24 FFFFFFFF \"b\"\n", "1 polls\n", "1/3 has no text\n"},
	{"LiveChatDamaged", "live-chat-json",
	 Line("1000", Words(R"({"text":"a"})")) + Line("x", Words(R"({"text":"b"})")) +
		 Line("3000", Words(R"({"text":"c)")) + Action("") + Line("4000", Words(R"({"text":"d"})")).substr(0, 120),
	 "10000000 s24 FFFFFFFF \"a\"\n", "",
	 "2/2 has no readable time\n3/3 is damaged: Missing a comma or '}' after an object member\n"
	 "4/4 has no action that could be a comment\n5/5 the file ends in the middle of this entry\n"},
	{"LiveChatTimeBehindTheActions", "live-chat-json",
	 R"({"replayChatItemAction":{"actions":[{"addChatItemAction":{"item":)" + Words(R"({"text":"a"})") +
		 R"(}}]},"videoOffsetTimeMsec":"1500","isLive":true})",
	 "15000000 s24 FFFFFFFF \"a\"\n", "", ""},
	{"OffsetChat", "offset-chat-json",
	 R"({"FileInfo":{"Version":{"Major":1}},"streamer":{"name":"s"},"video":{"title":"t","start":0},"comments":[)"
	 R"({"_id":"u-1","created_at":"2021-11-19T18:16:01Z","content_offset_seconds":12.345,"commenter":{"display_name":"Ann",)"
	 R"("_id":"42","name":"ann"},"message":{"body":"hi Kappa Kappa","bits_spent":0,"fragments":[{"text":"hi ","emoticon":null},)"
	 R"({"text":"Kappa","emoticon":{"emoticon_id":"25"}},{"text":" Kappa","emoticon":{"emoticon_id":"25"}}],)"
	 R"("user_color":"#FF0000"}},{"content_offset_seconds":2,"commenter":null,"message":{"body":null,"user_color":null,)"
	 R"("fragments":[{"text":"a"},{"text":"b"}]}},{"content_offset_seconds":3,"commenter":{"display_name":"Bo"},)"
	 R"("message":{"body":"cheer100 go","bits_spent":100,"emoticons":[{"_id":"1","begin":0,"end":4}]}},)"
	 R"({"content_offset_seconds":4,"message":{"body":""}},{"message":{"body":"x"}}],"embeddedData":null})",
	 "123450000 s24 FF0000FF \"hi Kappa Kappa\"\n20000000 s24 FFFFFFFF \"ab\"\n"
	 "30000000 $24 FFFFFFFF \"Bo (100 bits): cheer100 go\"\n",
	 "", "1/4 has no text\n1/5 has no readable time\n", 3},
	{"Messages", "message-list-json",
	 R"([{"action_type":"add_chat_item","author":{"id":"UC1","images":[{"id":"s"}],"name":"Ann"},"message":"hi :x: :x:",)"
	 R"("emotes":[{"name":":x:","is_custom_emoji":true,"locations":["3-5","7-9"]},{"name":"😀","is_custom_emoji":false}],)"
	 R"("message_type":"text_message","time_in_seconds":12.5,"timestamp":1600000000000000},)"
	 R"({"author":{"name":"Bo"},"message":"thanks","money":{"amount":5.0,"currency":"USD","text":"$5.00"},)"
	 R"("body_background_colour":"#1de9b6ff","message_type":"paid_message","time_in_seconds":20},)"
	 R"({"author":{"name":"Cy"},"message":null,"money":{"amount":2.5,"currency":"EUR"},"time_in_seconds":30},)"
	 R"({"author":{"name":"Di"},"message":null,"message_type":"membership_item","time_in_seconds":40},)"
	 R"({"author":"Ed","message":"red","colour":"#FF0000","time_in_seconds":-3},{"message":"","time_in_seconds":1},)"
	 R"({"message":"x","message_type":"text_message","time_in_seconds":null}])",
	 "125000000 s24 FFFFFFFF \"hi :x: :x:\"\n200000000 $24 1DE9B6FF \"Bo ($5.00): thanks\"\n"
	 "300000000 $24 FFFFFFFF \"Cy (2.5 EUR)\"\n-30000000 s24 FF0000FF \"red\"\n",
	 "1 notices without a message\n", "1/6 has no text\n1/7 has no readable time\n", 2},
	{"MessageLines", "message-list-json",
	 "{\"time_in_seconds\":1,\"message\":\"a\"}\n{\"message\":\"b\",\"time_in_seconds\":\"2.5\"}\n",
	 "10000000 s24 FFFFFFFF \"a\"\n25000000 s24 FFFFFFFF \"b\"\n", "", ""},
	{"ListElements", "list-elements-json",
	 R"({"elems":[{"id":"20000000001","progress":1500,"mode":4,"fontsize":18,"color":255,"midHash":"ab","content":"a/nb",)"
	 R"("ctime":"1600000000","idStr":"20000000001","attr":[1]},{"mode":1,"fontsize":25,"content":"c"},)"
	 R"({"progress":2000,"mode":7,"fontsize":36,"color":16777215,"content":"[0,0,\"1-1\",4.5,\"d\"]"},{"progress":3000},)"
	 R"({"mid_hash":"x","font_size":50,"progress":"4000","mode":0,"color":"65280","content":"e"}],"state":0})",
	 "15000000 B17 0000FFFF \"a\nb\"\n0 s24 000000FF \"c\"\n20000000 P35 FFFFFFFF \"[0,0,\"1-1\",4.5,\"d\"]\"\n"
	 "40000000 s48 00FF00FF \"e\"\n",
	 "", "1/4 has no text\n"},
	{"BodiesInSeconds", "body-json",
	 R"({"danmakus":[{"time":1.5,"mode":1,"size":25,"color":16711680,"body":"a"},{"body":"b","time":"83","mode":5,"size":50,)"
	 R"("color":"#00FF00"},{"body":"c","color":1,"mode":4},{"time":3,"body":""}]})",
	 "15000000 s24 FF0000FF \"a\"\n830000000 T48 00FF00FF \"b\"\n", "", "1/3 has no readable time\n1/4 has no text\n"},
	{"BodiesInMilliseconds", "body-json",
	 R"([{"time":1500,"mode":1,"color":0,"body":"a"},{"time":83211,"mode":1,"color":0,"body":"b"}])",
	 "15000000 s24 000000FF \"a\"\n832110000 s24 000000FF \"b\"\n", "", ""},
	{"BodiesWithPositions", "body-json",
	 R"([{"time":1600000000,"position":1500,"mode":1,"color":255,"body":"a"},{"position":2000,"time":1,"size":25,"body":"b"}])",
	 "15000000 s24 0000FFFF \"a\"\n20000000 s24 FFFFFFFF \"b\"\n", "", ""},
	{"Texts", "text-json",
	 R"([{"stime":1500,"mode":1,"size":25,"color":16777215,"text":"a/nb","dbid":7},{"text":"c","stime":4000,"mode":5},)"
	 R"({"text":"d"}])",
	 "15000000 s24 FFFFFFFF \"a\nb\"\n40000000 T24 FFFFFFFF \"c\"\n", "", "1/3 has no readable time\n"},
	{"TextsInSeconds", "text-json", R"([{"stime":1.5,"text":"a"},{"stime":83,"text":"b"}])",
	 "15000000 s24 FFFFFFFF \"a\"\n830000000 s24 FFFFFFFF \"b\"\n", "", ""},
};

TEST_P(ReplayImport, GivesEachEntryOrItsReason)
{
	const FReplayCase& Case = GetParam();
	const FImportResult Result = ImportText(Case.Json);
	EXPECT_EQ(ToText(Result.Report.Format), ToText(FindCommentFormat(Case.Format)));
	EXPECT_EQ(Describe(Result), Case.Comments);
	EXPECT_EQ(DescribeSkipped(Result), Case.Skipped);
	EXPECT_EQ(DescribeFaults(Result), Case.Faults);
	EXPECT_EQ(Result.Report.NumEmotes, Case.NumEmotes);
}

INSTANTIATE_TEST_SUITE_P(, ReplayImport, testing::ValuesIn(ReplayCases),
						 [](const auto& InInfo) { return InInfo.param.Name; });

} // namespace

TEST(ReplayOrigin, IsKept)
{
	EXPECT_EQ(
		DescribeOrigin(ImportText(Line(
			"1", Words(R"({"text":"a"})", R"(,"authorExternalChannelId":"ab","timestampUsec":"1600000000123456")")))),
		"0 0 1294271946 \"Ann\" 1600000000\n");
	EXPECT_EQ(DescribeOrigin(ImportText(
				  R"([{"_id":"5","content_id":"9","created_at":"2021-11-19T18:16:01Z","content_offset_seconds":1,)"
				  R"("commenter":{"_id":"42","name":"mo"},"message":{"body":"x"}}])")),
			  "5 9 42 \"mo\" 1637345761\n");
	EXPECT_EQ(DescribeOrigin(
				  ImportText(R"([{"time_in_seconds":1,"message":"x","message_id":"7","timestamp":1600000000000123,)"
							 R"("author":{"id":"ab","name":"mo","display_name":"Mo"}}])")),
			  "7 0 1294271946 \"Mo\" 1600000000\n");
	EXPECT_EQ(DescribeOrigin(ImportText(
				  R"([{"idStr":"7","progress":1,"content":"x","midHash":"ab","ctime":"1600000000","pool":1}])")),
			  "7 1 1294271946 \"\" 1600000000\n");
	EXPECT_EQ(
		DescribeOrigin(ImportText(
			R"([{"danmakuId":7,"userId":"ab","userName":"Mo","createTime":1600000000123,"time":1,"mode":1,"body":"x"}])")),
		"7 0 1294271946 \"Mo\" 1600000000\n");
	EXPECT_EQ(DescribeOrigin(ImportText(R"([{"dbid":7,"hash":"ab","date":1600000000,"stime":1,"text":"x"}])")),
			  "7 0 1294271946 \"\" 1600000000\n");
}

/** Neither beyond any video nor fractional: only their number gives it away. */
TEST(ReplayFile, TimesThatWouldBeTooDenseAreSeconds)
{
	std::string Json = "[";
	for (int Second = 0; Second <= 5000; ++Second)
	{
		Json += "{\"stime\":" + std::to_string(Second) + ",\"text\":\"x\"},";
	}
	Json.back() = ']';
	EXPECT_EQ(ImportText(Json).Comments.back().SpawnTicks, 50'000'000'000);
}

TEST(ReplayFile, HugeStringsAroundCommentsDoNoHarm)
{
	const std::string Entry = R"([{"content_offset_seconds":1,"message":{"body":"a"}}])";
	for (const std::size_t Size : {65'535u, 65'536u, 200'001u})
	{
		const std::string Picture = std::string(Size, 'A') + R"(\"\\\")" + std::string(70'000, '\\') + "{";
		const std::string Json = R"({"first":{"content_offset_seconds":0,"message":{"body":"x"}},"picture":")" +
								 Picture + R"(","comments":)" + Entry + R"(,"other":")" + Picture + "\"}";
		for (const std::size_t PieceSize : {std::size_t{1000}, Json.size()})
		{
			FMemorySource Source(Json, PieceSize);
			FImportResult Result;
			std::string Error;
			ASSERT_TRUE(ImportComments(Source, Result, Error)) << Error;
			EXPECT_EQ(Describe(Result), "10000000 s24 FFFFFFFF \"a\"\n") << Size;
			EXPECT_TRUE(Result.Report.Warnings.empty()) << Size;
		}
	}
}

TEST(ReplayFile, OneThatIsTooDeepCostsOnlyItself)
{
	const std::string Deep = Line("1000", Words(R"({"text":"x","deep":)" + std::string(1000, '[') + "}"));
	const FImportResult Result =
		ImportText(Line("1000", Words(R"({"text":"a"})")) + Deep + Line("2000", Words(R"({"text":"b"})")));
	EXPECT_EQ(Describe(Result), "10000000 s24 FFFFFFFF \"a\"\n20000000 s24 FFFFFFFF \"b\"\n");
	EXPECT_EQ(DescribeFaults(Result), "2/2 is damaged: it is nested too deeply\n");
}

} // namespace Flitmark
