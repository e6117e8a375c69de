#include "FontSet.h"
#include "FuzzKit.h"
#include "Shaper.h"
#include "Text/TextEngine.h"
#include "Text/TextLimits.h"
#include "TextLines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

namespace
{

/** What one text may take while it is laid out and painted, beside the caches: several planes of the largest sprite. */
constexpr int64 MaxHeapBytes = (int64{512} << 20) + FTextLimits::GlyphCacheBytes + FTextLimits::MeasureCacheBytes;

struct FTextInput
{
	/** Bits 0 and 1 choose the engine, bit 2 whether size and scale may be any number at all. */
	uint8 Choice = 0;
	float Size = 0.f;
	FTextScale Scale;
	FTextColor Color;
	/** The input's remaining bytes as UTF-16, well-formed or not, some times over. */
	std::u16string Text;
};

FTextInput ReadInput(const uint8* InData, std::size_t InSize)
{
	FFuzzBytes Bytes(InData, InSize);
	FTextInput Input;
	Input.Choice = Bytes.Take<uint8>();
	if ((Input.Choice & 4) != 0)
	{
		Input.Size = Bytes.Take<float>();
		Input.Scale = {Bytes.Take<float>(), Bytes.Take<float>()};
	}
	else
	{
		Input.Size = static_cast<float>(Bytes.TakeBetween(0.0, 48.0));
		Input.Scale = {Bytes.TakeBetween(0.0, 2.0), Bytes.TakeBetween(0.0, 2.0)};
	}
	Input.Color = {Bytes.Take<uint8>(), Bytes.Take<uint8>(), Bytes.Take<uint8>(), Bytes.Take<uint8>()};
	// Mostly once, because long texts are slow.
	const uint8 Repeat = Bytes.Take<uint8>();
	const std::size_t NumTimes = Repeat < 240 ? 1 : std::size_t{1} << (Repeat - 240U);
	const auto Rest = Bytes.GetRest();
	std::u16string Once(Rest.size() / sizeof(char16_t), u'\0');
	if (!Once.empty())
	{
		std::memcpy(Once.data(), Rest.data(), Once.size() * sizeof(char16_t));
	}
	for (std::size_t Time = 0; Time < NumTimes && Input.Text.size() <= FTextLimits::MaxCodeUnits; ++Time)
	{
		Input.Text += Once;
	}
	return Input;
}

/** The same fonts twice: as hosts use them, and the layout alone. */
struct FEngine
{
	explicit FEngine(const FTextOptions& InOptions)
	{
		std::string Error;
		Whole = FTextEngine::Create(InOptions, Error);
		Fonts = FFontSet::Create(InOptions, Error);
		Require(Whole && Fonts, "there are fonts");
		Shaper = std::make_unique<FShaper>(*Fonts);
	}

	std::unique_ptr<FTextEngine> Whole;
	std::unique_ptr<FFontSet> Fonts;
	std::unique_ptr<FShaper> Shaper;
};

FEngine& GetEngine(uint8 InChoice)
{
	static const std::array<FTextOptions, 4> Options = {
		FTextOptions{}, {"", true, 4.0}, {"DejaVu Serif", false, 0.0}, {"Noto Sans Arabic", false, 0.5}};
	static std::array<std::unique_ptr<FEngine>, Options.size()> Engines;
	const std::size_t Index = InChoice % Options.size();
	if (!Engines[Index])
	{
		Engines[Index] = std::make_unique<FEngine>(Options[Index]);
	}
	return *Engines[Index];
}

struct FLayout
{
	int32 NumLines = 0;
	/** There are characters with colors of their own. */
	bool bColored = false;
};

/** What is measured is what is drawn and what other means draw. */
FLayout CheckLayout(FShaper& InShaper, std::u16string_view InText)
{
	const std::u16string_view Text = LimitText(InText);
	std::vector<FShapedGlyph> Glyphs;
	const FTextExtent Measured = InShaper.Measure(Text);
	const FTextExtent Shaped = InShaper.Shape(Text, Glyphs);
	Require(Measured.LongestAdvance == Shaped.LongestAdvance, "what is drawn is as wide as was measured");
	Require(Measured.Lines == Shaped.Lines && Measured.bCut == Shaped.bCut, "both have the same lines");
	Require(Measured.Lines >= 1 && Measured.Lines <= FTextLimits::MaxLines, "a text has lines, but not too many");
	Require(std::ranges::is_sorted(Glyphs, {}, &FShapedGlyph::Line), "glyphs come line by line");
	const std::vector<FTextRow> Rows = InShaper.Split(Text);
	Require(Rows.size() == static_cast<std::size_t>(Measured.Lines), "other means get the same lines");
	FLayout Layout = {Measured.Lines, false};
	FTextLines Lines(Text);
	std::vector<uint32> Points;
	for (const FTextRow& Row : Rows)
	{
		Lines.Next(Points);
		std::u32string Joined;
		for (const FTextPiece& Piece : Row.Pieces)
		{
			Joined += Piece.Text;
			Layout.bColored = Layout.bColored || Piece.bColor;
		}
		Require(std::ranges::equal(Joined, Points), "a line's pieces are its characters");
	}
	return Layout;
}

FTextSize CheckSize(FTextEngine& InEngine, const FTextInput& InInput, int32 InNumLines)
{
	const FTextSize Size = InEngine.Measure(InInput.Text, InInput.Size);
	const FTextSize Again = InEngine.Measure(InInput.Text, InInput.Size);
	Require(Size.Width == Again.Width && Size.Height == Again.Height, "what is kept is what was measured");
	const double Em = FTextEngine::GetEm(InInput.Size);
	Require(std::isfinite(Em) && Em >= 0.0, "an em has a size");
	Require(std::isfinite(Size.Width) && Size.Width >= 0.0, "a box has a width");
	Require(std::abs(Size.Height - 1.25 * InNumLines * Em) <= 1e-9 * Size.Height, "each line is 1.25 em high");
	Require(Em == 0.0 || Size.bCut || InInput.Text.size() <= FTextLimits::MaxCodeUnits, "what is left out is told");
	return Size;
}

void CheckSprite(const FSprite& InSprite, const FTextInput& InInput, bool bInColored)
{
	Require(InSprite.Width >= 0 && InSprite.Height >= 0, "a sprite has a size");
	Require((InSprite.Width == 0) == (InSprite.Height == 0), "a sprite has both or neither");
	const int64 NumPixels = int64{InSprite.Width} * InSprite.Height;
	Require(NumPixels <= FTextLimits::MaxSpritePixels, "a sprite is not too large");
	Require(static_cast<int64>(InSprite.Pixels.size()) == 4 * NumPixels, "a sprite has all its pixels");
	Require(InInput.Color.Alpha > 0 || NumPixels == 0, "what is transparent has no sprite");
	// Each product is rounded, and there are two.
	constexpr int32 Rounding = 2;
	int32 MostOver = 0;
	int32 MostOpaque = 0;
	const uint8* const End = InSprite.Pixels.data() + InSprite.Pixels.size();
	for (const uint8* Pixel = InSprite.Pixels.data(); Pixel != End; Pixel += 4)
	{
		MostOver = std::max(MostOver, std::max({Pixel[0], Pixel[1], Pixel[2]}) - Pixel[3]);
		MostOpaque = std::max<int32>(MostOpaque, Pixel[3]);
	}
	Require(MostOver <= Rounding, "colors are premultiplied");
	// Colored characters may lie over others, and both then show.
	Require(bInColored || MostOpaque <= InInput.Color.Alpha + Rounding, "nothing is more opaque than its color");
}

/** Glyphs that are kept are those that were drawn. */
void CheckAgain(FTextEngine& InEngine, const FTextInput& InInput, const FSprite& InSprite)
{
	constexpr std::size_t EnoughBytes = std::size_t{1} << 20;
	if (InSprite.Pixels.size() <= EnoughBytes)
	{
		const FSprite Again = InEngine.Rasterize(InInput.Text, InInput.Size, InInput.Color, InInput.Scale);
		Require(Again.Left == InSprite.Left && Again.Top == InSprite.Top, "a text drawn again is in the same place");
		Require(Again.Width == InSprite.Width && Again.Pixels == InSprite.Pixels, "a text drawn again is the same");
	}
}

} // namespace

} // namespace Flitmark

/** Any text at any size in any color: laid out, measured, rasterized. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	using namespace Flitmark;
	const FTextInput Input = ReadInput(Data, Size);
	FEngine& Engine = GetEngine(Input.Choice);
	const FHeapWatch Heap;
	const FLayout Layout = CheckLayout(*Engine.Shaper, Input.Text);
	const FTextSize Box = CheckSize(*Engine.Whole, Input, Layout.NumLines);
	const FSprite Sprite = Engine.Whole->Rasterize(Input.Text, Input.Size, Input.Color, Input.Scale);
	CheckSprite(Sprite, Input, Layout.bColored);
	Require(Sprite.Width == 0 || Sprite.bCut || !Box.bCut, "a sprite tells, too, what is left out");
	CheckAgain(*Engine.Whole, Input, Sprite);
	Require(Heap.GetPeak() <= MaxHeapBytes, "a text takes no more memory than it may");
	return 0;
}
