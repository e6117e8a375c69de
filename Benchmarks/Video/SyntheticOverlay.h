#pragma once

#include "CoreTypes.h"
#include "Video/OverlaySource.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace Flitmark
{

/** How full of comments a picture is. */
struct FCrowd
{
	const char* Name;

	/** A comment's size, pixels of a 1080-line picture. */
	int32 Width;
	int32 Height;

	/** Lanes, and pixels from a comment's beginning to the next one's in a lane. */
	int32 Lanes;
	int32 Spacing;
};

/** Sizes as 24 and 10 point texts of nine letters have them. */
inline constexpr FCrowd Crowds[] = {
	{"no comments", 300, 42, 0, 300},
	{"30 visible", 300, 42, 25, 1850},
	{"full, 24 points", 300, 42, 25, 500},
	{"full, 10 points", 125, 18, 60, 140},
};

/** A picture like a line of text: white strokes with a dark outline in cells of a letter's width. */
inline FSprite MakeTextLikeSprite(int32 InWidth, int32 InHeight, uint32 InSeed)
{
	FSprite Sprite;
	Sprite.Width = InWidth;
	Sprite.Height = InHeight;
	const size_t Pixels = static_cast<size_t>(InWidth) * static_cast<size_t>(InHeight);
	Sprite.Pixels.assign(Pixels * 4, 0);
	std::mt19937 Random(InSeed);
	std::vector<float> Distance(Pixels, 100.0f);
	const int32 Cell = InHeight * 3 / 4;
	const auto Stroke = [&](float InX0, float InY0, float InX1, float InY1)
	{
		for (size_t Index = 0; Index < Pixels; ++Index)
		{
			const float X = static_cast<float>(Index % static_cast<size_t>(InWidth));
			const float Y = static_cast<float>(Index / static_cast<size_t>(InWidth));
			const float DX = InX1 - InX0;
			const float DY = InY1 - InY0;
			const float T = std::clamp(((X - InX0) * DX + (Y - InY0) * DY) / (DX * DX + DY * DY + 0.01f), 0.0f, 1.0f);
			const float Far = std::hypot(X - InX0 - T * DX, Y - InY0 - T * DY);
			Distance[Index] = std::min(Distance[Index], Far);
		}
	};
	const float Margin = static_cast<float>(InHeight) * 0.2f;
	std::uniform_real_distribution<float> Across(Margin * 0.5f, static_cast<float>(Cell) - Margin * 0.5f);
	std::uniform_real_distribution<float> Down(Margin, static_cast<float>(InHeight) - Margin);
	for (int32 Left = 0; Left + Cell <= InWidth; Left += Cell)
	{
		const float X = static_cast<float>(Left);
		for (int32 Strokes = 0; Strokes < 3; ++Strokes)
		{
			Stroke(X + Across(Random), Down(Random), X + Across(Random), Down(Random));
		}
	}
	const float Pen = static_cast<float>(InHeight) / 24.0f;
	const float Outline = Pen + static_cast<float>(InHeight) / 24.0f;
	for (size_t Index = 0; Index < Pixels; ++Index)
	{
		const float White = std::clamp(Pen + 0.5f - Distance[Index], 0.0f, 1.0f);
		const float Ink = std::clamp(Outline + 0.5f - Distance[Index], 0.0f, 1.0f);
		for (size_t Channel = 0; Channel < 4; ++Channel)
		{
			Sprite.Pixels[Index * 4 + Channel] = static_cast<uint8>(255.0f * (Channel == 3 ? Ink : White));
		}
	}
	return Sprite;
}

/** Lanes of comments that fly from right to left in eight seconds; each comment has a sprite of its own. */
class FSyntheticOverlay final : public IOverlaySource
{
public:
	explicit FSyntheticOverlay(const FCrowd& InCrowd)
		: Crowd(InCrowd)
	{
		for (uint32 Seed = 0; Seed < 16; ++Seed)
		{
			Kinds.push_back(MakeTextLikeSprite(Crowd.Width, Crowd.Height, Seed));
		}
	}

	void Open(const FVideoShape& InShape) override { Shape = InShape; }

	void Advance(int64 InTicks, double, std::vector<FPlacedSprite>& OutSprites) override
	{
		const double Way = static_cast<double>(Shape.Width + Crowd.Width) / 8.0 * static_cast<double>(InTicks) / 1e7;
		for (int32 Lane = 0; Lane < Crowd.Lanes; ++Lane)
		{
			AddLane(Lane, Way + Lane * 0.37 * Crowd.Spacing, OutSprites);
		}
		Painted += static_cast<int64>(OutSprites.size());
		++Frames;
	}

	double AverageVisible() const
	{
		return static_cast<double>(Painted) / static_cast<double>(std::max<int64>(1, Frames));
	}

private:
	void AddLane(int32 InLane, double InWay, std::vector<FPlacedSprite>& OutSprites)
	{
		// As if the film had gone on before, so that the picture is full from the first frame.
		const int64 Newest = static_cast<int64>(InWay / Crowd.Spacing);
		for (int64 Index = Newest;; --Index)
		{
			const double X = Shape.Width - InWay + static_cast<double>(Index * Crowd.Spacing);
			const auto Key = std::pair(InLane, Index);
			if (X < -Crowd.Width)
			{
				Alive.erase(Key);
				return;
			}
			auto& Sprite = Alive[Key];
			if (!Sprite)
			{
				Sprite =
					std::make_shared<FSprite>(Kinds[static_cast<size_t>(InLane * 5 + Index + 1600) % Kinds.size()]);
			}
			OutSprites.push_back({Sprite, X, static_cast<double>(InLane * Crowd.Height)});
		}
	}

	FCrowd Crowd;
	FVideoShape Shape;
	std::vector<FSprite> Kinds;
	std::map<std::pair<int32, int64>, std::shared_ptr<const FSprite>> Alive;
	int64 Painted = 0;
	int64 Frames = 0;
};

} // namespace Flitmark
