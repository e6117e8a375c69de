#pragma once

#include "Scene/AtlasPacker.h"
#include "Overlay/CommentScene.h"

#include <list>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Flitmark
{

/** A part of a sprite, on a page. */
struct FAtlasTile
{
	int32 Page = 0;
	/** With a border of one pixel around the part. */
	FAtlasSlot Slot;
	/** The part's top-left corner in the sprite. */
	int32 SpriteX = 0;
	int32 SpriteY = 0;

	int32 GetWidth() const { return Slot.Width - 2; }
	int32 GetHeight() const { return Slot.Height - 2; }
};

/** A sprite in the atlas; without tiles where there is nothing to be seen. */
struct FAtlasSprite
{
	/** Keeps the style's number from being given up while its sprite is at hand. */
	std::shared_ptr<const FSharedStyle> Style;
	/** Device pixels per canvas unit that it was made for. */
	double Scale = 1.0;

	/** As in FSprite. */
	int32 Width = 0;
	int32 Height = 0;
	int32 Left = 0;
	int32 Top = 0;

	std::vector<FAtlasTile> Tiles;
};

/**
 * Which sprite lies where on the pages of an atlas. Sprites that no frame uses stay until their room is needed or they have
 * been idle for long.
 */
class FAtlasBook
{
public:
	/** Seconds after which an unused sprite goes. */
	static constexpr double MaxIdleTime = 20.0;

	/** InPageSize: pixels of a page's side. */
	FAtlasBook(int32 InPageSize, int32 InMaxPages);

	/** A frame begins at InNow, in seconds: what is not used in it may be given up. */
	void BeginFrame(double InNow);

	/** A style's sprite, which the present frame uses; null where there is none. */
	const FAtlasSprite* Use(uint64 InStyleId);
	const FAtlasSprite* Find(uint64 InStyleId) const;

	/** Room for a sprite, in tiles where it is larger than a page. Null where the pages are full of sprites in use. */
	std::optional<std::vector<FAtlasTile>> Reserve(int32 InWidth, int32 InHeight);
	/** Gives up what Reserve gave. */
	void Release(const std::vector<FAtlasTile>& InTiles);
	/** Enters a sprite, in place of its style's one before. */
	void Enter(FAtlasSprite InSprite);

	int32 GetPageSize() const { return PageSize; }
	/** Pages that have a number; some may be closed. */
	int32 GetNumPages() const { return static_cast<int32>(Pages.size()); }
	bool IsPageOpen(int32 InPage) const { return Pages[static_cast<std::size_t>(InPage)].bOpen; }

private:
	struct FPage
	{
		FAtlasPacker Packer;
		/** Has or will have a texture. */
		bool bOpen = true;
	};
	struct FEntry
	{
		FAtlasSprite Sprite;
		uint64 LastFrame = 0;
		double LastTime = 0.0;
	};
	using FEntries = std::list<FEntry>;

	bool ReserveTile(int32 InWidth, int32 InHeight, FAtlasTile& OutTile);
	bool ReserveOnOpenPage(int32 InWidth, int32 InHeight, FAtlasTile& OutTile);
	bool OpenPage();
	bool DropIdle();
	void Drop(FEntries::iterator InEntry);

	const int32 PageSize;
	const int32 MaxPages;
	uint64 Frame = 0;
	double Now = 0.0;
	std::vector<FPage> Pages;
	/** The longest unused first. */
	FEntries Entries;
	std::unordered_map<uint64, FEntries::iterator> ByStyle;
};

} // namespace Flitmark
