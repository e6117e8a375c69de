#include "CommentDocumentWriter.h"

#include "CleanText.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <rapidjson/writer.h>

namespace Flitmark
{

namespace
{

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

/** `year.month.day-hour.minute.second`; false where it is beyond four digits of year. */
bool FormatDate(std::int64_t InUnixSeconds, char (&OutText)[20])
{
	constexpr std::int64_t Year10000 = 253'402'300'800;
	constexpr std::int64_t Year1 = -62'135'596'800;
	if (InUnixSeconds < Year1 || InUnixSeconds >= Year10000)
	{
		return false;
	}
	using namespace std::chrono;
	const sys_seconds Time{seconds(InUnixSeconds)};
	const sys_days Day = floor<days>(Time);
	const year_month_day Date(Day);
	const hh_mm_ss Clock(Time - Day);
	const auto Put = [&OutText](int InPlace, int InNumDigits, int InValue)
	{
		for (int Digit = InPlace + InNumDigits - 1; Digit >= InPlace; --Digit)
		{
			OutText[Digit] = static_cast<char>('0' + InValue % 10);
			InValue /= 10;
		}
	};
	constexpr std::string_view Form = "0000.00.00-00.00.00";
	Form.copy(OutText, Form.size());
	Put(0, 4, static_cast<int>(Date.year()));
	Put(5, 2, static_cast<int>(static_cast<unsigned>(Date.month())));
	Put(8, 2, static_cast<int>(static_cast<unsigned>(Date.day())));
	Put(11, 2, static_cast<int>(Clock.hours().count()));
	Put(14, 2, static_cast<int>(Clock.minutes().count()));
	Put(17, 2, static_cast<int>(Clock.seconds().count()));
	return true;
}

/** `#RRGGBB`, and the opacity where it is not full. */
std::string_view FormatColor(std::uint32_t InColor, char (&OutText)[9])
{
	constexpr char Digits[] = "0123456789ABCDEF";
	OutText[0] = '#';
	for (unsigned Digit = 0; Digit < 8; ++Digit)
	{
		OutText[1 + Digit] = Digits[InColor >> (28 - 4 * Digit) & 15];
	}
	return {OutText, (InColor & 0xFF) == 0xFF ? 7U : 9U};
}

class FCommentWriter
{
public:
	explicit FCommentWriter(std::string& OutText)
		: Stream(OutText)
	{
	}

	void Write(const FServiceComment& InComment)
	{
		Writer.Reset(Stream);
		Writer.StartObject();
		WriteInteger("danmaku_id", InComment.Id);
		WriteInteger("post_id", InComment.PostId);
		WriteInteger("user_id", InComment.UserId);
		WriteText("user_display_name", InComment.UserName);
		char Date[20];
		if (InComment.PostDate != 0 && FormatDate(InComment.PostDate, Date))
		{
			WriteText("danmaku_post_date", {Date, 19});
		}
		WriteInteger("danmaku_spawn_time", InComment.SpawnTicks);
		WriteText("danmaku_content", InComment.Text);
		WriteInteger("danmaku_mode", ToMode(InComment.Kind));
		WriteInteger("danmaku_font_size", InComment.FontSize);
		char Color[9];
		WriteText("danmaku_font_color", FormatColor(InComment.Color, Color));
		Writer.EndObject();
	}

private:
	void WriteKey(std::string_view InKey) { Writer.Key(InKey.data(), static_cast<rapidjson::SizeType>(InKey.size())); }

	void WriteInteger(std::string_view InKey, std::int64_t InValue)
	{
		WriteKey(InKey);
		Writer.Int64(InValue);
	}

	void WriteText(std::string_view InKey, std::string_view InValue)
	{
		WriteKey(InKey);
		Writer.String(InValue.data(), static_cast<rapidjson::SizeType>(InValue.size()));
	}

	FStringStream Stream;
	FJsonWriter Writer{Stream};
};

} // namespace

bool WriteCommentDocument(std::span<const FServiceComment> InComments, const FTextOutput& InOutput)
{
	constexpr std::size_t PieceSize = std::size_t{64} << 10;
	std::string Piece = "{\"datas\":[";
	FCommentWriter Writer(Piece);
	bool bFirst = true;
	for (const FServiceComment& Comment : InComments)
	{
		Piece += bFirst ? "\n" : ",\n";
		bFirst = false;
		if (Comment.Source.empty())
		{
			Writer.Write(Comment);
		}
		else
		{
			Piece += Comment.Source;
		}
		if (Piece.size() >= PieceSize)
		{
			// Importers give UTF-8 alone, but nothing keeps others from putting anything into a comment.
			MakeUtf8(Piece);
			if (!InOutput(Piece))
			{
				return false;
			}
			Piece.clear();
		}
	}
	Piece += "\n]}\n";
	MakeUtf8(Piece);
	return InOutput(Piece);
}

std::string WriteCommentDocument(std::span<const FServiceComment> InComments)
{
	std::string Document;
	WriteCommentDocument(InComments,
						 [&Document](std::string_view InPiece)
						 {
							 Document += InPiece;
							 return true;
						 });
	return Document;
}

} // namespace Flitmark
