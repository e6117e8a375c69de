#include "Text/TextEngine.h"

#include "BoundedCache.h"
#include "GlyphStore.h"
#include "Shaper.h"
#include "SpritePainter.h"
#include "Text/TextLimits.h"
#include "TextLines.h"
#include "TextMetrics.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace Flitmark
{

namespace
{

struct FTextHash
{
	using is_transparent = void;
	std::size_t operator()(std::u16string_view InText) const { return std::hash<std::u16string_view>()(InText); }
};

/** Whether a dark outline would make the letters illegible: the color's luma (BT.709) out of 255. */
constexpr bool IsDark(FTextColor InColor)
{
	constexpr unsigned DarkestWithDarkOutline = 40;
	return (54U * InColor.Red + 183U * InColor.Green + 19U * InColor.Blue) >> 8U < DarkestWithDarkOutline;
}

} // namespace

class FTextEngine::FImpl
{
public:
	FImpl(std::unique_ptr<FFontSet> InFonts, double InOutline)
		: Outline(InOutline)
		, Fonts(std::move(InFonts))
		, Shaper(*Fonts)
		, Glyphs(*Fonts, InOutline)
		, Extents(FTextLimits::MeasureCacheBytes)
	{
	}

	FTextExtent FindExtent(std::u16string_view InText)
	{
		FTextExtent Extent;
		if (!Extents.Find(InText, Extent))
		{
			Extent = Shaper.Measure(InText);
			// A map node, and what the allocator adds to it and to a long key.
			constexpr std::size_t EntryBytes = sizeof(std::u16string) + sizeof(FTextExtent) + 64;
			Extents.Add(std::u16string(InText), Extent, EntryBytes + InText.size() * sizeof(char16_t));
		}
		return Extent;
	}

	/** See FTextOptions. */
	const double Outline;
	std::unique_ptr<FFontSet> Fonts;
	FShaper Shaper;
	FGlyphStore Glyphs;
	TBoundedCache<std::u16string, FTextExtent, FTextHash, std::equal_to<>, 16> Extents;
};

std::unique_ptr<FTextEngine> FTextEngine::Create(const FTextOptions& InOptions, std::string& OutError)
{
	std::unique_ptr<FFontSet> Fonts = FFontSet::Create(InOptions, OutError);
	if (!Fonts)
	{
		return nullptr;
	}
	return std::unique_ptr<FTextEngine>(new FTextEngine(std::make_unique<FImpl>(std::move(Fonts), InOptions.Outline)));
}

FTextEngine::FTextEngine(std::unique_ptr<FImpl> InImpl)
	: Impl(std::move(InImpl))
{
}

FTextEngine::~FTextEngine() = default;

FTextSize FTextEngine::Measure(std::u16string_view InText, float InSizePoints)
{
	const double Em = GetEm(InSizePoints);
	const std::u16string_view Text = LimitText(InText);
	FTextSize Size;
	if (Em > 0.0)
	{
		const FTextExtent Extent = Impl->FindExtent(Text);
		const double Advance = TextMetrics::ToEms(Extent.LongestAdvance);
		Size.Width = Advance > 0.0 ? (Advance + 2.0 * TextMetrics::Outline) * Em : 0.0;
		Size.Height = Extent.Lines * TextMetrics::LineHeight * Em;
		Size.bCut = Extent.bCut || Text.size() < InText.size();
	}
	return Size;
}

FSprite FTextEngine::Rasterize(std::u16string_view InText, float InSizePoints, FTextColor InColor, FTextScale InScale)
{
	FSprite Sprite;
	const FSpriteStyle Style = {GetEm(InSizePoints) * InScale.X, GetEm(InSizePoints) * InScale.Y, InColor};
	// Less than a pixel per em is just dust.
	if (!(Style.EmX >= 1.0) || !(Style.EmY >= 1.0) || InColor.Alpha == 0)
	{
		return Sprite;
	}
	if (Style.EmX > FTextLimits::MaxEmPixels || Style.EmY > FTextLimits::MaxEmPixels)
	{
		Sprite.bCut = !InText.empty();
		return Sprite;
	}
	thread_local std::vector<FShapedGlyph> Glyphs;
	Glyphs.clear();
	const std::u16string_view Text = LimitText(InText);
	const FTextExtent Extent = Impl->Shaper.Shape(Text, Glyphs);
	Sprite = PaintSprite(Impl->Glyphs, Glyphs, Style);
	Sprite.bCut = Sprite.bCut || Extent.bCut || Text.size() < InText.size();
	return Sprite;
}

std::vector<FTextRow> FTextEngine::Split(std::u16string_view InText)
{
	return Impl->Shaper.Split(LimitText(InText));
}

double FTextEngine::GetEm(float InSizePoints)
{
	if (!(InSizePoints > 0.0F))
	{
		return 0.0;
	}
	return std::min(InSizePoints, std::numeric_limits<float>::max()) * TextMetrics::CanvasUnitsPerPoint;
}

double FTextEngine::GetOutlineWidth(float InSizePoints) const
{
	return std::max(GetEm(InSizePoints) * TextMetrics::Outline * Impl->Outline, std::min(Impl->Outline, 1.0));
}

FTextColor FTextEngine::GetOutlineColor(FTextColor InColor)
{
	const uint8 Light = IsDark(InColor) ? 255 : 0;
	return {Light, Light, Light, TextMetrics::OutlineAlpha};
}

const FFontFace& FTextEngine::PrimaryFace() const
{
	return Impl->Fonts->Get(FFontSet::Primary).GetFace();
}

const std::string& FTextEngine::PrimaryFamily() const
{
	return Impl->Fonts->GetPrimaryFamily();
}

} // namespace Flitmark
