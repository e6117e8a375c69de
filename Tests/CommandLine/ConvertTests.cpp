#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/** A written document's texts with their times in seconds, one by one: "Hello@1.5". */
std::vector<std::string> ListComments(const std::string& InDocument)
{
	const std::string TimeKey = "\"danmaku_spawn_time\":";
	const std::string TextKey = "\"danmaku_content\":\"";
	std::vector<std::string> Listed;
	std::size_t Begin = 0;
	while ((Begin = InDocument.find("{\"danmaku", Begin)) != std::string::npos)
	{
		const std::size_t End = InDocument.find('}', Begin);
		const std::string Entry = InDocument.substr(Begin, End - Begin);
		const std::size_t Text = Entry.find(TextKey) + TextKey.size();
		const double Seconds = std::stod(Entry.substr(Entry.find(TimeKey) + TimeKey.size())) / 1e7;
		std::string Time = std::to_string(Seconds);
		Time.erase(Time.find_last_not_of('0') + 1);
		Time.erase(Time.find_last_not_of('.') + 1);
		Listed.push_back(Entry.substr(Text, Entry.find('"', Text) - Text) + "@" + Time);
		Begin = End;
	}
	return Listed;
}

std::string MakeXml(const std::vector<std::pair<std::string, std::string>>& InComments)
{
	std::string Text = "<?xml version=\"1.0\"?>\n<i>\n";
	for (const auto& [Parameters, Content] : InComments)
	{
		Text += "<d p=\"" + Parameters + "\">" + Content + "</d>\n";
	}
	return Text + "</i>\n";
}

std::string Scroll(const std::string& InSeconds)
{
	return InSeconds + ",1,25,16777215,1600000000,0,user,5";
}

struct FFormatCase
{
	const char* Name;
	std::string Text;
	const char* Format;
};

/** Each with one comment that says Hello after 1.5 seconds. */
class Formats : public testing::TestWithParam<FFormatCase>
{
};

TEST_P(Formats, AreToldByTheirContentEverywhere)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write("comments", GetParam().Text);
	const FProgramResult Converted = RunProgram({"convert", Path, "-o", "-"});
	EXPECT_EQ(Converted.ExitCode, 0) << Converted.Error;
	EXPECT_THAT(ListComments(Converted.Out), ElementsAre("Hello@1.5"));
	EXPECT_EQ(Converted.Error, "flitmark: " + Path + ": read as " + GetParam().Format +
								   ", 1 comment\nflitmark: standard output: 1 comment written\n");
	const FProgramResult Checked = RunProgram({"check", Path});
	EXPECT_EQ(Checked.ExitCode, 0) << Checked.Out << Checked.Error;
	EXPECT_THAT(Checked.Out, HasSubstr(Path + ": read as " + GetParam().Format + ", 1 comment\n"));
	EXPECT_THAT(Checked.Out, HasSubstr("1 comment, all can be seen\n\nmodes"));
	const FProgramResult Traced = RunProgram({"trace", Path});
	EXPECT_THAT(Traced.Out, HasSubstr("\"content\":\"Hello\",\"mode\":0"));
	EXPECT_EQ(Traced.Error, "");
	const FProgramResult Told = RunProgram({"stats", Path});
	EXPECT_THAT(Told.Out, HasSubstr("1 comment, 1 different text\n"));
	// The picture matches the document to which the file converts.
	const std::string Document = Folder.Write("c.json", Converted.Out);
	for (const std::string& Comments : {Path, Document})
	{
		const FProgramResult Shot =
			RunProgram({"shot", BlackVideo(), Comments, "--at", "1.9", "-o", Comments + ".png"});
		EXPECT_EQ(Shot.ExitCode, 0) << Shot.Error;
		EXPECT_EQ(Shot.Error, "");
	}
	EXPECT_EQ(ReadFile(Path + ".png"), ReadFile(Document + ".png"));
}

INSTANTIATE_TEST_SUITE_P(
	All, Formats,
	testing::Values(
		FFormatCase{"ListXml", MakeXml({{Scroll("1.5"), "Hello"}}), "XML list"},
		FFormatCase{"ListProtobuf",
					std::string("\x0A\x13\x08\x05\x10\xDC\x0B\x18\x01\x20\x19\x28\xFF\x01\x3A\x05Hello", 21),
					"binary list"},
		FFormatCase{"ParametersJson", R"([{"p":"1.5,1,16777215,user","m":"Hello","cid":5}])", "JSON with parameters"},
		FFormatCase{"RowsJson", R"({"code":0,"data":[[1.5,0,16777215,"user","Hello"]]})", "JSON rows"},
		FFormatCase{"ChatXml", R"(<packet><chat vpos="150" no="5" mail="184" date="1600000000">Hello</chat></packet>)",
					"XML chat"},
		FFormatCase{"ChatJson", R"([{"chat":{"vpos":150,"no":5,"content":"Hello","mail":"white"}}])", "JSON chat"},
		FFormatCase{"ChatLines", "{\"ping\":{}}\n{\"chat\":{\"vpos\":150,\"content\":\"Hello\"}}\n", "JSON chat"},
		FFormatCase{"ObjectsJson", R"({"comments":[{"id":5,"position":1500,"content":"Hello"}]})", "JSON objects"}),
	[](const auto& InCase) { return InCase.param.Name; });

TEST(Convert, MergesFilesEachMovedByItsOwnTime)
{
	const FTestFolder Folder;
	const std::string Xml = Folder.Write("a.xml", MakeXml({{Scroll("65"), "late"}, {Scroll("1"), "early"}}));
	const std::string Own =
		Folder.Write("b.json", MakeDocument({MakeComment(R"("danmaku_content":"own","x":[1.50])")}));
	const std::string Rows = Folder.Write("c.json", R"([[3,0,0,"u","row"],[61.5,0,0,"u","last"]])");
	const std::string Out = Folder.File("out.json");
	const struct
	{
		std::vector<std::string> Offsets;
		std::vector<std::string> Expected;
	} Cases[] = {
		{{}, {"own@0.5", "early@1", "row@3", "last@61.5", "late@65"}},
		{{"1:00"}, {"own@0.5", "row@3", "early@61", "last@61.5", "late@125"}},
		{{"0", "1:01", "-2.5"}, {"row@0.5", "early@1", "last@59", "own@61.5", "late@65"}},
		// Less than a second before the start still counts as the first second.
		{{"0", "0", "-0:03.5"}, {"row@-0.5", "own@0.5", "early@1", "last@58", "late@65"}},
	};
	for (const auto& Case : Cases)
	{
		std::vector<std::string> Arguments = {"convert", Xml, Own, Rows, "-o", Out};
		for (const std::string& Offset : Case.Offsets)
		{
			Arguments.insert(Arguments.end(), {"--offset", Offset});
		}
		const FProgramResult Result = RunProgram(Arguments);
		EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
		EXPECT_EQ(Result.Out, "");
		const std::string Written = ReadFile(Out);
		EXPECT_EQ(ListComments(Written), Case.Expected);
		EXPECT_THAT(Result.Error, HasSubstr("read as XML list, 2 comments"));
		EXPECT_THAT(Result.Error, HasSubstr("out.json: 5 comments written"));
		// Anything else that a document's author added is kept.
		EXPECT_THAT(Written, HasSubstr("\"x\":[1.50]"));
	}
}

TEST(Convert, TellsWhatAnOffsetPutsOutOfReach)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write(
		"c.xml", MakeXml({{Scroll("1"), "a"}, {Scroll("2.5"), "b"}, {Scroll("10"), "c"}, {Scroll("20"), "d"}}));
	const FProgramResult Back = RunProgram({"convert", Path, "-o", "-", "--offset", "-3"});
	EXPECT_THAT(ListComments(Back.Out), ElementsAre("b@-0.5", "c@7", "d@17"));
	EXPECT_THAT(Back.Error, HasSubstr("1 comment to less than a second before 0 s; shown at the start"));
	EXPECT_THAT(Back.Error, HasSubstr("1 comment before 0 s, where nothing is shown; dropped"));
	EXPECT_THAT(Back.Error, HasSubstr("standard output: 3 comments written"));
	const FProgramResult Forth = RunProgram({"convert", Path, "-o", "-", "--offset", "23:59:55"});
	EXPECT_THAT(ListComments(Forth.Out), ElementsAre("a@86396", "b@86397.5"));
	EXPECT_THAT(Forth.Error, HasSubstr("2 comments to 24 h or later, where nothing is shown; dropped"));
}

TEST(Convert, WritesOnceWhatTwoFilesShare)
{
	const FTestFolder Folder;
	const std::string First = Folder.Write(
		"1.xml", MakeXml({{Scroll("1"), "a"}, {Scroll("1"), "a"}, {Scroll("2"), "b"}, {"3,1,25,0,0,0,u,0", "no ID"}}));
	const std::string Later =
		Folder.Write("2.xml", MakeXml({{Scroll("2"), "b"}, {Scroll("2.5"), "b"}, {Scroll("2"), "c"}}));
	const std::string Own = Folder.File("own.json");
	ASSERT_EQ(RunProgram({"convert", First, "-o", Own}).ExitCode, 0);
	const struct
	{
		std::vector<std::string> Arguments;
		std::vector<std::string> Expected;
		std::string Said;
	} Cases[] = {
		{{First, First},
		 {"a@1", "a@1", "b@2", "no ID@3", "no ID@3"},
		 "1.xml: 3 comments are in an earlier file already"},
		{{Own, First}, {"a@1", "a@1", "b@2", "no ID@3", "no ID@3"}, "1.xml: 3 comments are in an earlier file already"},
		{{First, Own},
		 {"a@1", "a@1", "b@2", "no ID@3", "no ID@3"},
		 "own.json: 3 comments are in an earlier file already"},
		{{First, Later},
		 {"a@1", "a@1", "b@2", "c@2", "b@2.5", "no ID@3"},
		 "2.xml: 1 comment is in an earlier file already"},
		// Once moved, they count as different ones.
		{{Later, Later, "--offset", "0", "--offset", "0.5"},
		 {"b@2", "c@2", "b@2.5", "c@2.5", "b@3"},
		 "2.xml: 1 comment is in an earlier file already"},
	};
	for (const auto& Case : Cases)
	{
		std::vector<std::string> Arguments = {"convert", "-o", "-"};
		Arguments.insert(Arguments.end(), Case.Arguments.begin(), Case.Arguments.end());
		const FProgramResult Result = RunProgram(Arguments);
		EXPECT_EQ(ListComments(Result.Out), Case.Expected);
		EXPECT_THAT(Result.Error, HasSubstr(Case.Said));
	}
}

TEST(Convert, GoesToAListAndBack)
{
	const FTestFolder Folder;
	const std::string List =
		Folder.Write("l.xml", MakeXml({{"1.5,1,25,16777215,1600000000,0,user,5", "scroll &amp; <b>"},
									   {"2.25,5,18,255,1600000001,1,user,6", "top"},
									   {"3,4,36,0,1600000002,2,other,7", "bottom/nof two lines"}}));
	const auto Convert = [&Folder](const std::string& InFrom, const std::string& InName)
	{
		const std::string Path = Folder.File(InName);
		const FProgramResult Result = RunProgram({"convert", InFrom, "-o", Path});
		EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
		return Path;
	};
	const std::string Own = Convert(List, "1.json");
	const std::string Again = Convert(Convert(Own, "2.xml"), "3.json");
	// A list stores senders only as hashes.
	const auto WithoutUsers = [](std::string InDocument)
	{
		for (std::size_t Begin = 0; (Begin = InDocument.find("\"user_id\":", Begin)) != std::string::npos;)
		{
			InDocument.erase(Begin, InDocument.find(',', Begin) + 1 - Begin);
		}
		return InDocument;
	};
	EXPECT_EQ(WithoutUsers(ReadFile(Again)), WithoutUsers(ReadFile(Own)));
	EXPECT_THAT(ReadFile(Own), HasSubstr("\"danmaku_content\":\"bottom\\nof two lines\",\"danmaku_mode\":2"));
	// Straight from list to list, and what a list can't hold.
	EXPECT_EQ(ReadFile(Convert(List, "4.xml")), ReadFile(Folder.File("2.xml")));
	const std::string Unseen =
		Folder.Write("u.json", MakeDocument({MakeComment(), MakeComment(R"("danmaku_mode":7)")}));
	EXPECT_THAT(RunProgram({"convert", Unseen, "-o", Folder.File("5.xml")}).Error,
				HasSubstr("1 comment that the overlay does not show, because of mode, size, or color"));
}

TEST(Convert, OwnDocumentWithoutAWishKeepsItsBytes)
{
	const FTestFolder Folder;
	const std::string Document = "\xEF\xBB\xBF{ \"more\": 1e2,\r\n \"datas\": [ 7, " + MakeComment() + " ] }";
	const std::string Path = Folder.Write("c.json", Document);
	const FProgramResult Result = RunProgram({"convert", Path, "-o", Folder.File("o.json"), "--offset", "0"});
	EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
	EXPECT_EQ(ReadFile(Folder.File("o.json")), Document);
	EXPECT_EQ(RunProgram({"convert", Path, "-o", "-"}).Out, Document);
}

TEST(Convert, RefusesWithoutHarm)
{
	const FTestFolder Folder;
	const std::string Good = Folder.Write("good.xml", MakeXml({{Scroll("1"), "a"}}));
	const std::string Bad = Folder.Write("bad.json", "{\"datas\":[\n  {},\n  }\n]}");
	const std::string Text = Folder.Write("notes.txt", "Dear diary, today nobody commented.");
	const std::string Old = Folder.Write("old.json", "old");
	const struct
	{
		std::vector<std::string> Arguments;
		int ExitCode;
		std::string Said;
	} Cases[] = {
		{{Good, "-o", Good}, 1, "good.xml: is the input itself"},
		{{Old, Good, "-o", Folder.File("./good.xml")}, 1, "good.xml: is the input itself"},
		{{Good, "-o", Folder.File("no/out.json")}, 1, "does not exist; make it first"},
		{{Good, Bad, "-o", Old}, 1, Bad + ":3:3: not JSON"},
		{{Bad, "-o", Old}, 1, Bad + ":3:3: not JSON"},
		{{Text, "-o", Old}, 1, "notes.txt: is in no known format of comments"},
		{{Folder.File("none.xml"), "-o", Old}, 1, "none.xml: cannot be opened"},
		{{Good, "-o", Old, "--offset", "1", "--offset", "2"}, 2, "--offset: is given 2 times for 1 file"},
		{{Good, "-o", Old, "--offset", "1:75"}, 2, "--offset: \"1:75\" is not a time"},
		{{Good, "-o", Old, "--block", "a(b"}, 2, "--block: \"a(b\" is not a regular expression: missing )"},
		{{Good}, 2, "--output is required"},
		{{Good, "-o", Folder.File("out.srt")}, 2, "out.srt ends in .srt, which is not known; known are .json"},
		{{Good, "-o", Folder.File("out")}, 2, "out has no ending; known are .json"},
		{{Good, "-o", Folder.File(".json")}, 2, ".json has no ending; known are .json"},
		{{Good, "-o", Old, "--to", "srt"}, 2, "--to: srt not in {json,xml,ass}"},
		{{Good, "-o", Old, "--seed", "3"}, 2, "--seed: is only for subtitles"},
		{{Good, "-o", Old, "--to", "ass", "--size", "0x100"}, 2, "is not a size in whole numbers"},
		{{"-o", Old}, 2, "IN is required"},
	};
	for (const auto& Case : Cases)
	{
		std::vector<std::string> Arguments = Case.Arguments;
		Arguments.insert(Arguments.begin(), "convert");
		const FProgramResult Result = RunProgram(Arguments);
		EXPECT_EQ(Result.ExitCode, Case.ExitCode) << Result.Error;
		EXPECT_THAT(Result.Error, HasSubstr(Case.Said));
		EXPECT_EQ(ReadFile(Old), "old");
	}
	EXPECT_THAT(Folder.List(), ElementsAre("bad.json", "good.xml", "notes.txt", "old.json"));
	EXPECT_THAT(RunProgram({"convert", Good, "-o", "-"}, "/dev/full").Error, HasSubstr("standard output"));
}

TEST(Formats, BrokenEntriesAreToldAndTheRestIsUsed)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write("c.xml", MakeXml({{Scroll("1"), "a"},
															{"x,1,25,0,0,0,u,1", "b"},
															{Scroll("2"), "c"},
															{"", "d"},
															{"y,1", "e"},
															{"z,1", "f"},
															{"3,8,25,0,0,0,u,1", "code"},
															{"4,6,25,16777215,0,0,u,1", "reverse"}}));
	const FProgramResult Shot = RunProgram({"shot", BlackVideo(), Path, "--at", "1.5", "-o", Folder.File("p.png")});
	EXPECT_EQ(Shot.ExitCode, 0);
	EXPECT_THAT(Shot.Error, HasSubstr("flitmark: " + Path + ":4: "));
	EXPECT_THAT(Shot.Error, HasSubstr("4 entries are broken and left out"));
	EXPECT_THAT(Shot.Error, HasSubstr("1 comment is not served: 1 that draw by a program"));
	EXPECT_THAT(Shot.Error, HasSubstr("shown otherwise than meant: 1 from left to right, which scroll"));
	const FProgramResult Check = RunProgram({"check", Path, "--json", "--reverse", "drop"});
	EXPECT_EQ(Check.ExitCode, 1);
	EXPECT_EQ(Check.Error, "");
	EXPECT_THAT(Check.Out, HasSubstr("\"import\":{\"format\":\"XML list\",\"read\":4,\"broken\":4,\"repaired\":0,"
									 "\"skipped\":0,\"not_served\":2,\"notes\":["));
	EXPECT_THAT(Check.Out, HasSubstr("\"filters\":[],\"comments\":2,\"unseen\":0"));
}

TEST(Formats, WhatALiveShowBringsIsToldOrShown)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write(
		"c.xml", R"(<i><d p="1,1,25,0" user="Ann">hi</d><d p="2,1,25,0" user="bot 7">ad</d><gift ts="3" user="Ann"/>)"
				 R"(<gift ts="3" user="Cy"/><enter ts="3"/><sc ts="4" user="Cy" price="30">ho</sc></i>)");
	const FProgramResult Shown = RunProgram({"convert", Path, "-o", "-", "--block-user", "/bot \\d$/"});
	EXPECT_THAT(ListComments(Shown.Out), ElementsAre("hi@1", "Cy (30): ho@4"));
	EXPECT_THAT(Shown.Error, HasSubstr(": 3 entries are no comments for viewers and not shown: gifts (2), <enter> "
									   "elements (1)\n"));
	EXPECT_THAT(Shown.Error, HasSubstr("--block-user /bot \\d$/: 1 comment taken out"));
	const FProgramResult Dropped = RunProgram({"convert", Path, "-o", "-", "--paid", "drop", "--block-user", "Ann"});
	EXPECT_THAT(ListComments(Dropped.Out), ElementsAre("ad@2"));
	EXPECT_THAT(Dropped.Error, HasSubstr("1 comment is not served: 1 paid\n"));
	// Gifts are not comments that a viewer misses.
	const FProgramResult Check = RunProgram({"check", Path, "--json"});
	EXPECT_EQ(Check.ExitCode, 0);
	EXPECT_THAT(Check.Out, HasSubstr("\"skipped\":3,\"not_served\":0"));
}

TEST(Filters, AreToldByEveryCommand)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write(
		"c.xml",
		MakeXml({{Scroll("0.1"), "gg"}, {Scroll("0.2"), "gg"}, {Scroll("0.3"), "[spam]"}, {Scroll("0.4"), "wow"}}));
	const std::vector<std::string> Options = {"--block", "[[]spam[]]", "--merge", "5"};
	const auto Run = [&](std::vector<std::string> InArguments)
	{
		InArguments.insert(InArguments.end(), Options.begin(), Options.end());
		return RunProgram(InArguments);
	};
	const std::string Told[] = {"--block \"[[]spam[]]\": 1 comment taken out\n",
								"--merge 5: 1 comment taken out, 1 stands for them\n"};
	const FProgramResult Converted = Run({"convert", Path, "-o", "-"});
	EXPECT_THAT(ListComments(Converted.Out), ElementsAre("gg ×2@0.1", "wow@0.4"));
	for (const std::string& Line : Told)
	{
		const std::string Note = "flitmark: " + Line;
		EXPECT_THAT(Converted.Error, HasSubstr(Note));
		EXPECT_THAT(Run({"trace", Path}).Error, HasSubstr(Note));
		EXPECT_THAT(Run({"shot", BlackVideo(), Path, "--at", "1", "-o", Folder.File("p.png")}).Error, HasSubstr(Note));
		EXPECT_THAT(Run({"burn", BlackVideo(), Path, "-o", Folder.File("o.mkv")}).Error, HasSubstr(Note));
		EXPECT_THAT(Run({"check", Path}).Out, HasSubstr("\n" + Line));
		EXPECT_THAT(Run({"stats", Path}).Out, HasSubstr("\n" + Line));
	}
	EXPECT_THAT(Run({"check", Path, "--json"}).Out,
				HasSubstr("\"filters\":[{\"rule\":\"--block \\\"[[]spam[]]\\\"\",\"taken\":1,\"changed\":0},"
						  "{\"rule\":\"--merge 5\",\"taken\":1,\"changed\":1}],\"comments\":2"));
	// The filtered comments are what is traced.
	const std::string Trace = Run({"trace", Path}).Out;
	EXPECT_THAT(Trace, HasSubstr("\"content\":\"gg ×2\""));
	EXPECT_THAT(Trace, Not(HasSubstr("spam")));
}

TEST(Filters, LeaveModesOutByFlags)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write("c.json", MakeDocument({MakeComment(), MakeComment(R"("danmaku_mode":1)"),
																  MakeComment(R"("danmaku_mode":2)")}));
	const std::pair<std::vector<std::string>, const char*> Cases[] = {
		{{"--no-top"}, "--only scroll,bottom: 1 comment taken out"},
		{{"--no-scroll", "--no-bottom"}, "--only top: 2 comments taken out"},
		{{"--only", "scroll,top", "--no-scroll"}, "--only top: 2 comments taken out"},
	};
	for (const auto& [Options, Said] : Cases)
	{
		std::vector<std::string> Arguments = {"check", Path};
		Arguments.insert(Arguments.end(), Options.begin(), Options.end());
		EXPECT_THAT(RunProgram(Arguments).Out, HasSubstr(Said));
	}
}

TEST(Filters, LeaveATextThatIsNoDocumentToTheTrace)
{
	const FTestFolder Folder;
	for (const char* Text : {"", "no document", "{\"datas\":", "[1, 2]"})
	{
		const std::string Path = Folder.Write("c", Text);
		const FProgramResult Plain = RunProgram({"trace", Path, "--frames", "3", "--positions"});
		EXPECT_EQ(Plain.ExitCode, 0) << Text;
		EXPECT_EQ(Plain.Error, "") << Text;
		EXPECT_EQ(RunProgram({"trace", Path, "--frames", "3", "--positions", "--block", "x"}).Out, Plain.Out);
	}
}

TEST(Formats, WhatTheOverlayTakesForADocumentIsOne)
{
	const FTestFolder Folder;
	const std::string Foreign = R"({"comments":[{"p":"0,1,16777215,u","m":"foreign"}])";
	const std::string Own = "[" + MakeComment(R"("position":5,"content":"x")") + "]";
	for (const std::string& Padding : {std::string(), ",\"x\":\"" + std::string(200'000, ' ') + "\""})
	{
		const std::string Path = Folder.Write("c.json", Foreign + Padding + ",\"Datas\":" + Own + "}");
		const std::string Trace = RunProgram({"trace", Path}).Out;
		EXPECT_THAT(Trace, HasSubstr("\"content\":\"Hello\""));
		EXPECT_THAT(Trace, Not(HasSubstr("foreign")));
		const std::string NoList = Folder.Write("n.json", Foreign + Padding + ",\"datas\":7}");
		EXPECT_THAT(RunProgram({"trace", NoList}).Out, HasSubstr("\"content\":\"foreign\""));
	}
}

TEST(Stats, TellAndDraw)
{
	const FTestFolder Folder;
	std::vector<std::pair<std::string, std::string>> Comments = {{Scroll("3725"), "the \x1B[31mend"}};
	for (int Index = 0; Index < 40; ++Index)
	{
		Comments.push_back({Scroll("1800." + std::to_string(Index)), "Goal &amp; &lt;b&gt;"});
	}
	const std::string Path = Folder.Write("<&>.xml", MakeXml(Comments));
	const std::string Picture = Folder.File("p.svg");
	const FProgramResult Result = RunProgram({"stats", Path, "-o", Picture});
	EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
	EXPECT_EQ(Result.Error, "");
	for (const char* Line :
		 {"\ntotal     41 comments, 2 different texts\n", "\nlength    30:00 to 1:02:05, 0.7 a minute\n",
		  "\nusers     1\n", "\nbusiest     30:00      40  Goal & <b> ×40\n", "\nmodes     41 scroll\n",
		  "\ncolors    #FFFFFF ×41\n", "×40  Goal & <b>\n", "p.svg: the density over time\n"})
	{
		EXPECT_THAT(Result.Out, HasSubstr(Line));
	}
	// Nothing that a terminal would interpret.
	EXPECT_THAT(Result.Out, Not(HasSubstr("\x1B")));
	const std::string Svg = ReadFile(Picture);
	EXPECT_THAT(Svg, HasSubstr("<title>&lt;&amp;&gt;.xml</title>"));
	EXPECT_THAT(Svg, HasSubstr(">41 comments in 1:02:05</text>"));
	EXPECT_THAT(Svg, HasSubstr("Goal &amp; &lt;b&gt;</text>"));
	EXPECT_THAT(Svg, HasSubstr(">30:00</text>"));
	EXPECT_THAT(Svg, HasSubstr(">1:00:00</text>"));
	EXPECT_THAT(Svg, testing::EndsWith("</svg>\n"));
}

TEST(Stats, ListNoBlankTextAndNoEndlessOne)
{
	const FTestFolder Folder;
	std::string Marks = "e";
	for (int Count = 0; Count < 200'000; ++Count)
	{
		Marks += "\u0301";
	}
	const std::string Path = Folder.Write(
		"c.json",
		MakeDocument({MakeComment(R"("danmaku_content":"  ")"), MakeComment(R"("danmaku_content":"\u3000")"),
					  MakeComment(R"("danmaku_content":" ")"), MakeComment("\"danmaku_content\":\"" + Marks + "\""),
					  MakeComment("\"danmaku_content\":\"" + Marks + "\"")}));
	const FProgramResult Result = RunProgram({"stats", Path});
	EXPECT_EQ(Result.ExitCode, 0);
	EXPECT_THAT(Result.Out, HasSubstr("5 comments, 1 different text\n"));
	EXPECT_THAT(Result.Out, HasSubstr("×2"));
	EXPECT_THAT(Result.Out, Not(HasSubstr("×3")));
	EXPECT_LT(Result.Out.size(), 10'000u);
}

TEST(Stats, RefuseAndStayQuietAboutNothing)
{
	const FTestFolder Folder;
	const std::string Empty = Folder.Write("e.json", "{\"datas\":[]}");
	const FProgramResult Nothing = RunProgram({"stats", Empty, "-o", Folder.File("p.svg")});
	EXPECT_EQ(Nothing.ExitCode, 0) << Nothing.Error;
	EXPECT_THAT(Nothing.Out, HasSubstr("0 comments"));
	EXPECT_THAT(ReadFile(Folder.File("p.svg")), testing::EndsWith("</svg>\n"));
	EXPECT_EQ(RunProgram({"stats", Empty, "-o", Folder.File("p.png")}).ExitCode, 2);
	EXPECT_THAT(RunProgram({"stats", Folder.Write("n.txt", "hello")}).Error, HasSubstr("in no known format"));
	EXPECT_THAT(RunProgram({"stats", Folder.Write("b.json", "{\"datas\":[}")}).Error, HasSubstr(":1:11: not JSON"));
}

} // namespace
} // namespace Flitmark::Testing
