#include "GlyphRenderer.h"

#include "Resample.h"
#include "TextMetrics.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr FT_Pos SubPixels = 64;

/** Limit for a mask: there are ligatures as wide as a line, which would take gigabytes at absurd sizes. */
constexpr FT_Pos MaxMaskPixels = FT_Pos{32} << 20;

FT_Pos ToSubPixels(double InPixels)
{
	return static_cast<FT_Pos>(std::lround(InPixels * SubPixels));
}

/** Sizes in 1/64 pixel are exact; InEm is that of the font, not of the text. Lock is held. */
bool SetSize(FFont::FDrawing& InDrawing, FT_Pos InEm)
{
	if (InDrawing.CurrentEm != InEm)
	{
		InDrawing.CurrentEm = FT_Set_Char_Size(InDrawing.Face.get(), InEm, InEm, 72, 72) == 0 ? InEm : 0;
	}
	return InDrawing.CurrentEm == InEm;
}

/** A mask under construction, sized to its outline. */
struct FCoverage : FPixelRect
{
	std::vector<uint8> Pixels;
};

/** Fills an outline, translating it in place. */
bool FillMask(FT_Library InLibrary, FT_Outline& InOutline, FCoverage& OutMask)
{
	FT_BBox Box;
	FT_Outline_Get_CBox(&InOutline, &Box);
	const FT_Pos Left = Box.xMin >> 6;
	const FT_Pos Bottom = Box.yMin >> 6;
	const FT_Pos Width = ((Box.xMax + SubPixels - 1) >> 6) - Left;
	const FT_Pos Height = ((Box.yMax + SubPixels - 1) >> 6) - Bottom;
	if (InOutline.n_points == 0 || Width <= 0 || Height <= 0)
	{
		return true;
	}
	if (Width > MaxMaskPixels || Height > MaxMaskPixels / Width)
	{
		return false;
	}
	OutMask.Left = static_cast<int32>(Left);
	OutMask.Top = static_cast<int32>(-(Bottom + Height));
	OutMask.Width = static_cast<int32>(Width);
	OutMask.Height = static_cast<int32>(Height);
	OutMask.Pixels.resize(static_cast<std::size_t>(Width * Height));
	FT_Outline_Translate(&InOutline, -Left * SubPixels, -Bottom * SubPixels);
	FT_Bitmap Bitmap = {};
	Bitmap.width = static_cast<unsigned>(Width);
	Bitmap.rows = static_cast<unsigned>(Height);
	Bitmap.pitch = OutMask.Width;
	Bitmap.buffer = OutMask.Pixels.data();
	Bitmap.num_grays = 256;
	Bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
	return FT_Outline_Get_Bitmap(InLibrary, &InOutline, &Bitmap) == 0;
}

/** Writes a mask into the low or high bytes of a plane large enough for it. */
void PutMask(const FCoverage& InMask, uint16 InFactor, unsigned InShift, FMaskPlane& OutPlane)
{
	for (int32 Row = 0; Row < InMask.Height; ++Row)
	{
		const uint8* In = InMask.Pixels.data() + std::ptrdiff_t{Row} * InMask.Width;
		uint16* Out = OutPlane.Pixels.data() + std::ptrdiff_t{InMask.Top - OutPlane.Top + Row} * OutPlane.Stride +
					  (InMask.Left - OutPlane.Left);
		for (int32 Column = 0; Column < InMask.Width; ++Column)
		{
			const unsigned Value = (unsigned{In[Column]} * InFactor + 127U) / 255U;
			Out[Column] = static_cast<uint16>(Out[Column] | Value << InShift);
		}
	}
}

/** A plane around both; there may be no stroke. */
FMaskPlane JoinMasks(const FCoverage& InFill, const FCoverage& InStroke)
{
	const FPixelRect& Edge = InStroke.Width > 0 ? InStroke : InFill;
	FMaskPlane Plane;
	Plane.Left = std::min(InFill.Left, Edge.Left);
	Plane.Top = std::min(InFill.Top, Edge.Top);
	Plane.Width = std::max(InFill.Left + InFill.Width, Edge.Left + Edge.Width) - Plane.Left;
	Plane.Height = std::max(InFill.Top + InFill.Height, Edge.Top + Edge.Height) - Plane.Top;
	Plane.Stride = (Plane.Width + FMaskPlane::Block - 1) / FMaskPlane::Block * FMaskPlane::Block;
	Plane.Pixels.resize(static_cast<std::size_t>(Plane.Stride) * static_cast<std::size_t>(Plane.Height));
	PutMask(InFill, 255, 0, Plane);
	PutMask(InStroke, TextMetrics::OutlineAlpha, 8, Plane);
	return Plane;
}

/** From the square em at which glyphs are loaded and stroked to the picture's pixels, including the pen fraction. */
void ToPicture(FT_Outline& InOutOutline, const FGlyphKey& InKey)
{
	if (InKey.EmX != InKey.EmY)
	{
		const FT_Matrix Stretch = {FT_DivFix(InKey.EmX, InKey.EmY), 0, 0, 0x10000};
		FT_Outline_Transform(&InOutOutline, &Stretch);
	}
	FT_Outline_Translate(&InOutOutline, InKey.Phase * (SubPixels / FGlyphKey::PhaseCount), 0);
}

bool RenderStroke(FT_Library InLibrary, FT_Stroker InStroker, FT_Outline& InOutline, const FGlyphKey& InKey,
				  double InWidth, FCoverage& OutMask)
{
	if (!(InWidth > 0.0))
	{
		return true;
	}
	const double Ems = TextMetrics::Outline * InWidth;
	const FT_Pos Radius = std::max(ToSubPixels(InKey.EmY * Ems / SubPixels), ToSubPixels(std::min(InWidth, 1.0)));
	FT_Stroker_Set(InStroker, Radius, FT_STROKER_LINECAP_ROUND, FT_STROKER_LINEJOIN_ROUND, 0);
	FT_UInt Points = 0;
	FT_UInt Contours = 0;
	FT_Outline Stroke;
	if (FT_Stroker_ParseOutline(InStroker, &InOutline, 0) != 0 ||
		FT_Stroker_GetCounts(InStroker, &Points, &Contours) != 0 ||
		FT_Outline_New(InLibrary, Points, static_cast<FT_Int>(Contours), &Stroke) != 0)
	{
		return false;
	}
	Stroke.n_points = 0;
	Stroke.n_contours = 0;
	FT_Stroker_Export(InStroker, &Stroke);
	ToPicture(Stroke, InKey);
	const bool bDrawn = FillMask(InLibrary, Stroke, OutMask);
	FT_Outline_Done(InLibrary, &Stroke);
	return bDrawn;
}

void RenderMasks(FT_Library InLibrary, FFont::FDrawing& InDrawing, const FGlyphKey& InKey, double InOutline,
				 FGlyphImage& OutImage)
{
	const FT_Face Face = InDrawing.Face.get();
	if (!SetSize(InDrawing, InKey.EmY) ||
		FT_Load_Glyph(Face, InKey.Glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
		Face->glyph->format != FT_GLYPH_FORMAT_OUTLINE || Face->glyph->outline.n_points == 0)
	{
		return;
	}
	FT_Outline& Outline = Face->glyph->outline;
	FCoverage Stroke;
	FCoverage Fill;
	OutImage.bCut = !RenderStroke(InLibrary, InDrawing.Stroker.get(), Outline, InKey, InOutline, Stroke);
	ToPicture(Outline, InKey);
	OutImage.bCut = !FillMask(InLibrary, Outline, Fill) || OutImage.bCut;
	if (!OutImage.bCut)
	{
		OutImage.Masks = JoinMasks(Fill, Stroke);
	}
}

/** The smallest strike that need not be enlarged, else the largest. Returns the em it was drawn for, in 1/64 pixel. */
FT_Pos SelectStrike(FFont::FDrawing& InDrawing, FT_Pos InEm)
{
	const FT_Face Face = InDrawing.Face.get();
	int Best = 0;
	for (int Index = 1; Index < Face->num_fixed_sizes; ++Index)
	{
		const FT_Pos Size = Face->available_sizes[Index].y_ppem;
		const FT_Pos BestSize = Face->available_sizes[Best].y_ppem;
		Best = (BestSize < InEm ? Size > BestSize : Size >= InEm && Size < BestSize) ? Index : Best;
	}
	InDrawing.CurrentEm = 0;
	return FT_Select_Size(Face, Best) == 0 ? Face->available_sizes[Best].y_ppem : 0;
}

void RenderColor(FFont::FDrawing& InDrawing, double InMagnification, const FGlyphKey& InKey, FGlyphImage& OutImage)
{
	const FT_Face Face = InDrawing.Face.get();
	const FT_Pos Em = std::max(std::lround(InKey.EmY * InMagnification), 1L);
	const bool bStrikes = FT_HAS_FIXED_SIZES(Face);
	const FT_Pos DrawnEm = bStrikes ? SelectStrike(InDrawing, Em) : SetSize(InDrawing, Em) ? Em : 0;
	if (DrawnEm <= 0 || FT_Load_Glyph(Face, InKey.Glyph, FT_LOAD_NO_HINTING | FT_LOAD_COLOR | FT_LOAD_RENDER) != 0 ||
		Face->glyph->bitmap.pixel_mode != FT_PIXEL_MODE_BGRA)
	{
		return;
	}
	const double ScaleY = static_cast<double>(Em) / static_cast<double>(DrawnEm);
	const double ScaleX = ScaleY * InKey.EmX / InKey.EmY;
	const FT_GlyphSlot Slot = Face->glyph;
	OutImage.Color = ResampleColor(Slot->bitmap, Slot->bitmap_left, Slot->bitmap_top, ScaleX, ScaleY);
}

} // namespace

FGlyphImage RenderGlyph(FT_Library InLibrary, const FFont& InFont, const FGlyphKey& InKey, double InOutline)
{
	FGlyphImage Image;
	FFont::FDrawing& Drawing = InFont.GetDrawing();
	const std::lock_guard Lock(Drawing.Lock);
	if (InFont.IsColor())
	{
		RenderColor(Drawing, InFont.GetMagnification(), InKey, Image);
	}
	else
	{
		RenderMasks(InLibrary, Drawing, InKey, InOutline, Image);
	}
	return Image;
}

} // namespace Flitmark
