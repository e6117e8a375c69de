#include "Scene/AtlasBook.h"

#include <gtest/gtest.h>

#include <random>

namespace Flitmark
{
namespace
{

bool Overlaps(const FAtlasSlot& A, const FAtlasSlot& B)
{
	return A.X < B.X + B.Width && B.X < A.X + A.Width && A.Y < B.Y + B.Height && B.Y < A.Y + A.Height;
}

TEST(AtlasPacker, NeverOverlapsAndUsesAgainWhatIsGivenBack)
{
	constexpr int32 Size = 512;
	FAtlasPacker Packer(Size);
	std::minstd_rand Random(3);
	std::vector<FAtlasSlot> Slots;
	int NumRefused = 0;
	for (int Step = 0; Step < 20'000; ++Step)
	{
		if (Random() % 2 == 0 && !Slots.empty())
		{
			std::swap(Slots[Random() % Slots.size()], Slots.back());
			Packer.Remove(Slots.back());
			Slots.pop_back();
			continue;
		}
		const auto Width = static_cast<int32>(1 + Random() % (Step % 100 == 0 ? 512 : 120));
		const auto Height = static_cast<int32>(1 + Random() % (Step % 100 == 0 ? 512 : 60));
		const std::optional<FAtlasSlot> Slot = Packer.Place(Width, Height);
		if (!Slot)
		{
			++NumRefused;
			continue;
		}
		ASSERT_TRUE(Slot->X >= 0 && Slot->Y >= 0 && Slot->X + Width <= Size && Slot->Y + Height <= Size);
		for (const FAtlasSlot& Other : Slots)
		{
			ASSERT_FALSE(Overlaps(*Slot, Other)) << "step " << Step;
		}
		Slots.push_back(*Slot);
	}
	EXPECT_GT(NumRefused, 0) << "never full: too few to try anything";
	for (const FAtlasSlot& Slot : Slots)
	{
		Packer.Remove(Slot);
	}
	EXPECT_TRUE(Packer.IsEmpty());
	EXPECT_TRUE(Packer.Place(Size, Size)) << "what was given back is in pieces";
	EXPECT_FALSE(Packer.Place(1, 1));
}

TEST(AtlasPacker, FillsAPageWithComments)
{
	FAtlasPacker Packer(2048);
	std::minstd_rand Random(5);
	const int32 Heights[] = {32, 42, 44};
	int64 Area = 0;
	while (true)
	{
		const auto Width = static_cast<int32>(60 + Random() % 400);
		const int32 Height = Heights[Random() % 3];
		if (!Packer.Place(Width, Height))
		{
			break;
		}
		Area += Width * Height;
	}
	EXPECT_GT(static_cast<double>(Area), 0.85 * 2048 * 2048);
	EXPECT_FALSE(Packer.Place(2049, 1));
	EXPECT_FALSE(Packer.Place(1, 2049));
}

class FAtlasBookTest : public testing::Test
{
protected:
	bool Add(uint64 InId, int32 InWidth, int32 InHeight, double InScale = 1.0)
	{
		std::optional<std::vector<FAtlasTile>> Tiles = Book.Reserve(InWidth, InHeight);
		if (!Tiles)
		{
			return false;
		}
		FAtlasSprite Sprite;
		Sprite.Style = std::make_shared<FSharedStyle>(FSharedStyle{InId, {}});
		Sprite.Scale = InScale;
		Sprite.Width = InWidth;
		Sprite.Height = InHeight;
		Sprite.Tiles = std::move(*Tiles);
		Book.Enter(std::move(Sprite));
		return true;
	}

	FAtlasBook Book{256, 2};
};

TEST_F(FAtlasBookTest, WhatIsInUseStaysAndWhatIsIdleMakesRoom)
{
	Book.BeginFrame(0.0);
	EXPECT_EQ(Book.Use(1), nullptr);
	for (uint64 Id = 1; Id <= 4; ++Id)
	{
		EXPECT_TRUE(Add(Id, 254, 126));
	}
	EXPECT_EQ(Book.GetNumPages(), 2);
	EXPECT_FALSE(Add(5, 254, 126)) << "in place of one that this frame uses";

	Book.BeginFrame(1.0);
	Book.Use(1);
	Book.Use(3);
	EXPECT_TRUE(Add(5, 254, 126));
	EXPECT_EQ(Book.Find(2), nullptr) << "the longest idle one should have gone";
	EXPECT_TRUE(Add(6, 254, 126));
	EXPECT_EQ(Book.Find(4), nullptr);
	EXPECT_FALSE(Add(7, 10, 200));
	EXPECT_NE(Book.Find(1), nullptr);
	EXPECT_NE(Book.Find(3), nullptr);
}

TEST_F(FAtlasBookTest, ASpriteTakesThePlaceOfItsStylesOneBefore)
{
	Book.BeginFrame(0.0);
	EXPECT_TRUE(Add(1, 254, 254, 1.0));
	EXPECT_TRUE(Add(1, 254, 254, 2.0));
	EXPECT_EQ(Book.Use(1)->Scale, 2.0);
	EXPECT_TRUE(Add(2, 254, 254)) << "the old sprite's room is still taken";
}

TEST_F(FAtlasBookTest, LargeSpritesLieInTilesWithoutGaps)
{
	Book.BeginFrame(0.0);
	ASSERT_TRUE(Add(1, 600, 60));
	int64 Area = 0;
	for (const FAtlasTile& Tile : Book.Find(1)->Tiles)
	{
		EXPECT_LE(Tile.SpriteX + Tile.GetWidth(), 600);
		EXPECT_LE(Tile.Slot.X + Tile.Slot.Width, 256);
		Area += Tile.GetWidth() * Tile.GetHeight();
	}
	EXPECT_EQ(Book.Find(1)->Tiles.size(), 3u);
	EXPECT_EQ(Area, 600 * 60);
	// A sprite that does not fit as a whole leaves nothing behind.
	EXPECT_FALSE(Add(2, 600, 400));
	EXPECT_EQ(Book.Find(2), nullptr);
	EXPECT_TRUE(Add(3, 254, 254));
}

TEST_F(FAtlasBookTest, PagesCloseWhenAllHasBeenIdleForLong)
{
	Book.BeginFrame(0.0);
	EXPECT_TRUE(Add(1, 254, 254));
	EXPECT_TRUE(Add(2, 254, 254));
	Book.BeginFrame(FAtlasBook::MaxIdleTime - 1.0);
	Book.Use(2);
	Book.BeginFrame(FAtlasBook::MaxIdleTime + 1.0);
	EXPECT_EQ(Book.Find(1), nullptr);
	EXPECT_FALSE(Book.IsPageOpen(0));
	EXPECT_TRUE(Book.IsPageOpen(1));
	Book.Use(2);
	EXPECT_TRUE(Add(3, 20, 20));
	EXPECT_TRUE(Book.IsPageOpen(0));
}

} // namespace
} // namespace Flitmark
