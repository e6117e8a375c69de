#include "ImportKit.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

struct FJsonCase
{
	const char* Name;
	const char* Format;
	std::string Json;
	std::string Comments;
	std::string Faults;
};

class JsonImport : public testing::TestWithParam<FJsonCase>
{
};

/** A valid entry to surround a broken one. */
const std::string Well = R"({"p":"2,5,255,u","m":"well"})";
const std::string WellRead = "20000000 T24 0000FFFF \"well\"\n";

const FJsonCase JsonCases[] = {
	{"Parameters", "parameters-json",
	 R"({"count":3,"comments":[{"cid":1,"p":"1.5,1,16777215,[x]9","m":"a\nb"},{"m":"/n","p":"2,4,255"},{"p":"3","m":"c"}]})",
	 "15000000 s24 FFFFFFFF \"a\nb\"\n20000000 B24 0000FFFF \"/n\"\n30000000 s24 FFFFFFFF \"c\"\n", ""},
	{"ParametersOfLists", "parameters-json", R"([{"p":"1,4,18,255,1600000000,0,ab,7","m":"a"}])",
	 "10000000 B17 0000FFFF \"a\"\n", ""},
	{"OlderParameters", "parameters-json", R"([{"c":"1.25,255,4,18,7,1600000000","m":"a"},{"c":"2,0,5","m":"b"}])",
	 "12500000 B17 0000FFFF \"a\"\n20000000 T24 000000FF \"b\"\n", ""},
	{"Lines", "parameters-json", Well + "\n" + Well + "\r\n", WellRead + WellRead, ""},
	{"Wrapped", "parameters-json", "callback({\"data\":{\"comments\":[" + Well + "]}});", WellRead, ""},
	{"Rows", "rows-json",
	 R"({"code":0,"data":[[1.5,0,16711680,"ann","a"],[2,1,"#00FF00","12","b"],["3",2,"x",null,"c"],[4,"top",0,"","d",9],)"
	 R"([5,6,0,"","e"],[5,4,0,"","e"]]})",
	 "15000000 s24 FF0000FF \"a\"\n20000000 T24 00FF00FF \"b\"\n30000000 B24 FFFFFFFF \"c\"\n"
	 "40000000 T24 000000FF \"d\"\n50000000 U24 000000FF \"e\"\n",
	 ""},
	{"RowsOfObjects", "rows-json",
	 R"([[1,7,255,"u","{\"n\":\"a\",\"w\":{}}"],[2,7,255,"u",{"w":[1,{"n":"no"}],"n":"[b]\"","z":{"n":"no"}},3],)"
	 R"([3,0,255,{"n":"no"},{"n":"c"}],[4,8,255,"u","draw(1);"],[5,9,255,"u","{}"],[6,42,255,"u","d"],[7,7,255,"u",{"x":"e"}],)"
	 R"([8,1,255,"u","f",{"012345678901234567890123456789abc":"no","":"no"}]])",
	 "10000000 P24 0000FFFF \"{\"n\":\"a\",\"w\":{}}\"\n20000000 P24 0000FFFF \"{\"n\":\"[b]\\\"\"}\"\n"
	 "30000000 s24 0000FFFF \"c\"\n40000000 X24 0000FFFF \"draw(1);\"\n50000000 X24 0000FFFF \"{}\"\n"
	 "60000000 U24 0000FFFF \"d\"\n80000000 T24 0000FFFF \"f\"\n",
	 "1/7 has no text\n"},
	{"RowsAlone", "rows-json", "[[1,0,255,\"u\",\"a\"]]", "10000000 s24 0000FFFF \"a\"\n", ""},
	{"BrokenRows", "rows-json",
	 "{\"data\":[[1,0,255,\"u\",\"a\"],\n[1,0],\n[\"x\",0,0,\"u\",\"b\"],\n[1,0,255,\"u\",\"c\",\n[2,0,255,\"u\",\"d\"]"
	 ","
	 "\n\"stray\",[],[3,0,255,\"u\",\"e\"]]}",
	 "10000000 s24 0000FFFF \"a\"\n10000000 s24 0000FFFF \"c\"\n20000000 s24 0000FFFF \"d\"\n"
	 "30000000 s24 0000FFFF \"e\"\n",
	 "2/2 has no text\n3/3 has no readable time\n"
	 "4/4 is damaged: another list begins inside it; everything before the damage was read\n"
	 "6/6 is a bare value, not a comment\n6/7 has no readable time\n"},
	{"ChatThreads", "chat-json",
	 R"({"data":{"threads":[{"id":"5","fork":"main","comments":[{"id":"900","no":4,"vposMs":1234,"body":"a",)"
	 R"("commands":["184","ue","small","cyan"],"userId":"abc","postedAt":"2021-11-19T18:16:01+09:00","likeCount":0}]},)"
	 R"({"id":"6","comments":[]},{"id":"7","comments":[{"vposMs":2000,"body":"b","commands":[]}]}]}})",
	 "12340000 T15 00FFFFFF \"a\"\n20000000 s24 FFFFFFFF \"b\"\n", ""},
	{"ChatList", "chat-json",
	 R"([{"id":3,"vpos":150,"content":"a","date":1600000000,"mail":["shita","#123456"],"user_id":"x"},)"
	 R"({"vpos":"250","content":"b","mail":"ue red"}])",
	 "15000000 B24 123456FF \"a\"\n25000000 T24 FF0000FF \"b\"\n", ""},
	{"ChatLines", "chat-json",
	 "{\"ping\":{\"content\":\"rs:0\"}}\n{\"thread\":{\"thread\":\"5\"}}\n"
	 "{\"chat\":{\"thread\":\"5\",\"no\":1,\"vpos\":100,\"mail\":\"ue\",\"content\":\"a\"}}\n"
	 "{\"chat\":{\"thread\":\"5\",\"no\":2,\"vpos\":200,\"con\n{\"chat\":{\"vpos\":300,\"content\":\"b\"}}\n",
	 "10000000 T24 FFFFFFFF \"a\"\n30000000 s24 FFFFFFFF \"b\"\n",
	 "4/2 is damaged: a string in it is not valid JSON\n"},
	{"ChatObjects", "chat-json",
	 R"([{"ping":{"content":"rs:0"}},{"chat":{"vpos":100,"content":"a"}},{"leaf":{"count":1}},{"chat":{"vpos":7,"deleted":1}}])",
	 "10000000 s24 FFFFFFFF \"a\"\n", ""},
	{"Objects", "objects-json",
	 R"({"danmakus":[{"danmakuId":8,"userId":3,"position":1500,"mode":4,"textColor":255,"textSize":50,"content":"a",)"
	 R"("createTime":1600000000123},{"content":"b","position":2000.5},{"user":{"content":"no"},"position":"1","content":"c"}]})",
	 "15000000 B48 0000FFFF \"a\"\n20005000 s24 FFFFFFFF \"b\"\n10000 s24 FFFFFFFF \"c\"\n", ""},
	{"NumbersAsTexts", "objects-json", R"([{"position":1e3,"content":"x"},{"position":5,"content":666}])",
	 "10000000 s24 FFFFFFFF \"x\"\n50000 s24 FFFFFFFF \"666\"\n", ""},
	{"LooseJson", "parameters-json", "[" + Well + ", /* x */ {\"p\":\"1\",\"m\":\"a\",},]",
	 WellRead + "10000000 s24 FFFFFFFF \"a\"\n", ""},
	{"ControlsAndSurrogatesInTexts", "parameters-json",
	 "[" + Well + ",{\"p\":\"1\",\"m\":\"a\nb\tc\x01 \\ud83d\\ude00 \\ud83d \\udc00 \\q \\u12\"}," + Well + "]",
	 WellRead + "10000000 s24 FFFFFFFF \"a\nb\tc 😀 \uFFFD \uFFFD \\q \\u12\"\n" + WellRead,
	 "1/2 its text contains characters that JSON does not allow; they were repaired\n"},
	{"WrongBytesAndNuls", "parameters-json",
	 std::string("[{\"p\":\"1\",\"m\":\"a\xFF") + std::string(1, '\0') + "b\"}," + std::string(2, '\0') + Well + "]",
	 "10000000 s24 FFFFFFFF \"a\uFFFDb\"\n" + WellRead,
	 "1/1 its text contains characters that JSON does not allow; they were repaired\n"},
	{"MissingQuote", "parameters-json", "[" + Well + ",\n{\"p\":\"1,\"m\":\"a\"},\n" + Well + "]", WellRead + WellRead,
	 "2/2 is damaged: Missing a comma or '}' after an object member\n"},
	{"MissingBrace", "parameters-json", "[{\"p\":\"1\",\"m\":\"a\",\n" + Well + ",{\"p\":\"1\",\"m\":\"b\"]",
	 "10000000 s24 FFFFFFFF \"a\"\n" + WellRead + "10000000 s24 FFFFFFFF \"b\"\n",
	 "1/1 is damaged: Missing a name for object member; everything before the damage was read\n"
	 "2/3 is damaged: Missing a comma or '}' after an object member; everything before the damage was read\n"},
	{"BracketsTooMany", "parameters-json", "{\"comments\":[" + Well + "}," + Well + "]," + Well + "]}",
	 WellRead + WellRead + WellRead, ""},
	{"OtherElements", "parameters-json", "[" + Well + ",null,1,\"x\",{}," + Well + "]", WellRead + WellRead,
	 "1/2 is a bare value, not a comment\n1/3 has no readable time\n"},
	{"TooDeep", "parameters-json", "[" + Well + ",{\"p\":\"1\",\"x\":" + std::string(100000, '[') + "," + Well + "]",
	 WellRead + WellRead, "1/2 is damaged: it is nested too deeply\n"},
	{"CutInText", "parameters-json", "[" + Well + ",\n{\"p\":\"1\",\"m\":\"abc", WellRead,
	 "2/2 the file ends in the middle of this entry\n"},
	{"CutBehindText", "parameters-json", "[" + Well + ",\n{\"p\":\"1\",\"m\":\"abc\"", WellRead,
	 "2/2 the file ends in the middle of this entry\n"},
};

TEST_P(JsonImport, ReadsWhatCanBeRead)
{
	const FJsonCase& Case = GetParam();
	const FImportResult Result = ImportText(Case.Json);
	EXPECT_EQ(Result.Report.Format, FindCommentFormat(Case.Format));
	EXPECT_EQ(Describe(Result), Case.Comments);
	EXPECT_EQ(DescribeFaults(Result), Case.Faults);
}

INSTANTIATE_TEST_SUITE_P(, JsonImport, testing::ValuesIn(JsonCases),
						 [](const auto& InInfo) { return InInfo.param.Name; });

} // namespace

TEST(JsonOrigin, IsKept)
{
	EXPECT_EQ(
		DescribeOrigin(ImportText(R"([{"cid":"5","p":"1,1,0,12","m":"a"},{"c":"1,0,1,25,ab,1600000000","m":"b"}])")),
		"5 0 12 \"\" 0\n0 0 1294271946 \"\" 1600000000\n");
	EXPECT_EQ(DescribeOrigin(ImportText(R"([[1,0,0,"ab","x"]])")), "0 0 1294271946 \"ab\" 0\n");
	EXPECT_EQ(
		DescribeOrigin(ImportText(
			R"([{"chat":{"thread":"5","no":4,"id":"9","vpos":1,"user_id":"ab","name":"Mo","date":1600000000,"content":"x"}},)"
			R"({"id":"9","vposMs":1,"userId":7,"postedAt":"2021-11-19T18:16:01+09:00","body":"x"}])")),
		"4 5 1294271946 \"Mo\" 1600000000\n9 0 7 \"\" 1637313361\n");
	EXPECT_EQ(DescribeOrigin(ImportText(
				  R"([{"danmakuId":8,"userId":"ab","position":1,"content":"a","createTime":1600000000123}])")),
			  "8 0 1294271946 \"\" 1600000000\n");
}

TEST(JsonFile, EntriesFarApartAreReadInSmallPieces)
{
	std::string Json = "{\"comments\":[\n";
	for (int Index = 0; Index < 20000; ++Index)
	{
		Json += Well + ",\n";
	}
	Json += "{\"p\":\"\",\"m\":\"x\"}" + std::string(700000, ' ') + "," + Well + "]}";
	for (const std::size_t PieceSize : {std::size_t{7}, Json.size()})
	{
		FMemorySource Source(Json, PieceSize);
		FImportResult Result;
		std::string Error;
		ASSERT_TRUE(ImportComments(Source, Result, Error));
		EXPECT_EQ(Result.Report.NumRead, 20001U);
		EXPECT_EQ(DescribeFaults(Result), "20002/20001 has no readable time\n");
	}
}

TEST(JsonFile, AnEarlyEndIsTold)
{
	EXPECT_EQ(ImportText("[" + Well + "]").Report.Warnings.size(), 0U);
	EXPECT_EQ(ImportText("[" + Well + ",").Report.Warnings.size(), 1U);
}

} // namespace Flitmark
