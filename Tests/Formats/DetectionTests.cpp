#include "ImportKit.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

std::string ToUtf16(std::string_view InAscii, bool bInBigEndian)
{
	std::string Wide;
	for (const char Character : InAscii)
	{
		Wide += bInBigEndian ? std::string{'\0', Character} : std::string{Character, '\0'};
	}
	return Wide;
}

constexpr std::string_view Entry = "<i><d p=\"1\">x</d></i>";

} // namespace

TEST(Detection, IsByContent)
{
	struct FCase
	{
		std::string_view Head;
		std::string_view Format;
	};
	const FCase Cases[] = {
		{"", ""},
		{"   \n", ""},
		{"plain text", ""},
		{"[]", ""},
		{"[1,2,3]", ""},
		{"{}", "document"},
		{"\xEF\xBB\xBF {\"datas\":[]}", "document"},
		{"{\"x\":[{\"datas\":[]}]}", "document"},
		{R"({"datas":[{"vpos":1,"p":"","m":""}]})", "document"},
		{"<i></i>", "list-xml"},
		{"<d p='1'>", "list-xml"},
		{"<?xml version=\"1.0\"?><!-- x --><packet/>", "chat-xml"},
		{"<!DOCTYPE html><html><i>x</i><d>y</d></html>", ""},
		{"<packet><chat vpos=\"1\">", "chat-xml"},
		{R"([{"m":"x","p":"1)", "parameters-json"},
		{R"({"m":1,"p":2})", "document"},
		{R"([{"c":"1","n":"x"}])", ""},
		{R"({"data":[[1.5,0,"#FFF","u","x"]]})", "rows-json"},
		{R"({"data":[[1,2],[3,4]]})", "document"},
		{R"({"meta":{},"threads":[{"comments":[{"vposMs":1)", "chat-json"},
		{R"([{"vpos":1}])", "chat-json"},
		{R"({"chat":{"content":"x"}})", "chat-json"},
		{R"({"chat":"x"})", "document"},
		{R"([{"position":1,"content":"x"}])", "objects-json"},
		{R"([{"position":1}])", ""},
		{"\n{\"datas\":[]}", "document"},
		{"f.g( [{\"vpos\":1}])", "chat-json"},
		{"\x0A\x05\x3A\x03"
		 "abc",
		 "list-protobuf"},
		{"\x0A\x7F\x08\x01\x10\x02\x3A\x7E"
		 "abc",
		 "list-protobuf"},
		{"\x0A\x03"
		 "abc",
		 ""},
	};
	for (const FCase& Case : Cases)
	{
		const FCommentFormat* const Format = DetectFormat(Case.Head);
		EXPECT_EQ(Format != nullptr ? Format->Name : "", Case.Format) << Case.Head;
	}
}

TEST(FormatTable, NamesAreUniqueAndTheGuideListsEachFormat)
{
	std::ifstream File(FORMATS_GUIDE);
	const std::string Guide{std::istreambuf_iterator<char>(File), {}};
	for (const FCommentFormat* const Format : GetCommentFormats())
	{
		EXPECT_EQ(FindCommentFormat(Format->Name), Format) << Format->Name;
		EXPECT_NE(Guide.find("\n| " + std::string(Format->Title) + " |"), std::string::npos) << Format->Title;
	}
	EXPECT_EQ(FindCommentFormat("none"), nullptr);
}

TEST(Encoding, OfAnyKindIsRead)
{
	using namespace std::string_literals;
	const std::string Declared = "<?xml version=\"1.0\" encoding=\"";
	const std::string Tail = "\"?><i><d p=\"1\">";
	struct FCase
	{
		const char* Name;
		std::string File;
		const char* Text;
		std::size_t NumWarnings;
	};
	const FCase Cases[] = {
		{"mark", "\xEF\xBB\xBF" + std::string(Entry), "x", 0},
		{"UTF-16LE with mark", "\xFF\xFE" + ToUtf16(Entry, false), "x", 0},
		{"UTF-16BE with mark", "\xFE\xFF" + ToUtf16(Entry, true), "x", 0},
		{"UTF-16LE", ToUtf16(Entry, false), "x", 0},
		{"UTF-16BE", ToUtf16(Entry, true), "x", 0},
		{"UTF-16 that declares itself", "\xFF\xFE" + ToUtf16(Declared + "UTF-16" + Tail + "x</d></i>", false), "x", 0},
		{"lone surrogate, odd end",
		 "\xFF\xFE" + ToUtf16("<d p=\"1\">a", false) + "\x3D\xD8" + ToUtf16("b</d>", false) + "x", "a\uFFFDb", 0},
		{"Shift-JIS", Declared + "Shift_JIS" + Tail + "\x82\xA0</d></i>", "あ", 0},
		{"declared", Declared + "GB18030" + Tail + "\xC4\xE3\xBA\xC3</d></i>", "你好", 0},
		{"declared with wrong bytes", Declared + "EUC-JP" + Tail + "\xA4\xA2\xA4 b</d></i>", "あ\uFFFD b", 0},
		{"declared, but UTF-8", Declared + "gbk" + Tail + "你好世界</d></i>", "你好世界", 1},
		{"unknown", Declared + "x-nonsense" + Tail + "你</d></i>", "你", 1},
		{"no superset of ASCII", Declared + "UTF-16" + Tail + "你</d></i>", "你", 1},
		{"declared UTF-8", Declared + "utf8" + Tail + "你</d></i>", "你", 0},
	};
	for (const FCase& Case : Cases)
	{
		const FImportResult Result = ImportText(Case.File);
		ASSERT_EQ(Result.Comments.size(), 1U) << Case.Name;
		EXPECT_EQ(Result.Comments[0].Text, Case.Text) << Case.Name;
		EXPECT_EQ(Result.Report.Warnings.size(), Case.NumWarnings) << Case.Name;
	}
}

TEST(Encoding, ReachesFarIntoAFile)
{
	std::string Text = "<i>";
	for (int Index = 0; Index < 20000; ++Index)
	{
		Text += "<d p=\"1\">x</d>\n";
	}
	const FImportResult Result = ImportText("\xFF\xFE" + ToUtf16(Text, false));
	EXPECT_EQ(Result.Report.NumRead, 20000U);
	EXPECT_EQ(Result.Report.NumBroken, 0U);
}

TEST(Import, RefusesWhatItDoesNotKnow)
{
	EXPECT_EQ(ImportRefused(""), "is empty");
	EXPECT_NE(
		ImportRefused("plain text").find("in no known format of comments; these are known: binary list, XML list,"),
		std::string::npos);
	EXPECT_NE(ImportRefused("{\"x\":1}").find("\"datas\""), std::string::npos);
	FImportResult Result;
	std::string Error;
	EXPECT_FALSE(ImportComments(std::filesystem::path("/nowhere/x.xml"), Result, Error));
	EXPECT_EQ(Error, "/nowhere/x.xml: cannot be opened: No such file or directory");
	EXPECT_FALSE(ImportComments(std::filesystem::temp_directory_path(), Result, Error));
	EXPECT_NE(Error.find("is a folder"), std::string::npos);
}

TEST(Import, TellsOfAnErrorOnTheWay)
{
	struct FFailing final : IByteSource
	{
		std::size_t Read(char* OutData, std::size_t InSize) override
		{
			return bGiven ? 0 : (bGiven = true, Entry.copy(OutData, InSize));
		}
		std::string GetError() const override { return "the disk is gone"; }
		bool bGiven = false;
	};
	FFailing Source;
	FImportResult Result;
	std::string Error;
	EXPECT_FALSE(ImportComments(Source, Result, Error));
	EXPECT_EQ(Error, "the disk is gone");
}

TEST(Import, ReadsEveryFileOfTheCorpus)
{
	std::size_t NumFiles = 0;
	for (const auto& File : std::filesystem::recursive_directory_iterator(FORMATS_CORPUS))
	{
		if (File.is_regular_file())
		{
			FImportResult Result;
			std::string Error;
			const bool bRead = ImportComments(File.path(), Result, Error);
			EXPECT_EQ(bRead, Error.empty()) << File.path();
			++NumFiles;
		}
	}
	EXPECT_GT(NumFiles, 20U);
}

} // namespace Flitmark
