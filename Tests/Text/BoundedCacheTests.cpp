#include "BoundedCache.h"

#include "GlyphStore.h"
#include "Text/TextLimits.h"
#include "TextTestKit.h"

namespace Flitmark
{

namespace
{

struct FSpread
{
	std::size_t operator()(uint64 InKey) const { return InKey * 0x9e3779b97f4a7c15U; }
};
using FNumberCache = TBoundedCache<uint64, uint64, FSpread, std::equal_to<uint64>, 16>;

constexpr std::size_t CacheBytes = 32 * 1000;
constexpr std::size_t EntryBytes = 10;

} // namespace

TEST(BoundedCache, GivesWhatWasAddedAndNothingElse)
{
	FNumberCache Cache(CacheBytes);
	uint64 Value = 0;
	EXPECT_FALSE(Cache.Find(uint64{1}, Value));
	Cache.Add(1, 11, EntryBytes);
	Cache.Add(2, 22, EntryBytes);
	EXPECT_TRUE(Cache.Find(uint64{1}, Value));
	EXPECT_EQ(Value, 11U);
	EXPECT_FALSE(Cache.Find(uint64{3}, Value));
	EXPECT_EQ(Cache.CountBytes(), 2 * EntryBytes);
}

TEST(BoundedCache, StaysWithinItsBoundAndKeepsWhatIsInUse)
{
	FNumberCache Cache(CacheBytes);
	uint64 Value = 0;
	Cache.Add(0, 42, EntryBytes);
	for (uint64 Key = 1; Key < 50000; ++Key)
	{
		Cache.Add(Key, Key, EntryBytes);
		ASSERT_TRUE(Cache.Find(uint64{0}, Value)) << "lost after " << Key;
	}
	EXPECT_EQ(Value, 42U);
	EXPECT_LE(Cache.CountBytes(), CacheBytes);
	EXPECT_GT(Cache.CountBytes(), CacheBytes / 4);
	EXPECT_FALSE(Cache.Find(uint64{1}, Value)) << "what nobody asks for goes";
}

TEST(BoundedCache, DoesNotKeepWhatWouldPushOutAllElse)
{
	FNumberCache Cache(CacheBytes);
	uint64 Value = 0;
	Cache.Add(1, 11, CacheBytes);
	EXPECT_FALSE(Cache.Find(uint64{1}, Value));
	EXPECT_EQ(Cache.CountBytes(), 0U);
}

TEST(GlyphStore, MemoryIsBounded)
{
	FGlyphStore Store(GetFonts());
	const uint32 Glyph = ShapeText(u"国").front().Glyph;
	const FFontId Font = ShapeText(u"国").front().Font;
	std::size_t Drawn = 0;
	for (int32 Size = 400; Drawn < FTextLimits::GlyphCacheBytes * 3 / 2; ++Size)
	{
		const auto Image = Store.Get({Glyph, Font, 0, Size * 64, Size * 64});
		ASSERT_FALSE(Image->Masks.Pixels.empty());
		Drawn += Image->Masks.Pixels.size() * sizeof(uint16);
	}
	EXPECT_LE(Store.CountBytes(), FTextLimits::GlyphCacheBytes);
	EXPECT_GT(Store.CountBytes(), FTextLimits::GlyphCacheBytes / 8);
}

} // namespace Flitmark
