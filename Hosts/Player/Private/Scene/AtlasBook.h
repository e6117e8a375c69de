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

/** A part of a sprite on a page. */
struct FAtlasTile
{
	int32 Page = 0;
	/** Includes a border of one pixel around the part. */
	FAtlasSlot Slot;
	/** The part's top-left corner in the sprite. */
	int32 SpriteX = 0;
	int32 SpriteY = 0;

	int32 GetWidth() const { return Slot.Width - 2; }
	int32 GetHeight() const { return Slot.Height - 2; }
};

/** A sprite in the atlas; without tiles if there is nothing to see. */
struct FAtlasSprite
{
	/** Keeps the style's number from being reused while its sprite is here. */
	std::shared_ptr<const FSharedStyle> Style;
	/** Device pixels per canvas unit for which it was made. */
	double Scale = 1.0;

	/** As in FSprite. */
	int32 Width = 0;
	int32 Height = 0;
	int32 Left = 0;
	int32 Top = 0;

	std::vector<FAtlasTile> Tiles;
};

/**
 * Keeps track of where each sprite is on an atlas's pages. Unused sprites stay until their room is needed or they have
 * been idle for long.
 */
class FAtlasBook
{
public:
	/** Seconds after which an unused sprite is dropped. */
	static constexpr double MaxIdleTime = 20.0;

	/** InPageSize: a page's side, in pixels. */
	FAtlasBook(int32 InPageSize, int32 InMaxPages);

	/** A frame begins at InNow, in seconds; sprites that it does not use may be dropped. */
	void BeginFrame(double InNow);

	/** A style's sprite, marked as used in the current frame; null if there is none. */
	const FAtlasSprite* Use(uint64 InStyleId);
	const FAtlasSprite* Find(uint64 InStyleId) const;

	/**
	 * Reserves room for a sprite, in tiles if it is larger than a page. Null if the pages are full of sprites in use.
	 */
	std::optional<std::vector<FAtlasTile>> Reserve(int32 InWidth, int32 InHeight);
	/** Frees what Reserve returned. */
	void Release(const std::vector<FAtlasTile>& InTiles);
	/** Adds a sprite, replacing its style's previous one. */
	void Enter(FAtlasSprite InSprite);

	int32 GetPageSize() const { return PageSize; }
	/** Pages that have a number; some may be closed. */
	int32 GetNumPages() const { return static_cast<int32>(Pages.size()); }
	bool IsPageOpen(int32 InPage) const { return Pages[static_cast<std::size_t>(InPage)].bOpen; }

private:
	struct FPage
	{
		FAtlasPacker Packer;
		/** Whether it has or will have a texture. */
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
	/** The longest unused come first. */
	FEntries Entries;
	std::unordered_map<uint64, FEntries::iterator> ByStyle;
};

} // namespace Flitmark
