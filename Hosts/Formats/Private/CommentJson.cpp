#include "CommentJson.h"

#include "Formats/CleanText.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstring>
#include <rapidjson/writer.h>

namespace Flitmark
{

namespace
{

constexpr int64 SecondsPerDay = 86'400;

/** What a RapidJSON writer writes to. */
class FStringStream
{
public:
	using Ch = char;

	explicit FStringStream(std::string& OutText)
		: Text(OutText)
	{
	}

	void Put(char InCharacter) { Text += InCharacter; }
	void Flush() {}

private:
	std::string& Text;
};

using FJsonWriter = rapidjson::Writer<FStringStream, rapidjson::UTF8<>, rapidjson::UTF8<>, rapidjson::CrtAllocator,
									  rapidjson::kWriteNoFlags>;

/** Whether any of eight bytes is a quote, a backslash or a control character. */
bool NeedsEscape(uint64 InEight)
{
	constexpr uint64 Ones = 0x0101010101010101U;
	const uint64 Quotes = InEight ^ Ones * '"';
	const uint64 Backslashes = InEight ^ Ones * '\\';
	// A byte below a limit, and without a high bit of its own, has one when the limit is taken off.
	const uint64 Marked =
		((InEight - Ones * 0x20) & ~InEight) | ((Quotes - Ones) & ~Quotes) | ((Backslashes - Ones) & ~Backslashes);
	return (Marked & Ones * 0x80) != 0;
}

bool NeedsEscape(std::string_view InText)
{
	constexpr std::size_t Step = sizeof(uint64);
	uint64 Eight = 0;
	for (; InText.size() >= Step; InText.remove_prefix(Step))
	{
		std::memcpy(&Eight, InText.data(), Step);
		if (NeedsEscape(Eight))
		{
			return true;
		}
	}
	std::memset(&Eight, ' ', Step);
	std::memcpy(&Eight, InText.data(), InText.size());
	return NeedsEscape(Eight);
}

/** A text as it stands between JSON's quotes; OutStorage holds it where that is not the text itself. */
std::string_view Escape(std::string_view InText, std::string& OutStorage)
{
	const bool bUtf8 = IsUtf8(InText);
	if (bUtf8 && !NeedsEscape(InText))
	{
		return InText;
	}
	// Importers give UTF-8 alone, but nothing keeps others from putting anything into a comment.
	std::string Repaired;
	if (!bUtf8)
	{
		Repaired = InText;
		MakeUtf8(Repaired);
		InText = Repaired;
	}
	OutStorage.clear();
	FStringStream Stream(OutStorage);
	FJsonWriter(Stream).String(InText.data(), static_cast<rapidjson::SizeType>(InText.size()));
	return std::string_view(OutStorage).substr(1, OutStorage.size() - 2);
}

int ToMode(ECommentKind InKind)
{
	constexpr int NotShown = 3;
	switch (InKind)
	{
	case ECommentKind::Scroll:
		return 0;
	case ECommentKind::Top:
		return 1;
	case ECommentKind::Bottom:
		return 2;
	default:
		return NotShown;
	}
}

// These write to a place with room enough, and return the place behind.

char* Put(char* OutText, std::string_view InText)
{
	std::memcpy(OutText, InText.data(), InText.size());
	return OutText + InText.size();
}

char* PutInteger(char* OutText, int64 InValue)
{
	constexpr std::size_t Longest = 20;
	return std::to_chars(OutText, OutText + Longest, InValue).ptr;
}

char* PutTwoDigits(char* OutText, unsigned InValue)
{
	OutText[0] = static_cast<char>('0' + InValue / 10);
	OutText[1] = static_cast<char>('0' + InValue % 10);
	return OutText + 2;
}

/** `#RRGGBB`, and the opacity where it is not full. */
char* PutColor(char* OutText, uint32 InColor)
{
	constexpr char Digits[] = "0123456789ABCDEF";
	const unsigned NumDigits = (InColor & 0xFF) == 0xFF ? 6 : 8;
	*OutText++ = '#';
	for (unsigned Digit = 0; Digit < NumDigits; ++Digit)
	{
		*OutText++ = Digits[InColor >> (28 - 4 * Digit) & 15];
	}
	return OutText;
}

std::string FormatDay(int64 InDay)
{
	using namespace std::chrono;
	const year_month_day Date{sys_days(days(InDay))};
	const auto Year = static_cast<unsigned>(static_cast<int>(Date.year()));
	std::string Text = "0000.00.00-";
	PutTwoDigits(Text.data(), Year / 100);
	PutTwoDigits(Text.data() + 2, Year % 100);
	PutTwoDigits(Text.data() + 5, static_cast<unsigned>(Date.month()));
	PutTwoDigits(Text.data() + 8, static_cast<unsigned>(Date.day()));
	return Text;
}

/** Whether a date is told, and has no more than four digits of year. */
bool HasDate(int64 InUnixSeconds)
{
	constexpr int64 Year10000 = 253'402'300'800;
	constexpr int64 Year1 = -62'135'596'800;
	return InUnixSeconds != 0 && InUnixSeconds >= Year1 && InUnixSeconds < Year10000;
}

} // namespace

std::string QuoteJson(std::string_view InText)
{
	std::string Storage;
	return "\"" + std::string(Escape(InText, Storage)) + "\"";
}

void FCommentJson::Add(std::string_view InText)
{
	Put(MakeRoom(InText.size()), InText);
	Size += InText.size();
}

void FCommentJson::AddComment(const FServiceComment& InComment)
{
	if (!InComment.Source.empty())
	{
		std::string Repaired;
		const bool bUtf8 = IsUtf8(InComment.Source);
		if (!bUtf8)
		{
			Repaired = InComment.Source;
			MakeUtf8(Repaired);
		}
		Add(bUtf8 ? InComment.Source : Repaired);
		return;
	}
	constexpr std::size_t AllButTexts = 512;
	const std::string_view Name = Escape(InComment.UserName, NameStorage);
	const std::string_view Text = Escape(InComment.Text, TextStorage);
	char* const Begin = MakeRoom(AllButTexts + Name.size() + Text.size());
	char* At = PutInteger(Put(Begin, "{\"danmaku_id\":"), InComment.Id);
	At = PutInteger(Put(At, ",\"post_id\":"), InComment.PostId);
	At = PutInteger(Put(At, ",\"user_id\":"), InComment.UserId);
	At = Put(Put(At, ",\"user_display_name\":\""), Name);
	if (HasDate(InComment.PostDate))
	{
		At = PutDate(Put(At, "\",\"danmaku_post_date\":\""), InComment.PostDate);
	}
	At = PutInteger(Put(At, "\",\"danmaku_spawn_time\":"), InComment.SpawnTicks);
	At = Put(Put(At, ",\"danmaku_content\":\""), Text);
	At = PutInteger(Put(At, "\",\"danmaku_mode\":"), ToMode(InComment.Kind));
	At = PutInteger(Put(At, ",\"danmaku_font_size\":"), InComment.FontSize);
	At = PutColor(Put(At, ",\"danmaku_font_color\":\""), InComment.Color);
	At = Put(At, "\"}");
	Size += static_cast<std::size_t>(At - Begin);
}

/** Where to write so many bytes. */
char* FCommentJson::MakeRoom(std::size_t InSize)
{
	if (Buffer.size() - Size < InSize)
	{
		Buffer.resize(std::max(Buffer.size() * 2, Size + InSize));
	}
	return Buffer.data() + Size;
}

/** `year.month.day-hour.minute.second`. */
char* FCommentJson::PutDate(char* OutText, int64 InUnixSeconds)
{
	const int64 Cut = InUnixSeconds / SecondsPerDay;
	const int64 Wanted = Cut * SecondsPerDay > InUnixSeconds ? Cut - 1 : Cut;
	if (Wanted != Day)
	{
		Day = Wanted;
		DayText = FormatDay(Day);
	}
	const auto Clock = static_cast<unsigned>(InUnixSeconds - Day * SecondsPerDay);
	char* At = PutTwoDigits(Put(OutText, DayText), Clock / 3600);
	*At++ = '.';
	At = PutTwoDigits(At, Clock / 60 % 60);
	*At++ = '.';
	return PutTwoDigits(At, Clock % 60);
}

} // namespace Flitmark
