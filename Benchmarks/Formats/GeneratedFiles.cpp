#include "GeneratedFiles.h"

#include "CoreTypes.h"

#include <algorithm>
#include <cstdio>
#include <random>

namespace Flitmark
{

namespace
{

/** What the formats say about a comment, each in its own way. */
struct FGenerated
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

class FGenerator
{
public:
	FGenerated Make()
	{
		FGenerated Comment;
		Comment.Id = 20'000'000'000LL + static_cast<long long>(Random() % 1'000'000'000U);
		Comment.Seconds = static_cast<double>(Random() % 7'200'000U) / 1000.0;
		Comment.Mode = Random() % 10 == 0 ? (Random() % 2 == 0 ? 4 : 5) : 1;
		Comment.Size = Random() % 20 == 0 ? 18 : 25;
		Comment.Color = Random() % 4 == 0 ? Random() & 0xFFFFFF : 0xFFFFFF;
		Comment.Sent = 1'600'000'000LL + Random() % 100'000'000U;
		Comment.Sender = static_cast<unsigned>(Random());
		Comment.Text = MakeText();
		return Comment;
	}

private:
	/** 2 to 30 characters, four fifths of them of three bytes. */
	std::string MakeText()
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
std::string Print(const char* InFormat, Types... InValues)
{
	char Text[512];
	const int Size = std::snprintf(Text, sizeof(Text), InFormat, InValues...);
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

std::string MakeMessage(const FGenerated& InComment)
{
	std::string Entry;
	AppendNumber(Entry, 1, static_cast<uint64>(InComment.Id));
	AppendNumber(Entry, 2, static_cast<uint64>(InComment.Seconds * 1000.0));
	AppendNumber(Entry, 3, static_cast<uint64>(InComment.Mode));
	AppendNumber(Entry, 4, static_cast<uint64>(InComment.Size));
	AppendNumber(Entry, 5, InComment.Color);
	AppendBytes(Entry, 6, Print("%08x", InComment.Sender));
	AppendBytes(Entry, 7, InComment.Text);
	AppendNumber(Entry, 8, static_cast<uint64>(InComment.Sent));
	std::string Message;
	AppendBytes(Message, 1, Entry);
	return Message;
}

long long GetMilliseconds(const FGenerated& InComment)
{
	return static_cast<long long>(InComment.Seconds * 1000.0);
}

std::string MakeListXml(const FGenerated& InComment)
{
	return Print("<d p=\"%.5f,%d,%d,%u,%lld,0,%08x,%lld\">", InComment.Seconds, InComment.Mode, InComment.Size,
				 InComment.Color, InComment.Sent, InComment.Sender, InComment.Id) +
		   EscapeXml(InComment.Text) + "</d>\n";
}

std::string MakeChatXml(const FGenerated& InComment)
{
	return Print("<chat thread=\"1600000000\" no=\"%lld\" vpos=\"%lld\" date=\"%lld\" mail=\"%s small\" "
				 "user_id=\"u%08x\" anonymity=\"1\">",
				 InComment.Id % 100'000, GetMilliseconds(InComment) / 10, InComment.Sent,
				 InComment.Mode == 1 ? "184" : "ue red", InComment.Sender) +
		   EscapeXml(InComment.Text) + "</chat>\n";
}

std::string MakeParametersJson(const FGenerated& InComment)
{
	return Print("{\"cid\":%lld,\"p\":\"%.2f,%d,%u,%08x\",\"m\":\"", InComment.Id, InComment.Seconds, InComment.Mode,
				 InComment.Color, InComment.Sender) +
		   InComment.Text + "\"},\n";
}

std::string MakeRowsJson(const FGenerated& InComment)
{
	return Print("[%.3f,%d,%u,\"%08x\",\"", InComment.Seconds, InComment.Mode % 3, InComment.Color, InComment.Sender) +
		   InComment.Text + "\"],\n";
}

std::string MakeChatJson(const FGenerated& InComment)
{
	return Print("{\"chat\":{\"thread\":\"1600000000\",\"no\":%lld,\"vpos\":%lld,\"date\":%lld,\"mail\":\"184 ue\","
				 "\"user_id\":\"u%08x\",\"content\":\"",
				 InComment.Id % 100'000, GetMilliseconds(InComment) / 10, InComment.Sent, InComment.Sender) +
		   InComment.Text + "\"}}\n";
}

std::string MakeObjectsJson(const FGenerated& InComment)
{
	return Print("{\"danmakuId\":%lld,\"userId\":%u,\"position\":%lld,\"mode\":%d,\"textColor\":%u,\"textSize\":%d,"
				 "\"createTime\":%lld,\"content\":\"",
				 InComment.Id, InComment.Sender, GetMilliseconds(InComment), InComment.Mode, InComment.Color,
				 InComment.Size, InComment.Sent * 1000) +
		   InComment.Text + "\"},\n";
}

std::string MakeLiveChatJson(const FGenerated& InComment)
{
	return Print("{\"replayChatItemAction\":{\"actions\":[{\"addChatItemAction\":{\"item\":{"
				 "\"liveChatTextMessageRenderer\":"
				 "{\"authorName\":{\"simpleText\":\"U%08x\"},\"authorExternalChannelId\":\"UC%08x\",\"timestampUsec\":"
				 "\"%lld\","
				 "\"id\":\"%040lld\",\"contextMenuAccessibility\":{\"accessibilityData\":{\"label\":\"Actions\"}},",
				 InComment.Sender, InComment.Sender, InComment.Sent * 1'000'000, InComment.Id) +
		   "\"message\":{\"runs\":[{\"text\":\"" + InComment.Text + "\"}]}}}}}]," +
		   Print("\"videoOffsetTimeMsec\":\"%lld\"}}\n", GetMilliseconds(InComment));
}

std::string MakeOffsetChatJson(const FGenerated& InComment)
{
	return Print("{\"_id\":\"%032llx\",\"created_at\":\"2021-11-19T18:16:01Z\",\"content_offset_seconds\":%.3f,"
				 "\"commenter\":{\"display_name\":\"U%08x\",\"_id\":\"%u\"},\"message\":{\"bits_spent\":0,"
				 "\"user_color\":\"#%06X\",\"body\":\"",
				 static_cast<unsigned long long>(InComment.Id), InComment.Seconds, InComment.Sender, InComment.Sender,
				 InComment.Color) +
		   InComment.Text + "\",\"fragments\":[{\"text\":\"" + InComment.Text + "\",\"emoticon\":null}]}},\n";
}

std::string MakeMessagesJson(const FGenerated& InComment)
{
	return Print("{\"action_type\":\"add_chat_item\",\"author\":{\"id\":\"UC%08x\",\"name\":\"U%08x\"},"
				 "\"message_id\":\"%032lld\",\"message_type\":\"text_message\",\"time_in_seconds\":%.3f,"
				 "\"timestamp\":%lld,\"message\":\"",
				 InComment.Sender, InComment.Sender, InComment.Id, InComment.Seconds, InComment.Sent * 1'000'000) +
		   InComment.Text + "\"},\n";
}

std::string MakeElementsJson(const FGenerated& InComment)
{
	return Print("{\"id\":\"%lld\",\"progress\":%lld,\"mode\":%d,\"fontsize\":%d,\"color\":%u,\"midHash\":\"%08x\","
				 "\"ctime\":\"%lld\",\"content\":\"",
				 InComment.Id, GetMilliseconds(InComment), InComment.Mode, InComment.Size, InComment.Color,
				 InComment.Sender, InComment.Sent) +
		   InComment.Text + "\"},\n";
}

std::string MakeBodiesJson(const FGenerated& InComment)
{
	return Print("{\"time\":%.3f,\"mode\":%d,\"size\":%d,\"color\":%u,\"body\":\"", InComment.Seconds, InComment.Mode,
				 InComment.Size, InComment.Color) +
		   InComment.Text + "\"},\n";
}

std::string MakeTextsJson(const FGenerated& InComment)
{
	return Print("{\"stime\":%lld,\"mode\":%d,\"size\":%d,\"color\":%u,\"text\":\"", GetMilliseconds(InComment),
				 InComment.Mode, InComment.Size, InComment.Color) +
		   InComment.Text + "\"},\n";
}

std::string MakeDocument(const FGenerated& InComment)
{
	return Print("{\"danmaku_id\":%lld,\"post_id\":7,\"user_id\":%u,\"user_display_name\":\"Mira\","
				 "\"danmaku_post_date\":\"2026.01.31-20.15.00\",\"danmaku_spawn_time\":%lld,\"danmaku_mode\":%d,"
				 "\"danmaku_font_size\":24,\"danmaku_font_color\":\"#%06X\",\"danmaku_content\":\"",
				 InComment.Id % 1'000'000, InComment.Sender % 1'000'000, GetMilliseconds(InComment) * 10'000,
				 InComment.Mode % 3, InComment.Color) +
		   InComment.Text + "\"},\n";
}

struct FFileShape
{
	std::string_view Format;
	const char* Begin;
	const char* End;
	/** How much of the last entry separates it from the next. */
	std::size_t Separator;
	std::string (*MakeEntry)(const FGenerated& InComment);
};

constexpr FFileShape Shapes[] = {
	{"list-xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<i>\n", "</i>\n", 0, MakeListXml},
	{"list-protobuf", "", "", 0, MakeMessage},
	{"parameters-json", "{\"count\":1,\"comments\":[\n", "]}\n", 2, MakeParametersJson},
	{"rows-json", "{\"code\":0,\"data\":[\n", "]}\n", 2, MakeRowsJson},
	{"chat-xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<packet>\n", "</packet>\n", 0, MakeChatXml},
	{"chat-json", "", "", 0, MakeChatJson},
	{"objects-json", "[\n", "]\n", 2, MakeObjectsJson},
	{"live-chat-json", "", "", 0, MakeLiveChatJson},
	{"offset-chat-json", "{\"comments\":[\n", "]}\n", 2, MakeOffsetChatJson},
	{"message-list-json", "[\n", "]\n", 2, MakeMessagesJson},
	{"list-elements-json", "{\"elems\":[\n", "]}\n", 2, MakeElementsJson},
	{"body-json", "[\n", "]\n", 2, MakeBodiesJson},
	{"text-json", "[\n", "]\n", 2, MakeTextsJson},
	{"document", "{\"datas\":[\n", "]}\n", 2, MakeDocument},
};

} // namespace

std::string GenerateFile(std::string_view InFormat, std::size_t InSize)
{
	const FFileShape& Shape = *std::ranges::find(Shapes, InFormat, &FFileShape::Format);
	FGenerator Generator;
	std::string File = Shape.Begin;
	while (File.size() < InSize)
	{
		File += Shape.MakeEntry(Generator.Make());
	}
	File.resize(File.size() - Shape.Separator);
	return File += Shape.End;
}

} // namespace Flitmark
