#include "ImportKit.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

struct FXmlCase
{
	const char* Name;
	std::string Xml;
	std::string Comments;
	std::string Faults;
};

class ListXml : public testing::TestWithParam<FXmlCase>
{
};

/** A valid entry to follow a broken one. */
const std::string Well = R"(<d p="2,1,25,255">next</d>)";
const std::string WellRead = "20000000 s24 0000FFFF \"next\"\n";

const FXmlCase ListCases[] = {
	{"AllModes",
	 R"(<i><d p="1,1,25,0">a</d><d p="1,2,25,0">b</d><d p="1,3,25,0">c</d><d p="1,4,25,0">d</d><d p="1,5,25,0">e</d>)"
	 R"(<d p="1,6,25,0">f</d><d p="1,7,25,0">["0","0","1","2","g/n"]</d><d p="1,8,25,0">h/n</d><d p="1,9,25,0">i</d>)"
	 R"(<d p="1,42,25,0">j</d></i>)",
	 "10000000 s24 000000FF \"a\"\n10000000 s24 000000FF \"b\"\n10000000 s24 000000FF \"c\"\n"
	 "10000000 B24 000000FF \"d\"\n10000000 T24 000000FF \"e\"\n10000000 R24 000000FF \"f\"\n"
	 "10000000 P24 000000FF \"[\"0\",\"0\",\"1\",\"2\",\"g/n\"]\"\n10000000 X24 000000FF \"h/n\"\n"
	 "10000000 X24 000000FF \"i\"\n10000000 U24 000000FF \"j\"\n",
	 ""},
	{"SizesAndColors",
	 R"(<d p="0.1234567,1,12,16711680">a</d><d p="1,1,64,#00ff00">b</d><d p="1,1,0,-1">c</d><d p="1,1,x,y">d</d>)",
	 "1234567 s12 FF0000FF \"a\"\n10000000 s61 00FF00FF \"b\"\n10000000 s24 FFFFFFFF \"c\"\n"
	 "10000000 s24 FFFFFFFF \"d\"\n",
	 ""},
	{"MissingTrailingFields", R"(<d p="3">a</d><d p="3,">b</d><d p=" 3.5 , 5 ">c</d>)",
	 "30000000 s24 FFFFFFFF \"a\"\n30000000 s24 FFFFFFFF \"b\"\n35000000 T24 FFFFFFFF \"c\"\n", ""},
	{"IdFirst", R"(<d p="20123456789,0,1500,4,18,255,1600000000,0,abc">x</d><d p="9999999.5,1">y</d>)",
	 "15000000 B17 0000FFFF \"x\"\n99999995000000 s24 FFFFFFFF \"y\"\n", ""},
	{"LineBreaks", "<d p=\"1,1\">a/nb\r\nc\rd\n</d>", "10000000 s24 FFFFFFFF \"a\nb\nc\nd\n\"\n", ""},
	{"EntitiesAndSections",
	 "<d p='1,1'>&lt;&#65;&#x42;&amp;amp;&quot;&apos;&unknown;&</d><d p=\"2&#44;5\">a<![CDATA[<b> &amp; </d>]]>c</d>",
	 "10000000 s24 FFFFFFFF \"<AB&amp;\"'&unknown;&\"\n20000000 T24 FFFFFFFF \"a<b> &amp; </d>c\"\n", ""},
	{"RawAnglesAreText", "<d p=\"1\">1 < 2 <b>x</b> </dd> a > b</d>" + Well,
	 "10000000 s24 FFFFFFFF \"1 < 2 <b>x</b> </dd> a > b\"\n" + WellRead, ""},
	{"ForbiddenCharactersGo",
	 std::string("<d p=\"1\">a\x01\x0B") + std::string(1, '\0') + "\x7F&#8;&#0;b\xEF\xBF\xBF</d>",
	 "10000000 s24 FFFFFFFF \"ab\"\n", ""},
	{"WrongBytesAreReplaced", "<d p=\"1\">a\xFF\xC3(\xED\xA0\x80&#xD800;&#x110000;b</d>",
	 "10000000 s24 FFFFFFFF \"a\uFFFD\uFFFD(\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDb\"\n", ""},
	{"OddTags", "<d  user = \"7\"\n p = '1,5' >a</d ><d p=2,4>b</d><data p=\"1\">no</data><d\tp=\"3\">c</d>",
	 "10000000 T24 FFFFFFFF \"a\"\n20000000 B24 FFFFFFFF \"b\"\n30000000 s24 FFFFFFFF \"c\"\n", ""},
	{"AnyDeclaration", "\xEF\xBB\xBF<?xml version=\"1.1\" encoding=\"utf-8\"?>\n<!DOCTYPE i>\n<i>" + Well + "</i>",
	 WellRead, ""},
	{"CommentsAreNoEntries", "<i><!-- <d p=\"1\">no</d> -->" + Well + "<!-- open" + Well, WellRead + WellRead, ""},
	{"NoTime", "<i>\n<d p=\"x,1\">a</d>\n<d>b</d>\n<d p=\"nan\">c</d><d p=\"1e30\">d</d>" + Well, WellRead,
	 "2/1 has no readable time at the start of its attribute \"p\"\n"
	 "3/2 has no readable time at the start of its attribute \"p\"\n"
	 "4/3 has no readable time at the start of its attribute \"p\"\n"
	 "4/4 has no readable time at the start of its attribute \"p\"\n"},
	{"NoText", "<d p=\"1\"></d>\n<d p=\"1\"/>\n<d p=\"1\">\x02</d>" + Well, WellRead,
	 "1/1 has no text\n2/2 has no text\n3/3 has no text\n"},
	{"MissingQuote", "<d p=\"1,5>a</d>" + Well + "<d p='3\">b'</d>" + Well,
	 "10000000 T24 FFFFFFFF \"a\"\n" + WellRead + WellRead,
	 "1/3 has no readable time at the start of its attribute \"p\"\n"},
	{"MissingEndTag", "<i><d p=\"1\">a \n" + Well + "<d p=\"1\">b\n</i>",
	 "10000000 s24 FFFFFFFF \"a\"\n" + WellRead + "10000000 s24 FFFFFFFF \"b\"\n",
	 "1/1 its end tag is missing; it was read up to the next element\n"
	 "2/3 its end tag is missing; it was read up to the next element\n"},
	{"BrokenTag", "<i><d p=\"1\" a</d>\n" + Well, WellRead, "1/1 has no text\n"},
	{"OpenSection", "<d p=\"1\">a<![CDATA[b</d>" + Well, "10000000 s24 FFFFFFFF \"a<![CDATA[b\"\n" + WellRead, ""},
	{"CutInText", "<i>" + Well + "\n<d p=\"3\">abc", WellRead, "2/2 has no end\n"},
	{"CutInTag", "<i>" + Well + "\n\n<d p=\"3,", WellRead, "3/2 has no end\n"},
	{"CutInEndTag", "<i>" + Well + "\n\n<d p=\"3\">abc</d", WellRead, "3/2 has no end\n"},
	{"Empty", "<?xml version=\"1.0\"?><i></i>", "", ""},
};

TEST_P(ListXml, ReadsWhatCanBeRead)
{
	const FXmlCase& Case = GetParam();
	const FImportResult Result = ImportText(Case.Xml);
	EXPECT_EQ(Result.Report.Format, FindCommentFormat("list-xml"));
	EXPECT_EQ(Describe(Result), Case.Comments);
	EXPECT_EQ(DescribeFaults(Result), Case.Faults);
}

INSTANTIATE_TEST_SUITE_P(, ListXml, testing::ValuesIn(ListCases), [](const auto& InInfo) { return InInfo.param.Name; });

} // namespace

TEST(ListXmlOrigin, IsKept)
{
	const FImportResult Result = ImportText("<i><d p=\"1,1,25,0,1600000000,2,a1b2,77,9\">a</d>"
											"<d p=\"20123456789,0,1500,4,18,255,1600000000123,1,12345678\">b</d></i>");
	EXPECT_EQ(DescribeOrigin(Result), "77 2 3366437079 \"\" 1600000000\n20123456789 1 178826189 \"\" 1600000000\n");
}

TEST(ListXmlLive, TellsWhatBelongsToAShow)
{
	const FImportResult Result = ImportText(R"(<?xml version="1.0"?>
<i><chatserver>chat.example</chatserver><state>0</state><style version="1"><th user-agent="x">user</th></style>
<d p="1.5,1,25,255,1700000000123,0,42,0" user="A &amp; B" raw="[1]">hi</d>
<gift ts="2" user="Mo" giftname="rose" giftcount="3"/>
<gift ts="3" user="Mo" giftname="rose" giftcount="1"></gift>
<sc ts="4.5" user="Zoë" uid="42" price="30" time="60">well &lt;done&gt;</sc>
<sc user="No" price="5">timeless</sc>
<sc ts="5" user="Mute" price="50"/>
<sc ts="6" price="1.5">nameless</sc><sc ts="7"/>
<guard ts="8" user="Mo" level="3" count="1"/><enter ts="9" user="Mo">came</enter>
<d p="10" user="Cy">open
<sc ts="11" price="2">open, too
<d p="12">end</d></i>)");
	EXPECT_EQ(Describe(Result), "15000000 s24 0000FFFF \"hi\"\n45000000 $24 FFFFFFFF \"Zoë (30): well <done>\"\n"
								"50000000 $24 FFFFFFFF \"Mute (50)\"\n60000000 $24 FFFFFFFF \"(1.5): nameless\"\n"
								"100000000 s24 FFFFFFFF \"open\"\n110000000 $24 FFFFFFFF \"(2): open, too\"\n"
								"120000000 s24 FFFFFFFF \"end\"\n");
	EXPECT_EQ(DescribeSkipped(Result), "2 gifts\n1 memberships\n1 <enter> elements\n");
	EXPECT_EQ(DescribeFaults(Result), "7/5 has no readable time in its attribute \"ts\"\n9/8 has no text\n"
									  "11/11 its end tag is missing; it was read up to the next element\n"
									  "12/12 its end tag is missing; it was read up to the next element\n");
	// A paid comment's sender is the same as in the list's comments.
	ASSERT_EQ(Result.Comments.size(), 7U);
	EXPECT_EQ(Result.Comments[0].UserName, "A & B");
	EXPECT_EQ(Result.Comments[1].UserName, "Zoë");
	EXPECT_EQ(Result.Comments[0].UserId, Result.Comments[1].UserId);
	EXPECT_NE(Result.Comments[0].UserId, 0);
}

/** A file may invent any number of element kinds; the report stays short, and its total correct. */
TEST(ListXmlLive, ManySortsBecomeOne)
{
	std::string Xml = "<i>" + Well;
	for (int Index = 0; Index < 100; ++Index)
	{
		Xml += "<e" + std::to_string(Index) + " ts=\"1\"/>";
	}
	const FImportResult Result = ImportText(Xml + "</i>");
	ASSERT_EQ(Result.Report.Skipped.size(), FImportReport::MaxSkippedSorts);
	EXPECT_EQ(Result.Report.Skipped.front().What, "<e0> elements");
	EXPECT_EQ(Result.Report.Skipped.back().What, "others");
	EXPECT_EQ(Result.Report.CountSkipped(), 100U);
}

TEST(ListXmlFile, LinesAndIndicesHoldFarIntoAFile)
{
	std::string Xml = "<i>\n";
	for (int Index = 0; Index < 20000; ++Index)
	{
		Xml += Well + "\n";
	}
	Xml += "<d p=\"\">x</d>\n" + std::string(600000, ' ') + "\n<d p=\"\">y</d></i>";
	for (const std::size_t PieceSize : {std::size_t{7}, std::size_t{4096}, Xml.size()})
	{
		FMemorySource Source(Xml, PieceSize);
		FImportResult Result;
		std::string Error;
		ASSERT_TRUE(ImportComments(Source, Result, Error));
		EXPECT_EQ(Result.Report.NumRead, 20000U);
		ASSERT_EQ(Result.Report.Faults.size(), 2U);
		EXPECT_EQ(Result.Report.Faults[0].Line, 20002U);
		EXPECT_EQ(Result.Report.Faults[0].Index, 20001U);
		EXPECT_EQ(Result.Report.Faults[1].Line, 20004U);
	}
}

TEST(ListXmlFile, EntriesBeyondAllMeasureDoNotHideOthers)
{
	const std::string Long(6U << 20, 'x');
	const FImportResult Result = ImportText("<i>" + Well + "<d p=\"1\">" + Long + "</d>" + Well + "<d p=\"1\">" +
											Long.substr(0, 1U << 20) + "</d></i>");
	EXPECT_EQ(Result.Report.NumRead, 3U);
	EXPECT_EQ(Result.Report.NumBroken, 1U);
	EXPECT_EQ(Result.Comments.back().Text.size(), 1U << 20);
}

TEST(ListXmlFile, AnEarlyEndIsTold)
{
	EXPECT_EQ(ImportText(Well + Well).Report.Warnings.size(), 0U);
	EXPECT_EQ(ImportText("<i>" + Well + "</i>\n").Report.Warnings.size(), 0U);
	EXPECT_EQ(ImportText("<i>" + Well + "\n").Report.Warnings.size(), 1U);
}

TEST(ListXmlFile, TellsOnlyTheFirstFaults)
{
	std::string Xml;
	for (int Index = 0; Index < 100; ++Index)
	{
		Xml += "<d p=\"1\"></d>\n";
	}
	const FImportResult Result = ImportText(Xml);
	EXPECT_EQ(Result.Report.NumBroken, 100U);
	EXPECT_EQ(Result.Report.Faults.size(), FImportReport::MaxFaults);
	EXPECT_EQ(Result.Report.Faults.back().Line, FImportReport::MaxFaults);
}

TEST(ChatXml, IsRead)
{
	const FImportResult Result = ImportText(R"(<?xml version="1.0"?><packet><thread thread="12" last_res="3"/>
<chat thread="12" no="1" vpos="150" date="1600000000" mail="184 ue big red" user_id="abc">top</chat>
<chat thread="12" no="2" vpos="-20" mail="shita small #0080FF" user_id="42">bottom &amp; &quot;co&quot;</chat>
<chat vpos="300" mail="naka medium madyellow unknown">scroll/n
two</chat>
<chat vpos="300.5" mail="black2&#32;UE">plain</chat>
<chat mail="ue">timeless</chat>
<chat thread="12" no="9" vpos="10" deleted="1"/>
<global_num_res thread="12"/></packet>)");
	EXPECT_EQ(Result.Report.Format, FindCommentFormat("chat-xml"));
	EXPECT_EQ(Describe(Result), "15000000 T39 FF0000FF \"top\"\n-2000000 B15 0080FFFF \"bottom & \"co\"\"\n"
								"30000000 s24 999900FF \"scroll/n\ntwo\"\n30050000 T24 666666FF \"plain\"\n");
	EXPECT_EQ(DescribeOrigin(Result), "1 12 440920331 \"\" 1600000000\n2 12 42 \"\" 0\n0 0 0 \"\" 0\n0 0 0 \"\" 0\n");
	EXPECT_EQ(DescribeFaults(Result), "7/5 has no readable \"vpos\"\n");
	EXPECT_EQ(DescribeSkipped(Result), "1 deleted by the service\n");
}

/** Both ways to write a chat share the rules for commands. */
TEST(ChatCommands, AreUnderstood)
{
	const struct
	{
		const char* Mail;
		const char* Look;
	} Cases[] = {
		{"UE BIG Red", "T39 FF0000FF"},
		{"shita　small　cyan", "B15 00FFFFFF"},
		{"　 　ue　", "T24 FFFFFFFF"},
		{"niconicowhite", "s24 CCCC99FF"},
		{"NicoNicoWhite red", "s24 CCCC99FF"},
		{"ue shita naka", "T24 FFFFFFFF"},
		{"naka ue", "s24 FFFFFFFF"},
		{"small big", "s15 FFFFFFFF"},
		{"medium big", "s24 FFFFFFFF"},
		{"white red", "s24 FFFFFFFF"},
		{"#00f red #ffffff", "s24 0000FFFF"},
		{"#xyz blue", "s24 0000FFFF"},
		{"184 device:x _live ue2", "s24 FFFFFFFF"},
	};
	for (const auto& [Mail, Look] : Cases)
	{
		const std::string Expected = "10000000 " + std::string(Look) + " \"x\"\n";
		EXPECT_EQ(
			Describe(ImportText("<packet><chat vpos=\"100\" mail=\"" + std::string(Mail) + "\">x</chat></packet>")),
			Expected)
			<< Mail;
		EXPECT_EQ(Describe(ImportText("[{\"vpos\":100,\"mail\":\"" + std::string(Mail) + "\",\"content\":\"x\"}]")),
				  Expected)
			<< Mail;
	}
	EXPECT_EQ(Describe(ImportText(R"([{"vposMs":1000,"commands":["RED","ue　small","shita","blue"],"body":"x"}])")),
			  "10000000 T15 FF0000FF \"x\"\n");
}

TEST(ChatCommands, ThatAreForTheServiceAreNoComments)
{
	const std::string Skipped = "2 service commands\n2 hidden by their senders\n1 deleted by the service\n";
	const std::string Kept = "10000000 s24 FFFFFFFF \"a /vote\"\n10000000 s24 FFFFFFFF \"b\"\n";
	const FImportResult Xml = ImportText(
		R"(<packet><chat vpos="1">/vote start</chat><chat vpos="2" mail="ue">/n</chat><chat vpos="3" mail="Invisible red">x</chat>)"
		R"(<chat vpos="3" mail="184&#x3000;invisible">x</chat><chat vpos="4" deleted="2"/>)"
		R"(<chat vpos="100">a /vote</chat><chat vpos="100" deleted="0" mail="invisibles">b</chat></packet>)");
	EXPECT_EQ(DescribeSkipped(Xml), Skipped);
	EXPECT_EQ(Describe(Xml), Kept);
	EXPECT_EQ(DescribeFaults(Xml), "");
	const FImportResult Json = ImportText(
		R"([{"vpos":1,"content":"/vote start"},{"vpos":2,"mail":"ue","content":"/n"},{"vpos":3,"mail":["red","invisible"],"content":"x"},)"
		R"({"mail":"invisible","vpos":3,"content":"x"},{"vpos":4,"deleted":2},)"
		R"({"vpos":100,"content":"a /vote"},{"vpos":100,"deleted":0,"content":"b"}])");
	EXPECT_EQ(DescribeSkipped(Json), Skipped);
	EXPECT_EQ(Describe(Json), Kept);
	EXPECT_EQ(DescribeFaults(Json), "");
}

} // namespace Flitmark
