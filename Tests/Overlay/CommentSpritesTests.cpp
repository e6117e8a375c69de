#include "Overlay/CommentSprites.h"

#include "Files/FileText.h"
#include "Overlay/TextMeasure.h"
#include "UI_Danmaku.h"

#include <gtest/gtest.h>

#include <set>

namespace Flitmark
{
namespace
{

constexpr int64 TicksPerSecond = 10'000'000;

std::string Comment(const std::string& InText, int32 InMode = 1, const std::string& InColor = "#FFFFFF")
{
	return R"({"danmaku_font_size":24,"danmaku_spawn_time":0,"danmaku_content":")" + InText + R"(","danmaku_mode":)" +
		   std::to_string(InMode) + R"(,"danmaku_font_color":")" + InColor + "\"}";
}

/** A stage of 800 x 600 whose comments are drawn at two pixels a canvas unit, and three upwards. */
class FSpritesTest : public testing::Test
{
protected:
	FSpritesTest()
	{
		std::string Error;
		Measure = FTextMeasure::Create({}, Error);
		FStageOptions Options;
		Options.CanvasSize = FVector2f(800.f, 600.f);
		Options.Measure = Measure.get();
		Stage = FStage::Create(Options, Error);
		Stage->Preroll();
	}

	void Start(const std::vector<std::string>& InComments, int64 InMaxBytes = FCommentSprites::MaxBytes)
	{
		std::string Text;
		for (const std::string& Each : InComments)
		{
			Text += (Text.empty() ? "" : ",") + Each;
		}
		Stage->GetOverlay().LoadDanmaku(FromUtf8("{\"datas\":[" + Text + "]}"));
		Sprites = std::make_unique<FCommentSprites>(Measure->GetEngine(), InMaxBytes);
		Sprites->SetView(FVector2D(800.0, 600.0), {2.0, 3.0});
		Step(0.f);
	}
	void Step(float InSeconds)
	{
		Stage->RunFrame(InSeconds);
		Stage->CollectPaint(Comments);
		Sprites->Collect(Comments, Drawn);
	}

	std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FStage> Stage;
	std::unique_ptr<FCommentSprites> Sprites;
	std::vector<FPaintComment> Comments;
	std::vector<FCommentSprite> Drawn;
};

TEST_F(FSpritesTest, EqualCommentsShareASprite)
{
	Start({Comment("same"), Comment("same"), Comment("same", 1, "#FF0000"), Comment("other")});
	ASSERT_EQ(Drawn.size(), 4u);
	EXPECT_EQ(Drawn[0].Sprite, Drawn[1].Sprite);
	EXPECT_NE(Drawn[0].Sprite, Drawn[2].Sprite);
	EXPECT_NE(Drawn[0].Sprite, Drawn[3].Sprite);
	const std::shared_ptr<const FSprite> First = Drawn[0].Sprite;
	Step(0.1f);
	EXPECT_EQ(Drawn[0].Sprite, First) << "drawn a second time";
}

TEST_F(FSpritesTest, StandInPixelsOfTheView)
{
	Start({Comment("first"), Comment("second")});
	ASSERT_EQ(Drawn.size(), 2u);
	EXPECT_EQ(Drawn[1].X, Comments[1].Position.X * 2.0);
	EXPECT_EQ(Drawn[1].Y, Comments[1].Position.Y * 3.0);
	EXPECT_NEAR(Drawn[1].Sprite->Height, Comments[1].Size.Y * 3.0, Comments[1].Size.Y);
}

TEST_F(FSpritesTest, AreDrawnInViewAndLetGoBehindIt)
{
	Start({Comment("scrolls", 0)});
	EXPECT_EQ(Comments.size(), 1u);
	EXPECT_TRUE(Drawn.empty()) << "drawn beside the view";
	Step(0.5f);
	ASSERT_EQ(Drawn.size(), 1u);
	const std::weak_ptr<const FSprite> Sprite = Drawn[0].Sprite;
	for (int Frame = 0; Frame < 40; ++Frame)
	{
		Step(0.5f);
	}
	EXPECT_TRUE(Comments.empty());
	EXPECT_TRUE(Sprite.expired());
}

TEST_F(FSpritesTest, WhatIsNotSeenIsNotDrawn)
{
	Start({Comment(""), Comment("clear", 1, "#FFFFFF00"), Comment("no colour", 1, "white")});
	EXPECT_EQ(Comments.size(), 3u);
	EXPECT_TRUE(Drawn.empty());
	EXPECT_FALSE(Sprites->WasCut());
}

TEST_F(FSpritesTest, MemoryIsBounded)
{
	std::vector<std::string> Texts;
	for (int Index = 0; Index < 8; ++Index)
	{
		Texts.push_back(Comment("a comment of some length, number " + std::to_string(Index)));
	}
	Start(Texts);
	ASSERT_EQ(Drawn.size(), 8u);
	const int64 One = static_cast<int64>(Drawn[0].Sprite->Pixels.size());
	Drawn.clear();

	Stage->GetOverlay().Empty();
	Stage->SetMediaTime(TicksPerSecond);
	Stage->RunFrame(0.f);
	Stage->SetMediaTime(0);
	Start(Texts, One * 7 / 2);
	EXPECT_EQ(Comments.size(), 8u);
	EXPECT_GE(Drawn.size(), 2u);
	EXPECT_LE(Drawn.size(), 3u);
	EXPECT_TRUE(Sprites->WasCut());
}

} // namespace
} // namespace Flitmark
