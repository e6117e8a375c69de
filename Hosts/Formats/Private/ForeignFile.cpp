#include "Formats/ForeignFile.h"

#include "ForeignJson.h"
#include "Formats/CommentFormat.h"
#include "TextDecoding.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

using namespace std::string_view_literals;

constexpr std::string_view VideoAdvice = ", not comments; where both are named, the video comes first";
constexpr std::string_view UnpackAdvice = "; unpack it first";
constexpr std::string_view NoAdvice = ", not comments";

/** Bytes at a place by which a kind of file is known. */
struct FSignature
{
	std::size_t Offset;
	std::string_view Bytes;
	std::string_view What;
	std::string_view Advice;
};

constexpr FSignature Signatures[] = {
	{4, "ftyp"sv, "a video (MP4)", VideoAdvice},
	{4, "moov"sv, "a video (MOV)", VideoAdvice},
	{0, "\x1A\x45\xDF\xA3"sv, "a video (Matroska or WebM)", VideoAdvice},
	{8, "AVI "sv, "a video (AVI)", VideoAdvice},
	{0, "FLV\x01"sv, "a video (FLV)", VideoAdvice},
	{0, "OggS"sv, "a video or a sound (Ogg)", VideoAdvice},
	{0, "\0\0\x01\xBA"sv, "a video (MPEG)", VideoAdvice},
	{0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11"sv, "a video (ASF)", VideoAdvice},
	{8, "WAVE"sv, "a sound (WAV)", NoAdvice},
	{0, "ID3"sv, "a sound (MP3)", NoAdvice},
	{0, "fLaC"sv, "a sound (FLAC)", NoAdvice},
	{0, "\x89PNG\r\n"sv, "a picture (PNG)", NoAdvice},
	{0, "\xFF\xD8\xFF"sv, "a picture (JPEG)", NoAdvice},
	{0, "GIF8"sv, "a picture (GIF)", NoAdvice},
	{8, "WEBP"sv, "a picture (WebP)", NoAdvice},
	{0, "%PDF-"sv, "a PDF", NoAdvice},
	{0, "SQLite format 3\0"sv, "a database (SQLite)", NoAdvice},
	{0, "PK\x03\x04"sv, "a ZIP archive", UnpackAdvice},
	{0, "Rar!\x1A"sv, "a RAR archive", UnpackAdvice},
	{0, "7z\xBC\xAF\x27\x1C"sv, "a 7z archive", UnpackAdvice},
	{257, "ustar"sv, "a tar archive", UnpackAdvice},
	{0,
	 "\xFD"
	 "7zXZ"sv,
	 "compressed with xz", UnpackAdvice},
	{0, "BZh"sv, "compressed with bzip2", UnpackAdvice},
	{0, "\x28\xB5\x2F\xFD"sv, "compressed with zstd", UnpackAdvice},
};

/** Words that a text begins with, in lower case. */
struct FOpening
{
	std::string_view Words;
	std::string_view What;
	std::string_view Advice;
};

constexpr std::string_view SubtitleAdvice =
	", not comments; players show it themselves, and \"ffmpeg\" burns it into a video";
constexpr std::string_view PageAdvice =
	", not comments; where a download was to bring comments, look at it in a browser to see what went wrong";

constexpr FOpening Openings[] = {
	{"[script info]", "a file of subtitles (ASS)", SubtitleAdvice},
	{"[v4", "a file of subtitles (ASS)", SubtitleAdvice},
	{"dialogue:", "a file of subtitles (ASS)", SubtitleAdvice},
	{"webvtt", "a file of subtitles (WebVTT)", SubtitleAdvice},
	{"<tt", "a file of subtitles (TTML)", SubtitleAdvice},
	{"<sami", "a file of subtitles (SAMI)", SubtitleAdvice},
	{"<transcript", "a file of subtitles (XML)", SubtitleAdvice},
	{"<timedtext", "a file of subtitles (XML)", SubtitleAdvice},
	{"<!doctype html", "a web page", PageAdvice},
	{"<html", "a web page", PageAdvice},
	{"#extm3u", "a playlist", NoAdvice},
	{"ffconcat", "a playlist", NoAdvice},
};

std::string Say(std::string_view InWhat, std::string_view InAdvice)
{
	return "is " + std::string(InWhat) + std::string(InAdvice);
}

const FSignature* FindSignature(std::string_view InHead)
{
	const auto* const Found = std::ranges::find_if(
		Signatures, [&](const FSignature& InSignature)
		{ return InHead.substr(std::min(InSignature.Offset, InHead.size())).starts_with(InSignature.Bytes); });
	return Found == std::end(Signatures) ? nullptr : Found;
}

/** Packets of 188 bytes, each with the same first byte; some have a time of four bytes before it. */
bool IsTransportStream(std::string_view InHead)
{
	const auto HasPackets = [InHead](std::size_t InFirst, std::size_t InSize)
	{
		constexpr std::size_t NumPackets = 4;
		for (std::size_t Packet = 0; Packet < NumPackets; ++Packet)
		{
			const std::size_t Place = InFirst + Packet * InSize;
			if (Place >= InHead.size() || InHead[Place] != 'G')
			{
				return false;
			}
		}
		return true;
	};
	return HasPackets(0, 188) || HasPackets(4, 192);
}

bool IsDigit(char InCharacter)
{
	return InCharacter >= '0' && InCharacter <= '9';
}

/** A number, a line with two times and an arrow, then the words. */
bool IsSrt(std::string_view InText)
{
	const std::size_t LineEnd = InText.find_first_of("\r\n");
	const bool bNumber =
		LineEnd > 0 && LineEnd != std::string_view::npos && std::ranges::all_of(InText.substr(0, LineEnd), IsDigit);
	const std::string_view Rest = bNumber ? InText.substr(LineEnd) : std::string_view();
	const std::string_view Line = Rest.substr(std::min(Rest.find_first_not_of("\r\n"), Rest.size()));
	return Line.size() > 2 && IsDigit(Line[0]) &&
		   Line.substr(0, Line.find_first_of("\r\n")).find(" --> ") < Line.size();
}

/** Without the XML declaration and what else stands before the first element. */
std::string_view SkipProlog(std::string_view InText)
{
	while (InText.starts_with("<?") || InText.starts_with("<!--"))
	{
		const std::size_t End = InText.find('>');
		InText.remove_prefix(End == std::string_view::npos ? InText.size() : End + 1);
		InText.remove_prefix(std::min(InText.find_first_not_of(" \t\r\n"), InText.size()));
	}
	return InText;
}

const FOpening* FindOpening(std::string_view InText)
{
	const auto Begins = [InText](const FOpening& InOpening)
	{
		return std::ranges::equal(InText.substr(0, InOpening.Words.size()), InOpening.Words, {},
								  [](char InLetter) {
									  return InLetter >= 'A' && InLetter <= 'Z' ? static_cast<char>(InLetter | 0x20)
																				: InLetter;
								  });
	};
	const auto* const Found = std::ranges::find_if(Openings, Begins);
	return Found == std::end(Openings) ? nullptr : Found;
}

std::string ListFormats()
{
	std::string Titles;
	for (const FCommentFormat* const Format : GetCommentFormats())
	{
		Titles.append(Titles.empty() ? "these are known: " : ", ").append(Format->Title);
	}
	return Titles;
}

std::string DescribeText(std::string_view InText)
{
	if (const FOpening* const Opening = FindOpening(SkipProlog(InText)))
	{
		return Say(Opening->What, Opening->Advice);
	}
	if (IsSrt(InText))
	{
		return Say("a file of subtitles (SRT)", SubtitleAdvice);
	}
	if (InText.starts_with('{') || InText.starts_with('['))
	{
		return DescribeForeignJson(InText);
	}
	return "is in no known format of comments; " + ListFormats();
}

} // namespace

std::string DescribeForeign(std::string_view InHead)
{
	if (InHead.empty())
	{
		return "is empty";
	}
	if (const FSignature* const Signature = FindSignature(InHead))
	{
		return Say(Signature->What, Signature->Advice);
	}
	if (IsTransportStream(InHead))
	{
		return Say("a video (MPEG-TS)", VideoAdvice);
	}
	if (InHead.find_first_not_of('\0') == std::string_view::npos)
	{
		return "begins with nothing but zeros: it is damaged, or was never written; get it anew";
	}
	const std::string Decoded = DecodeHead(InHead, FindEncoding(InHead));
	std::string_view Text = Decoded;
	Text.remove_prefix(std::min(Text.find_first_not_of(" \t\r\n"), Text.size()));
	return Text.empty() ? "has nothing but blanks at its beginning" : DescribeText(Text);
}

} // namespace Flitmark
