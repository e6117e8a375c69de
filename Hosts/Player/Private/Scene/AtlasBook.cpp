#include "Scene/AtlasBook.h"

#include <algorithm>

namespace Flitmark
{

FAtlasBook::FAtlasBook(int32 InPageSize, int32 InMaxPages)
	: PageSize(InPageSize)
	, MaxPages(InMaxPages)
{
}

void FAtlasBook::BeginFrame(double InNow)
{
	++Frame;
	Now = InNow;
	bool bDropped = false;
	while (!Entries.empty() && Entries.front().LastTime < Now - MaxIdleTime)
	{
		bDropped |= DropIdle();
	}
	if (bDropped)
	{
		for (FPage& Page : Pages)
		{
			Page.bOpen = Page.bOpen && !Page.Packer.IsEmpty();
		}
	}
}

const FAtlasSprite* FAtlasBook::Use(uint64 InStyleId)
{
	const auto Known = ByStyle.find(InStyleId);
	if (Known == ByStyle.end())
	{
		return nullptr;
	}
	FEntry& Entry = *Known->second;
	if (Entry.LastFrame != Frame)
	{
		Entry.LastFrame = Frame;
		Entry.LastTime = Now;
		Entries.splice(Entries.end(), Entries, Known->second);
	}
	return &Entry.Sprite;
}

const FAtlasSprite* FAtlasBook::Find(uint64 InStyleId) const
{
	const auto Known = ByStyle.find(InStyleId);
	return Known != ByStyle.end() ? &Known->second->Sprite : nullptr;
}

std::optional<std::vector<FAtlasTile>> FAtlasBook::Reserve(int32 InWidth, int32 InHeight)
{
	std::vector<FAtlasTile> Tiles;
	const int32 Most = PageSize - 2;
	for (int32 Y = 0; Y < InHeight; Y += Most)
	{
		for (int32 X = 0; X < InWidth; X += Most)
		{
			FAtlasTile Tile;
			if (!ReserveTile(std::min(Most, InWidth - X) + 2, std::min(Most, InHeight - Y) + 2, Tile))
			{
				Release(Tiles);
				return std::nullopt;
			}
			Tile.SpriteX = X;
			Tile.SpriteY = Y;
			Tiles.push_back(Tile);
		}
	}
	return Tiles;
}

bool FAtlasBook::ReserveTile(int32 InWidth, int32 InHeight, FAtlasTile& OutTile)
{
	while (!ReserveOnOpenPage(InWidth, InHeight, OutTile))
	{
		if (!DropIdle() && !OpenPage())
		{
			return false;
		}
	}
	return true;
}

bool FAtlasBook::ReserveOnOpenPage(int32 InWidth, int32 InHeight, FAtlasTile& OutTile)
{
	for (std::size_t Index = 0; Index < Pages.size(); ++Index)
	{
		if (!Pages[Index].bOpen)
		{
			continue;
		}
		if (const std::optional<FAtlasSlot> Slot = Pages[Index].Packer.Place(InWidth, InHeight))
		{
			OutTile.Page = static_cast<int32>(Index);
			OutTile.Slot = *Slot;
			return true;
		}
	}
	return false;
}

bool FAtlasBook::OpenPage()
{
	const auto Closed = std::ranges::find(Pages, false, &FPage::bOpen);
	if (Closed != Pages.end())
	{
		Closed->bOpen = true;
		return true;
	}
	if (GetNumPages() < MaxPages)
	{
		Pages.push_back({FAtlasPacker(PageSize)});
		return true;
	}
	return false;
}

bool FAtlasBook::DropIdle()
{
	if (Entries.empty() || Entries.front().LastFrame == Frame)
	{
		return false;
	}
	Drop(Entries.begin());
	return true;
}

void FAtlasBook::Drop(FEntries::iterator InEntry)
{
	Release(InEntry->Sprite.Tiles);
	ByStyle.erase(InEntry->Sprite.Style->Id);
	Entries.erase(InEntry);
}

void FAtlasBook::Release(const std::vector<FAtlasTile>& InTiles)
{
	for (const FAtlasTile& Tile : InTiles)
	{
		Pages[static_cast<std::size_t>(Tile.Page)].Packer.Remove(Tile.Slot);
	}
}

void FAtlasBook::Enter(FAtlasSprite InSprite)
{
	const uint64 Id = InSprite.Style->Id;
	if (const auto Known = ByStyle.find(Id); Known != ByStyle.end())
	{
		Drop(Known->second);
	}
	Entries.push_back({std::move(InSprite), Frame, Now});
	ByStyle.emplace(Id, std::prev(Entries.end()));
}

} // namespace Flitmark
