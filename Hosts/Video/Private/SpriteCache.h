#pragma once

#include "Text/Sprite.h"

#include <memory>
#include <unordered_map>

namespace Flitmark
{

/** What a blender makes of each live sprite, once. MadeType is constructed from sprite, opacity, and style. */
template <class MadeType, class StyleType>
class TSpriteCache
{
public:
	/** InStyle outlives this. */
	explicit TSpriteCache(const StyleType& InStyle)
		: Style(InStyle)
	{
	}

	MadeType& Find(const FPlacedSprite& InPlaced)
	{
		FEntry& Entry = Entries[InPlaced.Sprite.get()];
		// A new sprite may have the address of a dead one.
		if (Entry.Sprite.expired() || Entry.Opacity != InPlaced.Opacity)
		{
			Entry.Made = std::make_unique<MadeType>(*InPlaced.Sprite, InPlaced.Opacity, Style);
			Entry.Sprite = InPlaced.Sprite;
			Entry.Opacity = InPlaced.Opacity;
		}
		return *Entry.Made;
	}

	/** Forgets dead sprites; once a frame. */
	void Sweep()
	{
		constexpr int32 FramesBetween = 32;
		if (++Frames % FramesBetween == 0)
		{
			std::erase_if(Entries, [](const auto& InEntry) { return InEntry.second.Sprite.expired(); });
		}
	}

private:
	struct FEntry
	{
		std::weak_ptr<const FSprite> Sprite;
		double Opacity = 1.0;
		std::unique_ptr<MadeType> Made;
	};

	const StyleType& Style;
	std::unordered_map<const FSprite*, FEntry> Entries;
	uint32 Frames = 0;
};

} // namespace Flitmark
