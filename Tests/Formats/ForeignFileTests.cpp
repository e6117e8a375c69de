#include "Formats/ForeignFile.h"
#include "Formats/CommentFormat.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

using namespace std::string_literals;
using testing::HasSubstr;

struct FForeignCase
{
	std::string Head;
	const char* Said;
};

const FForeignCase Cases[] = {
	{"", "is empty"},
	{" \r\n ", "nothing but blanks"},
	{std::string(5000, '\0'), "begins with nothing but zeros"},
	{"\0\0\0\x20"
	 "ftypisom"s,
	 "is a video (MP4), not comments; where both are named, the video comes first"},
	{"\x1A\x45\xDF\xA3\x01"s, "is a video (Matroska or WebM)"},
	{"RIFF\1\2\3\4AVI LIST"s, "is a video (AVI)"},
	{"G"s + std::string(187, 'x') + "G" + std::string(187, 'y') + "G" + std::string(187, 'z') + "G...", "(MPEG-TS)"},
	{"\x89PNG\r\n\x1A\n"s, "is a picture (PNG), not comments"},
	{"PK\3\4...."s, "is a ZIP archive; unpack it first"},
	{"\x28\xB5\x2F\xFD...."s, "is compressed with zstd; unpack it first"},
	{"\xEF\xBB\xBF[Script Info]\nTitle: x\n", "is a file of subtitles (ASS), not comments"},
	{"1\r\n00:00:01,000 --> 00:00:02,500\r\nHello\r\n", "is a file of subtitles (SRT)"},
	{"\n\n12\n\n0:00:01.000 --> 00:00:02.500 X1:1\nHello\n", "is a file of subtitles (SRT)"},
	{"WEBVTT - x\n\n00:01.000 --> 00:02.000\nHello", "is a file of subtitles (WebVTT)"},
	{"<?xml version=\"1.0\"?>\n<!-- x -->\n<tt xmlns=\"http://www.w3.org/ns/ttml\">", "is a file of subtitles (TTML)"},
	{"<!DocType HTML><HTML>", "is a web page, not comments"},
	{"7 dwarfs --> 1", "is in no known format of comments; these are known: binary list, XML list,"},
	{R"({"wireMagic":"pb3","events":[{"tStartMs":1,"segs":[{"utf8":"x"}]}]})",
	 "looks like subtitles; that is not read"},
	{R"({"font_size":0.4,"background_color":"#9C27B0","body":[{"from":1.2,"to":2,"location":2,"content":"x"}]})",
	 "looks like subtitles"},
	{R"({"id":"x","formats":[{}],"webpage_url":"y"})", "looks like a description of a video"},
	{R"({"comments":[{"id":"x","text":"y","like_count":1,"author":"z"}]})", "written below a video"},
	{R"({"code":-404,"message":"no such video","ttl":1})",
	 R"(a service's answer to a failed request: -404, "no such video"; get the comments anew)"},
	{R"({"code":0,"message":"0","data":{"comments": [ ],"count":0}})", R"(its list "comments" is empty)"},
	{R"({"elems":[]})", R"(no comments in it: its list "elems" is empty)"},
	{R"({"name":"x","version":1})", R"(in no known form of comments; it has the members "name", "version")"},
	{R"([ {"a":"}\"","b":{"x":[1]},"c":2,"d":3,"e":4,"f":5} ])",
	 R"(it has a list of objects with the members "a", "b", "c", "d", "e", ...)"},
	{R"({"solo":1)", R"(it has the member "solo")"},
	{"{\"a\nb\x01\":1}", R"(the member "a b")"},
	{"[1,2,3]", "is JSON, or looks like it"},
	{"{", "is JSON, or looks like it"},
};

} // namespace

TEST(ForeignFile, IsNamed)
{
	for (const FForeignCase& Case : Cases)
	{
		EXPECT_THAT(DescribeForeign(Case.Head), HasSubstr(Case.Said)) << Case.Head;
	}
}

/** A file that can be read is never called foreign: the two tables must not claim the same files. */
TEST(ForeignFile, IsNoKnownFormat)
{
	for (const FForeignCase& Case : Cases)
	{
		const FCommentFormat* const Format = DetectFormat(Case.Head);
		EXPECT_TRUE(Format == nullptr || Format == &OwnDocumentFormat) << Case.Head;
	}
}

} // namespace Flitmark
