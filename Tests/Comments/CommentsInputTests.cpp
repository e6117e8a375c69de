#include "Comments/CommentsInput.h"

#include "Files/FileText.h"
#include "Formats/CommentTraits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace Flitmark::Testing
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class FCommentsTest : public testing::Test
{
protected:
	FCommentsTest()
	{
		std::string Name = (std::filesystem::temp_directory_path() / "flitmark-comments-XXXXXX").string();
		Folder = mkdtemp(Name.data());
	}
	~FCommentsTest() override { std::filesystem::remove_all(Folder); }

	std::string Write(const std::string& InText) const
	{
		const std::string Path = (Folder / "c").string();
		std::ofstream(Path, std::ios::binary) << InText;
		return Path;
	}

	/** Empty with Error set if it cannot be loaded. */
	std::optional<FCommentsFile> Load(const std::string& InText, const FFilterOptions& InFilters = {},
									  bool bInWithText = true)
	{
		FCommentsOptions Options;
		const auto Filter = InFilters.IsEmpty() ? nullptr : FCommentFilter::Create(InFilters, Error);
		Options.Filter = Filter.get();
		Options.bWithText = bInWithText;
		Error.clear();
		return LoadComments(Write(InText), Options, Error);
	}

	std::filesystem::path Folder;
	std::string Error;
};

FFilterOptions Block(const std::string& InPattern)
{
	FFilterOptions Options;
	Options.Block = {InPattern};
	return Options;
}

FFilterOptions MaxPerSecond(int64 InMost)
{
	FFilterOptions Options;
	Options.MaxPerSecond = InMost;
	return Options;
}

std::string MakeElement(const std::string& InChange)
{
	const std::string Comma = InChange.empty() ? "" : ",";
	return R"({"danmaku_spawn_time":0,"danmaku_mode":0,"danmaku_font_size":24,"danmaku_font_color":"#FFFFFF",)"
		   R"("danmaku_content":"hi")" +
		   Comma + InChange + "}";
}

std::vector<std::string> GetTexts(const FCommentDocument& InDocument)
{
	std::vector<std::string> Texts;
	for (const FCommentEntry& Entry : InDocument.GetEntries())
	{
		Texts.push_back(ToUtf8(FString(FStringView(InDocument.GetText(Entry)))));
	}
	return Texts;
}

/** As a review judges an entry. */
bool IsSeen(const FCommentDocument& InDocument, const FCommentEntry& InEntry)
{
	return IsServed(InEntry.Kind) && InEntry.IsReached() && HasSize(InEntry.FontSize) && HasColor(InEntry.Color) &&
		   HasText(InDocument.GetText(InEntry));
}

struct FVerdictCase
{
	const char* Name;
	/** Further members of the comment's element; later ones win. */
	std::string Change;
	bool bSeen;
};

class Verdicts : public FCommentsTest, public testing::WithParamInterface<FVerdictCase>
{
};

/** The document as reviewed, as counted, and as filtered agrees. */
TEST_P(Verdicts, AreTheSameEverywhere)
{
	const std::string Text = "{\"datas\":[" + MakeElement(GetParam().Change) + "]}";
	const std::optional<FCommentsFile> File = Load(Text);
	ASSERT_TRUE(File) << Error;
	EXPECT_EQ(IsSeen(File->Document, File->Document.GetEntries().at(0)), GetParam().bSeen);

	std::optional<FCommentsInput> Input = FCommentsInput::Read(Write(Text), {}, Error);
	ASSERT_TRUE(Input && Input->ImportOwn(Error)) << Error;
	EXPECT_EQ(IsVisible(Input->Comments.at(0)), GetParam().bSeen);

	// It competes with the visible one beside it if and only if it can be seen.
	const std::string Crowd = "{\"datas\":[" + MakeElement(GetParam().Change) + "," + MakeElement("") + "]}";
	const std::optional<FCommentsFile> Thinned = Load(Crowd, MaxPerSecond(1));
	ASSERT_TRUE(Thinned) << Error;
	EXPECT_EQ(Thinned->Document.GetEntries().size(), GetParam().bSeen ? 1U : 2U);
}

INSTANTIATE_TEST_SUITE_P(All, Verdicts,
						 testing::Values(FVerdictCase{"Plain", "", true},
										 FVerdictCase{"WrongDigits", R"("danmaku_font_color":"#GG00FF")", true},
										 FVerdictCase{"ShortColor", R"("danmaku_font_color":"0f0")", true},
										 FVerdictCase{"ColorName", R"("danmaku_font_color":"white")", false},
										 FVerdictCase{"Transparent", R"("danmaku_font_color":"#FFFFFF00")", false},
										 FVerdictCase{"ZeroWidthSpace", "\"danmaku_content\":\"\u200B\"", false},
										 FVerdictCase{"IdeographicSpace", "\"danmaku_content\":\"\u3000\\n\"", false},
										 FVerdictCase{"Controls", R"("danmaku_content":"\u0001\u0085")", false},
										 FVerdictCase{"HalfPair", R"("danmaku_content":"\ud800")", true},
										 FVerdictCase{"OtherCase", R"("Danmaku_Content":"")", false},
										 FVerdictCase{"NumberAsText", R"("danmaku_content":0)", true},
										 FVerdictCase{"List", R"("danmaku_content":["x"])", false},
										 FVerdictCase{"HugeTime", R"("danmaku_spawn_time":1e300)", true},
										 FVerdictCase{"TimeAsText", R"("danmaku_spawn_time":"9999999")", true},
										 FVerdictCase{"JustBefore", R"("danmaku_spawn_time":-9999999)", true},
										 FVerdictCase{"Before", R"("danmaku_spawn_time":-10000000)", false},
										 FVerdictCase{"NextDay", R"("danmaku_spawn_time":864000000000)", false},
										 FVerdictCase{"Reverse", R"("danmaku_mode":3)", false},
										 FVerdictCase{"CutMode", R"("danmaku_mode":-0.9)", true},
										 FVerdictCase{"ModeAsText", R"("danmaku_mode":"2")", true},
										 FVerdictCase{"TrueMode", R"("danmaku_mode":true)", true},
										 FVerdictCase{"NoSize", R"("danmaku_font_size":0.9)", false},
										 FVerdictCase{"NullSize", R"("danmaku_font_size":null)", false}),
						 [](const auto& InCase) { return InCase.param.Name; });

TEST_F(FCommentsTest, KeysMayHaveAnyCase)
{
	const std::string Text = R"({"Datas":[{"Danmaku_Content":"spam"},{"DANMAKU_CONTENT":"ham"}]})";
	const std::optional<FCommentsFile> Whole = Load(Text);
	ASSERT_TRUE(Whole) << Error;
	EXPECT_EQ(Whole->Text, FromUtf8(Text));
	EXPECT_THAT(GetTexts(Whole->Document), ElementsAre("spam", "ham"));
	const std::optional<FCommentsFile> Filtered = Load(Text, Block("spam"));
	ASSERT_TRUE(Filtered) << Error;
	EXPECT_EQ(ToUtf8(Filtered->Text), "{\"datas\":[\n{\"DANMAKU_CONTENT\":\"ham\"}\n]}\n");
	EXPECT_THAT(GetTexts(Filtered->Document), ElementsAre("ham"));
}

TEST_F(FCommentsTest, FiltersKeepWhatIsWrongWithTheRest)
{
	const std::optional<FCommentsFile> File = Load(
		R"({"datas":[{"danmaku_content":"spam"},{"danmaku_content":"ham","danmaku_mode":"up"},7]})", Block("spam"));
	ASSERT_TRUE(File) << Error;
	const std::vector<FCommentEntry>& Entries = File->Document.GetEntries();
	ASSERT_EQ(Entries.size(), 2U);
	EXPECT_TRUE(Entries[0].Keys.IsMistyped(ECommentKey::Mode));
	EXPECT_TRUE(Entries[0].Keys.IsMissing(ECommentKey::SpawnTime));
	EXPECT_FALSE(Entries[1].Keys.bIsObject);
	EXPECT_EQ(File->Report.Import.NumRead, 3U);
}

/** Whatever the document's encoding. */
TEST_F(FCommentsTest, FiltersKeepTheBytesOfTheRest)
{
	const std::string Kept = "{ \"danmaku_content\":\"弾\", \"x\" : 1.50 }";
	const std::string Text = "{\"datas\":[{\"danmaku_content\":\"spam\"}, " + Kept + "]}";
	std::string Wide = "\xFF\xFE";
	const FString Units = FromUtf8(Text);
	for (const TCHAR Unit : Units.GetStd())
	{
		Wide += {static_cast<char>(Unit & 0xFF), static_cast<char>(Unit >> 8)};
	}
	for (const std::string& Bytes : {Text, "\uFEFF" + Text, Wide})
	{
		const std::optional<FCommentsFile> File = Load(Bytes, Block("spam"));
		ASSERT_TRUE(File) << Error;
		EXPECT_EQ(ToUtf8(File->Text), "{\"datas\":[\n" + Kept + "\n]}\n");
	}
}

TEST_F(FCommentsTest, OtherFormatsNeedNoTextToBeReviewed)
{
	const std::string Xml = "<i><d p=\"1.5,1,25,16711680,1600000000,0,user,5\">你好</d></i>";
	const std::optional<FCommentsFile> With = Load(Xml);
	const std::optional<FCommentsFile> Without = Load(Xml, {}, false);
	ASSERT_TRUE(With && Without) << Error;
	EXPECT_TRUE(Without->Text.IsEmpty());
	const FCommentDocument Written = FCommentDocument::Read(With->Text);
	for (const FCommentDocument* Document : {&With->Document, &Without->Document})
	{
		EXPECT_EQ(GetTexts(*Document), GetTexts(Written));
		EXPECT_EQ(Document->GetEntries().at(0).SpawnTicks, Written.GetEntries().at(0).SpawnTicks);
	}
}

/** The overlay does not read names. */
TEST_F(FCommentsTest, NamesInDocumentsCanBeBlocked)
{
	FFilterOptions Filters;
	Filters.BlockUsers = {"/^A.n$/"};
	const std::optional<FCommentsFile> File =
		Load(R"({"datas":[{"danmaku_content":"a","user_display_name":"A\"n"},{"danmaku_content":"b",)"
			 R"("user_display_name":"Anna"},{"danmaku_content":"c","user_display_name":7},)"
			 R"({"danmaku_content":"d","User_Display_Name":"Aen"}]})",
			 Filters);
	ASSERT_TRUE(File) << Error;
	EXPECT_THAT(GetTexts(File->Document), ElementsAre("b", "c"));
}

std::string RepeatLines(int InNumLines)
{
	std::string Text = "x";
	for (int Line = 1; Line < InNumLines; ++Line)
	{
		Text += "/nx";
	}
	return Text;
}

/** A normal line is 40 units high; scrolling comments have 53 lanes of 15.12 units, bottom ones 17. */
TEST_F(FCommentsTest, TallCommentsAreMadeToFit)
{
	const struct
	{
		int Mode;
		int NumLines;
		int Size;
	} Cases[] = {{1, 20, 24}, {1, 21, 17}, {5, 20, 24}, {5, 40, 9}, {4, 6, 24}, {4, 7, 16}, {4, 1, 24}, {1, 2000, 1}};
	std::string Xml = "<i>";
	for (const auto& Case : Cases)
	{
		Xml += "<d p=\"1," + std::to_string(Case.Mode) + ",25,0\">" + RepeatLines(Case.NumLines) + "</d>";
	}
	const std::optional<FCommentsFile> File = Load(Xml + "</i>");
	ASSERT_TRUE(File) << Error;
	ASSERT_EQ(File->Document.GetEntries().size(), std::size(Cases));
	for (std::size_t Index = 0; Index < std::size(Cases); ++Index)
	{
		EXPECT_EQ(File->Document.GetEntries()[Index].FontSize, Cases[Index].Size) << Cases[Index].NumLines;
	}
	EXPECT_EQ(File->Report.NumFitted, 4U);
	EXPECT_THAT(File->MakeNotes(), Contains(HasSubstr("4 of many lines, which are made smaller to fit")));

	const std::optional<FCommentsFile> Own = Load(ToUtf8(File->Text) + " ", Block("nothing"));
	ASSERT_TRUE(Own) << Error;
	EXPECT_EQ(Own->Report.NumFitted, 0U);
}

/** Everything in a file is in its report, exactly once. */
TEST_F(FCommentsTest, ReportsNameEveryReason)
{
	const std::optional<FCommentsFile> File =
		Load(R"(<i><d p="1">a</d><d p="x">b</d><gift ts="1"/><gift ts="2"/><sc ts="1" user="Ann" price="9">c</sc>)"
			 R"(<d p="1,7">{"n":"d"}</d><d p="1,8">e()</d></i>)");
	ASSERT_TRUE(File) << Error;
	EXPECT_THAT(GetTexts(File->Document), ElementsAre("a", "Ann (9): c", "d"));
	const std::string Path = (Folder / "c").string();
	EXPECT_THAT(File->MakeNotes(),
				ElementsAre(Path + ":1: entry 2: has no readable time at the start of its attribute \"p\"",
							Path + ": 1 entry is broken and left out",
							Path + ": 2 entries are no comments for viewers and not shown: gifts (2)",
							Path + ": 1 comment is not served: 1 that draw by a program",
							Path + ": shown otherwise than meant: 1 positioned, which stand at the top, 1 paid, which "
								   "stand at the top"));
	const FImportReport& Import = File->Report.Import;
	EXPECT_EQ(Import.NumEntries, 7U);
	EXPECT_EQ(static_cast<int64>(Import.NumEntries - Import.CountSkipped()) - File->Report.CountLost(), 3);
}

/** Filtered or not, faults are reported in the same words. */
/** Our own document and a list of another format: 20,002 comments in second 1, one in second 2. */
TEST_F(FCommentsTest, AtMostTwentyThousandOfASecondAreHandedOver)
{
	std::string Own;
	std::string Xml;
	for (int32 Index = 0; Index < 20'003; ++Index)
	{
		const bool bLast = Index == 20'002;
		Own += (Index > 0 ? " , " : "") + std::string(R"({"danmaku_content":"c)") + std::to_string(Index) +
			   R"(","danmaku_spawn_time":)" + (bLast ? "20000000" : "15000000") + "}";
		Xml += "<d p=\"" + std::string(bLast ? "2.5" : "1.5") + ",1,25,16777215,0,0,u,1\">c" + std::to_string(Index) +
			   "</d>";
	}
	for (const std::string& Text : {"{\"x\":[1],\"datas\":[" + Own + "]}", "<i>" + Xml + "</i>"})
	{
		const std::optional<FCommentsFile> File = Load(Text);
		ASSERT_TRUE(File) << Error;
		EXPECT_EQ(File->Report.NumCrowdedOut, 2);
		EXPECT_THAT(File->MakeNotes(), testing::Contains(HasSubstr("2 comments are left out")));
		const FCommentDocument Handed = FCommentDocument::Read(File->Text);
		EXPECT_EQ(Handed.GetEntries().size(), 20'001u);
		ASSERT_EQ(File->Document.GetEntries().size(), 20'001u);
		EXPECT_EQ(Handed.GetText(Handed.GetEntries()[19'999]), u"c19999");
		EXPECT_EQ(Handed.GetText(Handed.GetEntries()[20'000]), u"c20002");
	}
	const std::optional<FCommentsFile> Fewer = Load("{\"datas\":[" + Own + "]}", Block("^c[12]$"));
	ASSERT_TRUE(Fewer) << Error;
	EXPECT_EQ(Fewer->Report.NumCrowdedOut, 0) << "filters come first";
}

TEST_F(FCommentsTest, WhatIsNoCommentsIsAnEmptyDocumentToHostsThatTakeAnyText)
{
	const FFilterOptions None;
	for (const FFilterOptions& Filters : {None, Block("x")})
	{
		const auto Filter = FCommentFilter::Create(Filters, Error);
		FCommentsOptions Options;
		Options.Filter = Filters.IsEmpty() ? nullptr : Filter.get();
		const auto File = LoadAnyText(Write(std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16)), Options, Error);
		ASSERT_TRUE(File) << Error;
		EXPECT_EQ(File->Text.Len(), 0);
		EXPECT_TRUE(File->Document.GetEntries().empty());
	}
}

TEST_F(FCommentsTest, RefusalsSayWhatAndWhere)
{
	const std::pair<const char*, const char*> Cases[] = {
		{"{\"datas\":[\n  {},\n  }\n]}", ":3:3: not JSON"},
		{R"({"comments":[]})", ": is JSON with no comments in it: its list \"comments\" is empty"},
		{R"({"caf\u00e9":1})", ": is JSON, but in no known form of comments"},
		{R"({"d\u0061tas":{}})", "known form of comments"},
		{R"({"datas":{}})", ": its \"datas\" is not a list of comments"},
		{"Dear diary", ": is in no known format"},
	};
	for (const auto& [Text, Said] : Cases)
	{
		for (const FFilterOptions& Filters : {FFilterOptions(), Block("x")})
		{
			EXPECT_FALSE(Load(Text, Filters));
			EXPECT_THAT(Error, AllOf(StartsWith(Folder.string()), HasSubstr(Said)));
		}
	}
}

} // namespace
} // namespace Flitmark::Testing
