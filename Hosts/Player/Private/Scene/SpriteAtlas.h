#pragma once

#include "Scene/AtlasBook.h"
#include "Scene/SpriteMaker.h"

#include <QSGTexture>

#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

class QOpenGLFunctions;
class QQuickWindow;

namespace Flitmark
{

/**
 * Sprites in the scene's textures. Lives on the scene's render thread with its OpenGL context current, and must be
 * destroyed before the context.
 */
class FSpriteAtlas
{
public:
	/**
	 * Limit on the bytes of all textures; a screen full of comments takes a tenth. Beyond it, comments are not drawn.
	 */
	static constexpr int64 MaxTextureBytes = int64{256} << 20;

	/** A frame's upload limit: bytes or seconds, whichever comes first. */
	static constexpr int64 FrameBytes = int64{2} << 20;
	static constexpr double FrameTime = 0.002;

	/** InWindow must outlive this object. */
	explicit FSpriteAtlas(QQuickWindow& InWindow, int64 InMaxBytes = MaxTextureBytes);
	~FSpriteAtlas();

	/** InNow: seconds of a steady clock. Returns whether a page's texture was freed. */
	bool BeginFrame(double InNow);

	/** As in FAtlasBook; at any scale. */
	const FAtlasSprite* Use(uint64 InStyleId) { return Book.Use(InStyleId); }
	const FAtlasSprite* Find(uint64 InStyleId) const { return Book.Find(InStyleId); }

	/** Whether to make a sprite: it is neither here at this scale nor on its way, and it did not recently lack room. */
	bool IsMissing(uint64 InStyleId, double InScale) const;

	/** Takes finished sprites and uploads as much as a frame may. Returns whether a sprite became drawable. */
	bool Upload(FSpriteMaker& InMaker);
	/** Whether the last call to Upload left something to do. */
	bool HasMore() const { return bHasMore; }

	QSGTexture& GetPage(int32 InPage) const { return *Pages[static_cast<std::size_t>(InPage)].Texture; }
	int32 GetNumPages() const { return static_cast<int32>(Pages.size()); }
	/** A page's side, in pixels. */
	int32 GetPageSize() const { return Book.GetPageSize(); }
	int64 GetTextureBytes() const;

	/** Whether something was not drawn since the last call. */
	bool TakeUndrawn() { return std::exchange(bUndrawn, false); }

private:
	struct FPage
	{
		unsigned int Name = 0;
		/** Null while there is no texture. */
		std::unique_ptr<QSGTexture> Texture;
	};
	/** A sprite on its way. */
	struct FUpload
	{
		FSprite Source;
		FAtlasSprite Target;
		/** What to upload next: a tile, and a row of its slot. */
		std::size_t Tile = 0;
		int32 Row = 0;
	};

	void Begin(FMadeSprite InMade);
	int64 UploadRows(int64 InMaxBytes);
	void StageRow(const FSprite& InSprite, const FAtlasTile& InTile, int32 InRow);
	void OpenPage(int32 InPage);
	void ClosePage(FPage& InPage);

	QQuickWindow& Window;
	QOpenGLFunctions& Gl;
	FAtlasBook Book;
	std::vector<FPage> Pages;
	std::optional<FUpload> Current;
	std::vector<uint8> Staging;

	double Now = 0.0;
	/** Styles for which there was no room, and when to try again. */
	std::unordered_map<uint64, double> Refused;
	bool bHasMore = false;
	bool bUndrawn = false;
};

} // namespace Flitmark
