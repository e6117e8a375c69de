#include "Overlay/MeasureAhead.h"

#include "Files/FileText.h"

#include <gtest/gtest.h>

namespace Flitmark
{
namespace
{

TEST(MeasureAhead, StopsAtOnceWhereverItIs)
{
	constexpr int NumComments = 30'000;
	constexpr int64 TicksPerSecond = 10'000'000;
	std::string Text;
	for (int Index = 0; Index < NumComments; ++Index)
	{
		Text += (Index > 0 ? "," : "") + std::string(R"({"danmaku_font_size":24,"danmaku_content":"comment )") +
				std::to_string(Index) + R"(","danmaku_spawn_time":)" + std::to_string(Index % 60 * TicksPerSecond) +
				"}";
	}
	std::string Error;
	const std::unique_ptr<FTextEngine> Engine = FTextEngine::Create({}, Error);
	const FCommentDocument Document = FCommentDocument::Read(FromUtf8("{\"datas\":[" + Text + "]}"));
	ASSERT_EQ(Document.GetEntries().size(), static_cast<std::size_t>(NumComments));
	const FTextSize Expected = FTextEngine::Create({}, Error)->Measure(u"comment 7", 24.f);
	for (const int64 Second : {0, 30, 5, 59, 100'000, -1})
	{
		FMeasureAhead Ahead(*Engine, Document);
		Ahead.SetMediaTime(0);
		Ahead.SetMediaTime(Second * TicksPerSecond);
		// From this thread too, as a frame does.
		EXPECT_EQ(Engine->Measure(u"comment 7", 24.f).Width, Expected.Width);
	}
}

} // namespace
} // namespace Flitmark
