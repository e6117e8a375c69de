#include "Overlay/MeasureAhead.h"

#include <gtest/gtest.h>

namespace Flitmark
{
namespace
{

TEST(MeasureAhead, StopsAtOnceWhereverItIs)
{
	std::vector<FUpcomingText> Texts;
	for (int Index = 0; Index < 30'000; ++Index)
	{
		std::u16string Text = u"comment ";
		for (const char Digit : std::to_string(Index))
		{
			Text += static_cast<char16_t>(Digit);
		}
		Texts.push_back({Index % 60, 24.f, std::move(Text)});
	}
	std::string Error;
	const std::unique_ptr<FTextEngine> Engine = FTextEngine::Create({}, Error);
	const FTextSize Expected = FTextEngine::Create({}, Error)->Measure(u"comment 7", 24.f);
	for (const int64 Second : {0, 30, 5, 59, 100'000, -1})
	{
		FMeasureAhead Ahead(*Engine, Texts);
		Ahead.SetMediaTime(0);
		Ahead.SetMediaTime(Second * ETimespan::TicksPerSecond);
		// From this thread too, as in a frame.
		EXPECT_EQ(Engine->Measure(u"comment 7", 24.f).Width, Expected.Width);
	}
}

} // namespace
} // namespace Flitmark
