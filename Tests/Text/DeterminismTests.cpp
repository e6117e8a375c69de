#include "TextTestKit.h"

#include <cstring>
#include <thread>

namespace Flitmark
{

namespace
{

constexpr FTextScale Scale = {1.0, 1.0};
constexpr float Sizes[] = {10.0F, 24.0F, 24.5F};

bool IsSame(const FSprite& InLeft, const FSprite& InRight)
{
	return InLeft.Width == InRight.Width && InLeft.Height == InRight.Height && InLeft.Left == InRight.Left &&
		   InLeft.Top == InRight.Top && InLeft.Pixels == InRight.Pixels;
}

bool IsSame(const FTextSize& InLeft, const FTextSize& InRight)
{
	return std::memcmp(&InLeft.Width, &InRight.Width, sizeof(double)) == 0 &&
		   std::memcmp(&InLeft.Height, &InRight.Height, sizeof(double)) == 0;
}

} // namespace

/** Threads meet the same texts in different orders in a fresh engine, so caches fill in every possible way. */
TEST(Determinism, ThreadsAndOrdersDoNotMatter)
{
	const std::vector<std::u16string>& Samples = GetSamples();
	const std::unique_ptr<FTextEngine> Fresh = MakeEngine();
	std::atomic<int> Differences = 0;
	const auto Check = [&](std::size_t InStep)
	{
		for (std::size_t Round = 0; Round < 3 * Samples.size(); ++Round)
		{
			const std::u16string& Text = Samples[Round * InStep % Samples.size()];
			const float Size = Sizes[Round * InStep % 3];
			const bool bSame =
				IsSame(Fresh->Measure(Text, Size), GetEngine().Measure(Text, Size)) &&
				IsSame(Fresh->Rasterize(Text, Size, {}, Scale), GetEngine().Rasterize(Text, Size, {}, Scale));
			Differences += bSame ? 0 : 1;
		}
	};
	std::vector<std::thread> Threads;
	for (const std::size_t Step : {1U, 2U, 7U, 14U})
	{
		Threads.emplace_back(Check, Step);
	}
	for (std::thread& Thread : Threads)
	{
		Thread.join();
	}
	EXPECT_EQ(Differences, 0);
}

TEST(Determinism, AMemoryOfAShorterTextDoesNotAnswerForALonger)
{
	const std::unique_ptr<FTextEngine> Fresh = MakeEngine();
	const double Short = Fresh->Measure(u"国", 24.0F).Width;
	EXPECT_GT(Fresh->Measure(u"国国", 24.0F).Width, Short);
	EXPECT_EQ(Fresh->Measure(u"国", 24.0F).Width, Short);
	EXPECT_EQ(Fresh->Measure(u"国", 48.0F).Width, 2.0 * Short);
}

} // namespace Flitmark
