#include "GeneratedDocument.h"

#include <random>

namespace
{
std::string MakeContent(std::minstd_rand& Random, bool bLatin)
{
	std::string Content;
	const std::uint_fast32_t Length = 6 + Random() % (bLatin ? 50 : 22);
	for (std::uint_fast32_t Index = 0; Index < Length; ++Index)
	{
		if (bLatin)
		{
			Content += Index % 6 == 5 ? ' ' : static_cast<char>('a' + Random() % 26);
			continue;
		}
		const std::uint_fast32_t Codepoint = 0x4E00 + Random() % 0x5000;
		Content += static_cast<char>(0xE0 | Codepoint >> 12);
		Content += static_cast<char>(0x80 | (Codepoint >> 6 & 0x3F));
		Content += static_cast<char>(0x80 | (Codepoint & 0x3F));
	}
	return Content;
}

void AppendComment(std::string& Document, int32 Index, std::minstd_rand& Random)
{
	const auto Number = [&Random](std::uint_fast32_t Below)
	{
		return std::to_string(Random() % Below);
	};
	Document += "{\"danmaku_id\":" + std::to_string(Index + 1) + ",\"post_id\":" + Number(100'000);
	Document += ",\"user_id\":" + Number(10'000'000) + ",\"user_display_name\":\"viewer" + Number(100'000);
	Document += "\",\"danmaku_post_date\":\"2024.03.05-12.34.56\",\"danmaku_spawn_time\":";
	Document += std::to_string(Random() % 7'200 * 10'000'000ull + Random() % 10'000'000);
	Document += ",\"danmaku_content\":\"" + MakeContent(Random, Index % 2 == 0);
	Document += "\",\"danmaku_mode\":" + Number(3) + ",\"danmaku_font_size\":24,\"danmaku_font_color\":\"#";
	Document += std::to_string(100'000 + Random() % 900'000) + "\"}";
}
} // namespace

std::string MakeCommentDocument(int32 Count)
{
	std::minstd_rand Random(20240305);
	std::string Document = "{\"datas\":[";
	for (int32 Index = 0; Index < Count; ++Index)
	{
		if (Index != 0)
		{
			Document += ',';
		}
		AppendComment(Document, Index, Random);
	}
	return Document + "]}";
}
