#include "BoundedCache.h"

#include "GlyphStore.h"
#include "TextLimits.h"
#include "TextTestKit.h"

namespace Flitmark
{

namespace
{

struct FSpread
{
	std::size_t operator()(std::uint64_t InKey) const { return InKey * 0x9e3779b97f4a7c15U; }
};
using FNumberCache = TBoundedCache<std::uint64_t, std::uint64_t, FSpread, std::equal_to<std::uint64_t>, 16>;

constexpr std::size_t CacheBytes = 32 * 1000;
constexpr std::size_t EntryBytes = 10;

} // namespace

TEST(BoundedCache, GivesWhatWasAddedAndNothingElse)
{
	FNumberCache Cache(CacheBytes);
	std::uint64_t Value = 0;
	EXPECT_FALSE(Cache.Find(std::uint64_t{1}, Value));
	Cache.Add(1, 11, EntryBytes);
	Cache.Add(2, 22, EntryBytes);
	EXPECT_TRUE(Cache.Find(std::uint64_t{1}, Value));
	EXPECT_EQ(Value, 11U);
	EXPECT_FALSE(Cache.Find(std::uint64_t{3}, Value));
	EXPECT_EQ(Cache.CountBytes(), 2 * EntryBytes);
}

TEST(BoundedCache, StaysWithinItsBoundAndKeepsWhatIsInUse)
{
	FNumberCache Cache(CacheBytes);
	std::uint64_t Value = 0;
	Cache.Add(0, 42, EntryBytes);
	for (std::uint64_t Key = 1; Key < 50000; ++Key)
	{
		Cache.Add(Key, Key, EntryBytes);
		ASSERT_TRUE(Cache.Find(std::uint64_t{0}, Value)) << "lost after " << Key;
	}
	EXPECT_EQ(Value, 42U);
	EXPECT_LE(Cache.CountBytes(), CacheBytes);
	EXPECT_GT(Cache.CountBytes(), CacheBytes / 4);
	EXPECT_FALSE(Cache.Find(std::uint64_t{1}, Value)) << "what nobody asks for goes";
}

TEST(BoundedCache, DoesNotKeepWhatWouldPushOutAllElse)
{
	FNumberCache Cache(CacheBytes);
	std::uint64_t Value = 0;
	Cache.Add(1, 11, CacheBytes);
	EXPECT_FALSE(Cache.Find(std::uint64_t{1}, Value));
	EXPECT_EQ(Cache.CountBytes(), 0U);
}

TEST(GlyphStore, MemoryIsBounded)
{
	FGlyphStore Store(GetFonts());
	const std::uint32_t Glyph = ShapeText(u"国").front().Glyph;
	const FFontId Font = ShapeText(u"国").front().Font;
	std::size_t Drawn = 0;
	for (std::int32_t Size = 400; Drawn < FTextLimits::GlyphCacheBytes * 3 / 2; ++Size)
	{
		const auto Image = Store.Get({Glyph, Font, 0, Size * 64, Size * 64});
		ASSERT_FALSE(Image->Masks.Pixels.empty());
		Drawn += Image->Masks.Pixels.size() * sizeof(std::uint16_t);
	}
	EXPECT_LE(Store.CountBytes(), FTextLimits::GlyphCacheBytes);
	EXPECT_GT(Store.CountBytes(), FTextLimits::GlyphCacheBytes / 8);
}

} // namespace Flitmark
