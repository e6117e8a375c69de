#include "Scene/SpriteMaker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <map>

namespace Flitmark
{
namespace
{

using namespace std::chrono_literals;

std::shared_ptr<const FSharedStyle> MakeStyle(uint64 InId, std::u16string InText, float InSize = 24.f)
{
	return std::make_shared<FSharedStyle>(FSharedStyle{InId, {std::move(InText), InSize, FColor::White}});
}

/** A text that takes a worker tens of milliseconds. */
std::shared_ptr<const FSharedStyle> MakeHugeStyle(uint64 InId)
{
	return MakeStyle(InId, std::u16string(3000, u'x'), 700.f);
}

class FSpriteMakerTest : public testing::Test
{
protected:
	FSpriteMakerTest()
	{
		std::string Error;
		Engine = FTextEngine::Create({}, Error);
	}

	/** Takes sprites until there are InCount, or none has come for too long. */
	std::vector<FMadeSprite> TakeAll(FSpriteMaker& InMaker, std::size_t InCount)
	{
		std::vector<FMadeSprite> All;
		const auto End = std::chrono::steady_clock::now() + 20s;
		while (All.size() < InCount && std::chrono::steady_clock::now() < End)
		{
			if (std::optional<FMadeSprite> Made = InMaker.Take())
			{
				All.push_back(std::move(*Made));
			}
			else
			{
				std::this_thread::sleep_for(1ms);
			}
		}
		return All;
	}
	bool WaitFor(const std::function<bool()>& InCondition)
	{
		const auto End = std::chrono::steady_clock::now() + 20s;
		while (!InCondition() && std::chrono::steady_clock::now() < End)
		{
			std::this_thread::sleep_for(1ms);
		}
		return InCondition();
	}

	std::unique_ptr<FTextEngine> Engine;
};

TEST_F(FSpriteMakerTest, MakesEachOnceAndTellsOfIt)
{
	FSpriteMaker Maker(*Engine);
	std::atomic<int> NumTold = 0;
	Maker.SetListener([&NumTold] { ++NumTold; });
	std::vector<FWantedSprite> Wanted;
	for (uint64 Id = 1; Id <= 50; ++Id)
	{
		Wanted.push_back({MakeStyle(Id, u"comment " + std::u16string(1, static_cast<char16_t>(u'0' + Id))), 1.5});
	}
	// As frames do while the first ones are being made.
	for (int Frame = 0; Frame < 20; ++Frame)
	{
		Maker.SetWanted(Wanted);
	}
	ASSERT_TRUE(WaitFor([&Maker] { return Maker.GetNumMade() >= 50; }));
	const std::vector<FMadeSprite> All = TakeAll(Maker, 50);
	std::map<uint64, int> Count;
	for (const FMadeSprite& Made : All)
	{
		++Count[Made.Style->Id];
		EXPECT_EQ(Made.Scale, 1.5);
		const FSprite Expected = Made.Style->Style.Rasterize(*Engine, {1.5, 1.5});
		EXPECT_EQ(Made.Sprite.Pixels, Expected.Pixels);
	}
	EXPECT_EQ(Count.size(), 50u);
	EXPECT_EQ(Maker.GetNumMade(), 50);
	EXPECT_GE(NumTold, 1);
	EXPECT_FALSE(Maker.Take());
}

TEST_F(FSpriteMakerTest, DropsWhatIsNotWantedAnyMore)
{
	FSpriteMaker Maker(*Engine);
	const auto First = MakeStyle(1, u"first");
	const auto Second = MakeStyle(2, u"second");
	Maker.SetWanted({{First, 1.0}, {Second, 1.0}});
	ASSERT_TRUE(WaitFor([&Maker] { return Maker.GetNumMade() == 2; }));
	// One has left the canvas, the other is wanted at another scale.
	Maker.SetWanted({{Second, 2.0}});
	const std::vector<FMadeSprite> All = TakeAll(Maker, 1);
	ASSERT_EQ(All.size(), 1u);
	EXPECT_EQ(All[0].Style, Second);
	EXPECT_EQ(All[0].Scale, 2.0);
	EXPECT_FALSE(Maker.Take());

	// A sprite that is dropped while a worker is making it does not come either.
	Maker.SetWanted({{MakeHugeStyle(3), 1.0}});
	std::this_thread::sleep_for(2ms);
	Maker.SetWanted({{First, 3.0}});
	ASSERT_TRUE(WaitFor([&Maker] { return Maker.GetNumMade() >= 4; }));
	std::this_thread::sleep_for(50ms);
	const std::optional<FMadeSprite> Made = Maker.Take();
	ASSERT_TRUE(Made);
	EXPECT_EQ(Made->Style, First);
	EXPECT_FALSE(Maker.Take());
}

TEST_F(FSpriteMakerTest, PausesWhileTooMuchWaits)
{
	const FSprite One = MakeStyle(1, u"some comment")->Style.Rasterize(*Engine, {1.0, 1.0});
	FSpriteMaker Maker(*Engine, static_cast<int64>(One.Pixels.size()) * 3);
	std::vector<FWantedSprite> Wanted;
	for (uint64 Id = 1; Id <= 100; ++Id)
	{
		Wanted.push_back({MakeStyle(Id, u"some comment"), 1.0});
	}
	Maker.SetWanted(Wanted);
	ASSERT_TRUE(WaitFor([&Maker] { return Maker.GetNumMade() >= 3; }));
	std::this_thread::sleep_for(50ms);
	// Each worker may have started one before the limit was reached.
	EXPECT_LE(Maker.GetNumMade(), 4);
	EXPECT_EQ(TakeAll(Maker, 100).size(), 100u) << "it does not go on";
}

TEST_F(FSpriteMakerTest, EndsAtAnyTime)
{
	for (int Wait = 0; Wait < 20; ++Wait)
	{
		FSpriteMaker Maker(*Engine);
		Maker.SetWanted({{MakeHugeStyle(1), 1.0}, {MakeHugeStyle(2), 1.0}, {MakeHugeStyle(3), 1.0}});
		std::this_thread::sleep_for(std::chrono::microseconds(200 * Wait));
		if (Wait % 2 == 0)
		{
			Maker.Stop();
			EXPECT_FALSE(Maker.Take());
			// Anyone who still holds it may keep asking.
			Maker.SetWanted({{MakeStyle(4, u"late"), 1.0}});
			EXPECT_FALSE(Maker.Take());
		}
	}
}

} // namespace
} // namespace Flitmark
