#include "GeneratedFiles.h"

#include <cstdio>
#include <random>

namespace Flitmark
{

namespace
{

/** What the formats say about a comment, each in its own way. */
struct FDrawn
{
	long long Id = 0;
	double Seconds = 0.0;
	int Mode = 1;
	int Size = 25;
	unsigned Color = 0xFFFFFF;
	long long Sent = 0;
	unsigned Sender = 0;
	std::string Text;
};

class FDrawer
{
public:
	FDrawn Draw()
	{
		FDrawn Drawn;
		Drawn.Id = 20'000'000'000LL + static_cast<long long>(Random() % 1'000'000'000U);
		Drawn.Seconds = static_cast<double>(Random() % 7'200'000U) / 1000.0;
		Drawn.Mode = Random() % 10 == 0 ? (Random() % 2 == 0 ? 4 : 5) : 1;
		Drawn.Size = Random() % 20 == 0 ? 18 : 25;
		Drawn.Color = Random() % 4 == 0 ? Random() & 0xFFFFFF : 0xFFFFFF;
		Drawn.Sent = 1'600'000'000LL + Random() % 100'000'000U;
		Drawn.Sender = static_cast<unsigned>(Random());
		Drawn.Text = DrawText();
		return Drawn;
	}

private:
	/** 2 to 30 characters, four fifths of them of three bytes. */
	std::string DrawText()
	{
		constexpr std::string_view Ideographs =
			"的一是不了人我在有他这中大来上国个到说们为子和你地出道也时年得就那要下以生会自着去之过";
		constexpr std::string_view Ascii = "abcdefghijklmnopqrstuvwxyz 0123456789!?&";
		std::string Text;
		for (std::size_t Left = 2 + Random() % 29; Left > 0; --Left)
		{
			if (Random() % 5 != 0)
			{
				Text += Ideographs.substr(Random() % (Ideographs.size() / 3) * 3, 3);
			}
			else
			{
				Text += Ascii[Random() % Ascii.size()];
			}
		}
		return Text;
	}

	std::mt19937 Random;
};

template <typename... Types>
std::string Print(const char* InForm, Types... InValues)
{
	char Text[512];
	const int Size = std::snprintf(Text, sizeof(Text), InForm, InValues...);
	return {Text, static_cast<std::size_t>(Size)};
}

std::string EscapeXml(const std::string& InText)
{
	std::string Escaped;
	for (const char Character : InText)
	{
		Escaped += Character == '&' ? std::string("&amp;") : std::string(1, Character);
	}
	return Escaped;
}

void AppendVarint(std::string& OutBytes, uint64 InValue)
{
	for (; InValue >= 0x80; InValue >>= 7)
	{
		OutBytes += static_cast<char>(InValue | 0x80);
	}
	OutBytes += static_cast<char>(InValue);
}

void AppendNumber(std::string& OutBytes, int InField, uint64 InValue)
{
	AppendVarint(OutBytes, static_cast<uint64>(InField) << 3);
	AppendVarint(OutBytes, InValue);
}

void AppendBytes(std::string& OutBytes, int InField, const std::string& InValue)
{
	AppendVarint(OutBytes, static_cast<uint64>(InField) << 3 | 2);
	AppendVarint(OutBytes, InValue.size());
	OutBytes += InValue;
}

std::string MakeMessage(const FDrawn& InDrawn)
{
	std::string Entry;
	AppendNumber(Entry, 1, static_cast<uint64>(InDrawn.Id));
	AppendNumber(Entry, 2, static_cast<uint64>(InDrawn.Seconds * 1000.0));
	AppendNumber(Entry, 3, static_cast<uint64>(InDrawn.Mode));
	AppendNumber(Entry, 4, static_cast<uint64>(InDrawn.Size));
	AppendNumber(Entry, 5, InDrawn.Color);
	AppendBytes(Entry, 6, Print("%08x", InDrawn.Sender));
	AppendBytes(Entry, 7, InDrawn.Text);
	AppendNumber(Entry, 8, static_cast<uint64>(InDrawn.Sent));
	std::string Message;
	AppendBytes(Message, 1, Entry);
	return Message;
}

std::string MakeEntry(ECommentFormat InFormat, const FDrawn& InDrawn)
{
	const auto Milliseconds = static_cast<long long>(InDrawn.Seconds * 1000.0);
	switch (InFormat)
	{
	case ECommentFormat::ListXml:
		return Print("<d p=\"%.5f,%d,%d,%u,%lld,0,%08x,%lld\">", InDrawn.Seconds, InDrawn.Mode, InDrawn.Size,
					 InDrawn.Color, InDrawn.Sent, InDrawn.Sender, InDrawn.Id) +
			   EscapeXml(InDrawn.Text) + "</d>\n";
	case ECommentFormat::ChatXml:
		return Print("<chat thread=\"1600000000\" no=\"%lld\" vpos=\"%lld\" date=\"%lld\" mail=\"%s small\" "
					 "user_id=\"u%08x\" anonymity=\"1\">",
					 InDrawn.Id % 100'000, Milliseconds / 10, InDrawn.Sent, InDrawn.Mode == 1 ? "184" : "ue red",
					 InDrawn.Sender) +
			   EscapeXml(InDrawn.Text) + "</chat>\n";
	case ECommentFormat::ListProtobuf:
		return MakeMessage(InDrawn);
	case ECommentFormat::ParametersJson:
		return Print("{\"cid\":%lld,\"p\":\"%.2f,%d,%u,%08x\",\"m\":\"", InDrawn.Id, InDrawn.Seconds, InDrawn.Mode,
					 InDrawn.Color, InDrawn.Sender) +
			   InDrawn.Text + "\"},\n";
	case ECommentFormat::RowsJson:
		return Print("[%.3f,%d,%u,\"%08x\",\"", InDrawn.Seconds, InDrawn.Mode % 3, InDrawn.Color, InDrawn.Sender) +
			   InDrawn.Text + "\"],\n";
	case ECommentFormat::ChatJson:
		return Print("{\"chat\":{\"thread\":\"1600000000\",\"no\":%lld,\"vpos\":%lld,\"date\":%lld,\"mail\":\"184 ue\","
					 "\"user_id\":\"u%08x\",\"content\":\"",
					 InDrawn.Id % 100'000, Milliseconds / 10, InDrawn.Sent, InDrawn.Sender) +
			   InDrawn.Text + "\"}}\n";
	case ECommentFormat::ObjectsJson:
		return Print("{\"danmakuId\":%lld,\"userId\":%u,\"position\":%lld,\"mode\":%d,\"textColor\":%u,\"textSize\":%d,"
					 "\"createTime\":%lld,\"content\":\"",
					 InDrawn.Id, InDrawn.Sender, Milliseconds, InDrawn.Mode, InDrawn.Color, InDrawn.Size,
					 InDrawn.Sent * 1000) +
			   InDrawn.Text + "\"},\n";
	default:
		return Print("{\"danmaku_id\":%lld,\"post_id\":7,\"user_id\":%u,\"user_display_name\":\"Mira\","
					 "\"danmaku_post_date\":\"2026.01.31-20.15.00\",\"danmaku_spawn_time\":%lld,\"danmaku_mode\":%d,"
					 "\"danmaku_font_size\":24,\"danmaku_font_color\":\"#%06X\",\"danmaku_content\":\"",
					 InDrawn.Id % 1'000'000, InDrawn.Sender % 1'000'000, Milliseconds * 10'000, InDrawn.Mode % 3,
					 InDrawn.Color) +
			   InDrawn.Text + "\"},\n";
	}
}

} // namespace

std::string GenerateFile(ECommentFormat InFormat, std::size_t InSize)
{
	struct FFrame
	{
		const char* Begin;
		const char* End;
		/** How much of the last entry parts it from the next. */
		std::size_t Separator;
	};
	// In the enumeration's order.
	constexpr FFrame Frames[] = {{"", "", 0},
								 {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<i>\n", "</i>\n", 0},
								 {"", "", 0},
								 {"{\"count\":1,\"comments\":[\n", "]}\n", 2},
								 {"{\"code\":0,\"data\":[\n", "]}\n", 2},
								 {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<packet>\n", "</packet>\n", 0},
								 {"", "", 0},
								 {"[\n", "]\n", 2},
								 {"{\"datas\":[\n", "]}\n", 2}};
	const FFrame& Frame = Frames[static_cast<std::size_t>(InFormat)];
	FDrawer Drawer;
	std::string File = Frame.Begin;
	while (File.size() < InSize)
	{
		File += MakeEntry(InFormat, Drawer.Draw());
	}
	File.resize(File.size() - Frame.Separator);
	return File += Frame.End;
}

} // namespace Flitmark
