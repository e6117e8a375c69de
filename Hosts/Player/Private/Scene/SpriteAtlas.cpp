#include "Scene/SpriteAtlas.h"

#include "Scene/FrameClock.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

#include <algorithm>

namespace Flitmark
{

namespace
{

/** A page's side, in pixels: room for about a hundred comments, in a texture that every graphics card supports. */
constexpr GLint UsualPageSize = 2048;
constexpr int64 BytesPerPixel = 4;

/** Seconds before retrying a sprite for which there was no room. */
constexpr double RetryTime = 1.0;

int32 FindPageSize(QOpenGLFunctions& InGl)
{
	GLint Most = 0;
	InGl.glGetIntegerv(GL_MAX_TEXTURE_SIZE, &Most);
	return Most > 0 ? std::min(Most, UsualPageSize) : UsualPageSize;
}

int32 CountPages(int64 InMaxBytes, int32 InPageSize)
{
	return static_cast<int32>(InMaxBytes / (int64{InPageSize} * InPageSize * BytesPerPixel));
}

} // namespace

FSpriteAtlas::FSpriteAtlas(QQuickWindow& InWindow, int64 InMaxBytes)
	: Window(InWindow)
	, Gl(*QOpenGLContext::currentContext()->functions())
	, Book(FindPageSize(Gl), CountPages(InMaxBytes, FindPageSize(Gl)))
{
}

FSpriteAtlas::~FSpriteAtlas()
{
	for (FPage& Page : Pages)
	{
		ClosePage(Page);
	}
}

bool FSpriteAtlas::BeginFrame(double InNow)
{
	Now = InNow;
	std::erase_if(Refused, [InNow](const auto& InRefused) { return InRefused.second <= InNow; });
	Book.BeginFrame(InNow);
	bool bClosed = false;
	for (int32 Index = 0; Index < GetNumPages(); ++Index)
	{
		FPage& Page = Pages[static_cast<std::size_t>(Index)];
		if (Page.Texture && !Book.IsPageOpen(Index))
		{
			ClosePage(Page);
			bClosed = true;
		}
	}
	return bClosed;
}

bool FSpriteAtlas::IsMissing(uint64 InStyleId, double InScale) const
{
	if (Current && Current->Target.Style->Id == InStyleId && Current->Target.Scale == InScale)
	{
		return false;
	}
	const FAtlasSprite* Sprite = Book.Find(InStyleId);
	return (Sprite == nullptr || Sprite->Scale != InScale) && !Refused.contains(InStyleId);
}

bool FSpriteAtlas::Upload(FSpriteMaker& InMaker)
{
	const double End = ReadSteadyClock() + FrameTime;
	int64 Left = FrameBytes;
	bool bEntered = false;
	bHasMore = false;
	while (true)
	{
		if (!Current)
		{
			std::optional<FMadeSprite> Made = InMaker.Take();
			if (!Made)
			{
				return bEntered;
			}
			Begin(std::move(*Made));
		}
		while (Current && Current->Tile < Current->Target.Tiles.size())
		{
			if (Left <= 0 || ReadSteadyClock() >= End)
			{
				bHasMore = true;
				return bEntered;
			}
			Left -= UploadRows(Left);
		}
		if (Current)
		{
			Book.Enter(std::move(Current->Target));
			Current.reset();
			bEntered = true;
		}
	}
}

void FSpriteAtlas::Begin(FMadeSprite InMade)
{
	const FSprite& Sprite = InMade.Sprite;
	bUndrawn = bUndrawn || Sprite.bCut;
	std::optional<std::vector<FAtlasTile>> Tiles = Book.Reserve(Sprite.Width, Sprite.Height);
	if (!Tiles)
	{
		bUndrawn = true;
		Refused[InMade.Style->Id] = Now + RetryTime;
		return;
	}
	for (const FAtlasTile& Tile : *Tiles)
	{
		OpenPage(Tile.Page);
	}
	FAtlasSprite Target{std::move(InMade.Style), InMade.Scale, Sprite.Width, Sprite.Height, Sprite.Left, Sprite.Top,
						std::move(*Tiles)};
	Current.emplace(FUpload{std::move(InMade.Sprite), std::move(Target)});
}

int64 FSpriteAtlas::UploadRows(int64 InMaxBytes)
{
	const FAtlasTile& Tile = Current->Target.Tiles[Current->Tile];
	const int64 RowBytes = Tile.Slot.Width * BytesPerPixel;
	const int32 First = Current->Row;
	const int32 NumRows =
		static_cast<int32>(std::clamp<int64>(InMaxBytes / RowBytes, 1, static_cast<int64>(Tile.Slot.Height - First)));
	Staging.clear();
	for (int32 Row = First; Row < First + NumRows; ++Row)
	{
		StageRow(Current->Source, Tile, Row);
	}
	Gl.glBindTexture(GL_TEXTURE_2D, Pages[static_cast<std::size_t>(Tile.Page)].Name);
	Gl.glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
	Gl.glTexSubImage2D(GL_TEXTURE_2D, 0, Tile.Slot.X, Tile.Slot.Y + First, Tile.Slot.Width, NumRows, GL_RGBA,
					   GL_UNSIGNED_BYTE, Staging.data());
	Gl.glBindTexture(GL_TEXTURE_2D, 0);
	Current->Row += NumRows;
	if (Current->Row == Tile.Slot.Height)
	{
		Current->Row = 0;
		++Current->Tile;
	}
	return RowBytes * NumRows;
}

void FSpriteAtlas::StageRow(const FSprite& InSprite, const FAtlasTile& InTile, int32 InRow)
{
	// The border is clear, except that next to another tile it repeats that tile's edge, so that no seam shows.
	const std::size_t Begin = Staging.size();
	Staging.resize(Begin + static_cast<std::size_t>(InTile.Slot.Width * BytesPerPixel));
	const int32 Y = InTile.SpriteY + InRow - 1;
	if (Y < 0 || Y >= InSprite.Height)
	{
		return;
	}
	const int32 First = std::max(InTile.SpriteX - 1, 0);
	const int32 Last = std::min(InTile.SpriteX + InTile.GetWidth() + 1, InSprite.Width);
	const auto Source = InSprite.Pixels.begin() + (int64{Y} * InSprite.Width + First) * BytesPerPixel;
	const int64 Skipped = (First - (InTile.SpriteX - 1)) * BytesPerPixel;
	std::copy_n(Source, (Last - First) * BytesPerPixel, Staging.begin() + static_cast<int64>(Begin) + Skipped);
}

void FSpriteAtlas::OpenPage(int32 InPage)
{
	if (Pages.size() <= static_cast<std::size_t>(InPage))
	{
		Pages.resize(static_cast<std::size_t>(InPage) + 1);
	}
	FPage& Page = Pages[static_cast<std::size_t>(InPage)];
	if (Page.Texture)
	{
		return;
	}
	const GLsizei Size = Book.GetPageSize();
	Gl.glGenTextures(1, &Page.Name);
	Gl.glBindTexture(GL_TEXTURE_2D, Page.Name);
	Gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
	Gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
	Gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
	Gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
	Gl.glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, Size, Size, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
	Gl.glBindTexture(GL_TEXTURE_2D, 0);
	Page.Texture.reset(QNativeInterface::QSGOpenGLTexture::fromNative(Page.Name, &Window, QSize(Size, Size),
																	  QQuickWindow::TextureHasAlphaChannel));
}

void FSpriteAtlas::ClosePage(FPage& InPage)
{
	// Without its context, the texture is already gone.
	if (InPage.Texture && QOpenGLContext::currentContext() != nullptr)
	{
		Gl.glDeleteTextures(1, &InPage.Name);
	}
	InPage.Texture.reset();
	InPage.Name = 0;
}

int64 FSpriteAtlas::GetTextureBytes() const
{
	const auto NumOpen = std::ranges::count_if(Pages, [](const FPage& InPage) { return InPage.Texture != nullptr; });
	return NumOpen * int64{Book.GetPageSize()} * Book.GetPageSize() * BytesPerPixel;
}

} // namespace Flitmark
