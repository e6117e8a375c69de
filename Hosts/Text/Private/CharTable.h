#pragma once

#include "CoreTypes.h"
#include "FontSet.h"

#include <array>
#include <atomic>
#include <memory>

namespace Flitmark
{

/** Layout properties of a character. */
enum class ECharFlags : uint16
{
	None = 0,

	/** In a plain run, it adds its own Advance, whatever its neighbors. */
	Simple = 1U << 0U,

	/** Combines with the preceding character. */
	Mark = 1U << 1U,

	/** Invisible by itself: joiners, variation selectors, direction marks. */
	Ignorable = 1U << 2U,

	/** Right-to-left, or affects direction: the line needs the bidirectional algorithm. */
	Bidi = 1U << 3U,

	/** May be shown as an emoji (ASCII left aside: see keycaps); is one by default; a skin tone; half a flag. */
	Emoji = 1U << 4U,
	EmojiByDefault = 1U << 5U,
	SkinTone = 1U << 6U,
	Regional = 1U << 7U,
};

constexpr ECharFlags operator|(ECharFlags InLeft, ECharFlags InRight)
{
	return static_cast<ECharFlags>(static_cast<unsigned>(InLeft) | static_cast<unsigned>(InRight));
}

constexpr ECharFlags Without(ECharFlags InFlags, ECharFlags InRemoved)
{
	return static_cast<ECharFlags>(static_cast<unsigned>(InFlags) & ~static_cast<unsigned>(InRemoved));
}

constexpr bool HasAny(ECharFlags InFlags, ECharFlags InAsked)
{
	return (static_cast<unsigned>(InFlags) & static_cast<unsigned>(InAsked)) != 0;
}

struct FCharInfo
{
	/** In TextMetrics::UnitsPerEm; only of Simple characters. */
	int32 Advance = 0;

	/** First font that has the character, the emoji font last; the primary one if none has it. */
	FFontId Font = FFontSet::Primary;

	/** For FCharTable::GetScript; kana and bopomofo count as Han, with which they are laid out. */
	uint8 Script = 0;
	ECharFlags Flags = ECharFlags::None;
};

/**
 * Properties of every character, computed on first use. A lookup takes no lock: whoever sees a character
 * first computes the same record as everyone else, so it does not matter who stores it.
 */
class FCharTable
{
public:
	explicit FCharTable(FFontSet& InFonts);
	~FCharTable();
	FCharTable(const FCharTable&) = delete;
	FCharTable& operator=(const FCharTable&) = delete;

	/** InPoint: up to 0x10ffff. */
	FCharInfo Find(uint32 InPoint)
	{
		const FPage* Page = Pages[InPoint / PageSize].load(std::memory_order_acquire);
		const uint64 Packed = Page ? (*Page)[InPoint % PageSize].load(std::memory_order_relaxed) : 0;
		return Packed != 0 ? Unpack(Packed) : Learn(InPoint);
	}

	static hb_script_t GetScript(uint8 InScript);
	static bool IsCommon(uint8 InScript);

private:
	static constexpr std::size_t PageSize = 256;
	using FPage = std::array<std::atomic<uint64>, PageSize>;

	static uint64 Pack(const FCharInfo& InInfo);
	static FCharInfo Unpack(uint64 InPacked)
	{
		return {static_cast<int32>(InPacked & 0xffffffU), static_cast<FFontId>(InPacked >> 24U & 0xfffU),
				static_cast<uint8>(InPacked >> 36U & 0xffU), static_cast<ECharFlags>(InPacked >> 44U & 0xffffU)};
	}

	FCharInfo Learn(uint32 InPoint);
	bool MeasureSimple(uint32 InPoint, FCharInfo& InOutInfo);
	FPage& NeedPage(std::size_t InPage);

	FFontSet& Fonts;
	std::array<std::atomic<FPage*>, 0x110000 / PageSize> Pages{};
};

} // namespace Flitmark
