#include "Overlay/SceneSprites.h"
#include "RunnerFixture.h"

namespace Flitmark
{
namespace
{

class FSceneTest : public FRunnerFixture
{
protected:
	/** From a clean canvas. */
	void Start(const std::vector<FTestComment>& InComments, int64 InMaxBytes = FSceneSprites::MaxBytes)
	{
		Show();
		Load(InComments);
		Sprites = std::make_unique<FSceneSprites>(Measure->GetEngine(), Runner->GetView().Scale, InMaxBytes);
		Draw(0.0);
	}
	void Draw(double InSeconds)
	{
		Step(InSeconds);
		Sprites->Place(Runner->GetScene(), {.Opacity = 0.5}, Drawn);
	}

	std::unique_ptr<FSceneSprites> Sprites;
	std::vector<FPlacedSprite> Drawn;
};

TEST_F(FSceneTest, EqualCommentsShareAStyleAndASprite)
{
	Start({{"same"}, {"same"}, {"same", 1, 0.0, "#FF0000"}, {"other"}});
	const std::vector<FSceneComment>& Comments = Runner->GetScene().GetComments();
	ASSERT_EQ(Comments.size(), 4u);
	ASSERT_EQ(Drawn.size(), 4u);
	for (const std::size_t Other : {1u, 2u, 3u})
	{
		EXPECT_EQ(Comments[0].Style == Comments[Other].Style, Other == 1u);
		EXPECT_EQ(Drawn[0].Sprite == Drawn[Other].Sprite, Other == 1u);
	}
	const std::shared_ptr<const FSprite> First = Drawn[0].Sprite;
	Draw(0.1);
	EXPECT_EQ(Drawn[0].Sprite, First) << "drawn a second time";
}

TEST_F(FSceneTest, SpritesArePlacedInPixelsOfTheView)
{
	Start({{"first"}, {"second"}});
	ASSERT_EQ(Drawn.size(), 2u);
	const FVector2D Position = Runner->GetScene().GetComments()[1].Position;
	EXPECT_GT(Position.Y, 0.0);
	EXPECT_EQ(Drawn[1].X, Position.X * 2.0);
	EXPECT_EQ(Drawn[1].Y, Position.Y * 3.0);
	EXPECT_EQ(Drawn[1].Opacity, 0.5);
	const double Height = Measure->GetEngine().Measure(u"second", 24.f).Height;
	EXPECT_NEAR(Drawn[1].Sprite->Height, Height * 3.0, Height);
}

TEST_F(FSceneTest, SpritesLastFromEntryUntilTheCommentGoes)
{
	Start({{"scrolls", 0}});
	ASSERT_EQ(Count(), 1u);
	EXPECT_TRUE(Drawn.empty()) << "drawn before it can be seen";
	const std::weak_ptr<const FSharedStyle> Style = First().Style;
	Draw(0.5);
	ASSERT_EQ(Drawn.size(), 1u);
	const std::weak_ptr<const FSprite> Sprite = Drawn[0].Sprite;
	for (int Frame = 0; Frame < 40; ++Frame)
	{
		Draw(0.5);
	}
	EXPECT_EQ(Runner->GetNumComments(), 0);
	EXPECT_TRUE(Style.expired());
	EXPECT_TRUE(Sprite.expired());
}

TEST_F(FSceneTest, WhatHasNothingToShowIsNotListed)
{
	Start({{""}, {"clear", 1, 0.0, "#FFFFFF00"}, {"no color", 1, 0.0, "white"}});
	EXPECT_EQ(Runner->GetNumComments(), 3);
	EXPECT_EQ(Count(), 0u);
	EXPECT_TRUE(Drawn.empty());
	EXPECT_FALSE(Sprites->WasCut());
}

TEST_F(FSceneTest, MemoryIsBounded)
{
	std::vector<FTestComment> Texts;
	for (int Index = 0; Index < 8; ++Index)
	{
		Texts.push_back({"a comment of some length, number " + std::to_string(Index)});
	}
	Start(Texts);
	ASSERT_EQ(Drawn.size(), 8u);
	const int64 One = static_cast<int64>(Drawn[0].Sprite->Pixels.size());
	Start(Texts, One * 7 / 2);
	EXPECT_EQ(Count(), 8u);
	EXPECT_GE(Drawn.size(), 2u);
	EXPECT_LE(Drawn.size(), 3u);
	EXPECT_TRUE(Sprites->WasCut());

	// Freed room is reused.
	Runner->Load(MakeDocument({{"fits"}}), {});
	Draw(0.0);
	EXPECT_EQ(Drawn.size(), 1u);
}

} // namespace
} // namespace Flitmark
