#include "Files/UnpackedSource.h"
#include "Formats/CommentSource.h"
#include "ImportKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <string_view>

namespace Flitmark
{

namespace
{

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int Gzip = 16 + MAX_WBITS;
constexpr int Zlib = MAX_WBITS;
constexpr int Deflate = -MAX_WBITS;

std::string Pack(const std::string& InBytes, int InWindowBits, int InLevel = Z_DEFAULT_COMPRESSION)
{
	z_stream Stream = {};
	EXPECT_EQ(deflateInit2(&Stream, InLevel, Z_DEFLATED, InWindowBits, 8, Z_DEFAULT_STRATEGY), Z_OK);
	std::string Packed(deflateBound(&Stream, InBytes.size()), '\0');
	std::string Input = InBytes;
	Stream.next_in = reinterpret_cast<Bytef*>(Input.data());
	Stream.avail_in = static_cast<uInt>(Input.size());
	Stream.next_out = reinterpret_cast<Bytef*>(Packed.data());
	Stream.avail_out = static_cast<uInt>(Packed.size());
	EXPECT_EQ(deflate(&Stream, Z_FINISH), Z_STREAM_END);
	Packed.resize(Stream.total_out);
	deflateEnd(&Stream);
	return Packed;
}

/** Each line differs, as comments do. */
std::string MakeXml(int InCount)
{
	std::string Xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<i>\n";
	for (int Index = 0; Index < InCount; ++Index)
	{
		const std::string Number = std::to_string(Index);
		Xml += "<d p=\"" + Number + ",1,25,16777215,1600000000,0,ab," + Number + "\">text " + Number + "</d>\n";
	}
	return Xml + "</i>\n";
}

struct FPackedCase
{
	const char* Name;
	std::string Bytes;
	std::size_t NumComments;
	const char* Warning;
};

constexpr int Many = 4'000;

std::vector<FPackedCase> MakeCases()
{
	const std::string Xml = MakeXml(Many);
	const std::string Packed = Pack(Xml, Gzip);
	const std::size_t Half = Xml.size() / 2;
	std::string Damaged = Packed;
	Damaged[Damaged.size() / 2] = static_cast<char>(~Damaged[Damaged.size() / 2]);
	Damaged.replace(Damaged.size() / 2 + 1, 40, std::string(40, '\xFF'));
	return {
		{"Gzip", Packed, Many, ""},
		{"Zlib", Pack(Xml, Zlib), Many, ""},
		{"ZlibFastest", Pack(Xml, Zlib, Z_BEST_SPEED), Many, ""},
		{"ZlibBest", Pack(Xml, Zlib, Z_BEST_COMPRESSION), Many, ""},
		{"ZlibSmallWindow", Pack(Xml, 10), Many, ""},
		{"BareDeflate", Pack(Xml, Deflate), Many, ""},
		{"BareDeflateStored", Pack(Xml, Deflate, Z_NO_COMPRESSION), Many, ""},
		{"TwoParts", Pack(Xml.substr(0, Half), Gzip) + Pack(Xml.substr(Half), Gzip), Many, ""},
		{"Padding", Packed + std::string(1000, '\0'), Many, ""},
		{"WrongChecksum", Packed.substr(0, Packed.size() - 8) + "12345678", Many, "is damaged"},
		{"NoEnd", Packed.substr(0, Packed.size() - 8), Many, "ends early"},
		{"Json", Pack(R"([{"position":1,"content":"x"}])", Gzip), 1, ""},
		{"JsonDeflate", Pack(R"([{"position":1,"content":"x"}])", Deflate), 1, ""},
		{"Messages",
		 Pack("\x0A\x05\x3A\x03"
			  "abc",
			  Gzip),
		 1, ""},
		{"Utf16", Pack(std::string("\xFF\xFE<\0d\0 \0p\0=\0\"\0001\0\"\0>\0x\0<\0/\0d\0>\0"sv), Gzip), 1, ""},
	};
}

} // namespace

TEST(Packed, IsReadLikeWhatIsInIt)
{
	for (const FPackedCase& Case : MakeCases())
	{
		for (const std::size_t PieceSize : {std::size_t{1}, std::size_t{4093}, Case.Bytes.size()})
		{
			FMemorySource Source(Case.Bytes, PieceSize);
			FImportResult Result;
			std::string Error;
			ASSERT_TRUE(ImportComments(Source, Result, Error)) << Case.Name << ": " << Error;
			EXPECT_EQ(Result.Report.NumRead, Case.NumComments) << Case.Name;
			EXPECT_EQ(Result.Report.NumBroken, 0U) << Case.Name;
			EXPECT_THAT(Result.Report.Warnings.empty() ? "" : Result.Report.Warnings[0], HasSubstr(Case.Warning))
				<< Case.Name;
			EXPECT_EQ(Result.Report.Warnings.empty(), *Case.Warning == '\0') << Case.Name;
		}
	}
}

TEST(Packed, DamagedOrCutBytesGiveWhatComesBefore)
{
	const std::string Packed = Pack(MakeXml(Many), Gzip);
	std::string Damaged = Packed;
	Damaged.replace(Damaged.size() / 2, 60, std::string(60, '\xFF'));
	for (const std::string& Bytes : {Packed.substr(0, Packed.size() / 2), Damaged})
	{
		const FImportResult Result = ImportText(Bytes);
		EXPECT_GT(Result.Report.NumRead, static_cast<uint64>(Many / 4));
		EXPECT_LT(Result.Report.NumRead, static_cast<uint64>(Many));
		EXPECT_EQ(Result.Comments[Many / 4].Text, "text " + std::to_string(Many / 4));
		EXPECT_FALSE(Result.Report.Warnings.empty());
	}
}

TEST(Packed, TheRestOfADocumentThatIsCutIsMissed)
{
	const std::string Document = R"({"datas":[{"danmaku_content":"x"}]})";
	EXPECT_EQ(ImportText(Pack(Document, Gzip)).Report.NumRead, 1U);
	const std::string Packed = Pack(Document + std::string(100'000, ' '), Gzip, Z_NO_COMPRESSION);
	FMemorySource Cut(std::string_view(Packed).substr(0, 70'000));
	FCommentSource Source(Cut);
	while (!Source.ReadUpTo(DetectionSize).empty())
	{
	}
	EXPECT_EQ(Source.GetError(), "");
	EXPECT_THAT(Source.GetDamage(), HasSubstr("ends early"));
}

TEST(Packed, ABombIsRefused)
{
	// Starts with comments, so that it is read on, followed by many bytes of next to nothing.
	const std::string Bomb = Pack(MakeXml(10) + std::string(std::size_t{80} << 20, ' '), Gzip);
	EXPECT_THAT(ImportRefused(Bomb), HasSubstr("unpacks to hundreds of times its size"));
	EXPECT_THAT(ImportRefused(Pack(std::string(std::size_t{80} << 20, '\0'), Gzip)), HasSubstr("nothing but zeros"));
}

TEST(Packed, NothingElseIsTakenForCompressed)
{
	for (const std::string_view Head : {"", "x", "x^2 + y", "hello", "<i></i>", "{}", "\x1F\x8B", "\x1F\x8B\x09zzzz"})
	{
		EXPECT_EQ(FindCompression(Head), ECompression::None) << Head;
	}
	EXPECT_EQ(UnpackHead(Pack("abcdef", Deflate), ECompression::Deflate, 3), "abc");
	EXPECT_THAT(ImportRefused("\x1F\x8B\x08 this is no gzip"), HasSubstr("is empty"));
}

} // namespace Flitmark
