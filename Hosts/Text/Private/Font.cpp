#include "Font.h"

#include "TextMetrics.h"

#include FT_TRUETYPE_TABLES_H

#include <algorithm>

namespace Flitmark
{

namespace
{

FHbFontPtr LoadShaping(const FFontFile& InFile)
{
	const FHbBlobPtr Blob(hb_blob_create_from_file_or_fail(InFile.Path.c_str()));
	if (!Blob)
	{
		return nullptr;
	}
	const unsigned Index = static_cast<unsigned>(InFile.Index);
	const FHbFacePtr Face(hb_face_create(Blob.get(), Index & 0xffffU));
	if (hb_face_get_glyph_count(Face.get()) == 0)
	{
		return nullptr;
	}
	FHbFontPtr Font(hb_font_create(Face.get()));
	if (const unsigned Instance = Index >> 16U; Instance != 0)
	{
		hb_font_set_var_named_instance(Font.get(), Instance - 1);
	}
	hb_font_set_scale(Font.get(), TextMetrics::UnitsPerEm, TextMetrics::UnitsPerEm);
	return Font;
}

FFontFace DescribeFace(FT_Face InFace, const std::string& InFamily)
{
	FFontFace Face;
	Face.Family = InFamily;
	Face.bItalic = (InFace->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
	Face.Weight = (InFace->style_flags & FT_STYLE_FLAG_BOLD) != 0 ? 700 : 400;
	if (!FT_IS_SCALABLE(InFace))
	{
		return Face;
	}
	const double Em = InFace->units_per_EM;
	Face.Ascent = InFace->ascender / Em;
	Face.Descent = -InFace->descender / Em;
	if (const auto* Os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(InFace, FT_SFNT_OS2)))
	{
		Face.Weight = Os2->usWeightClass;
		// Some fonts have signed values there.
		const auto Ascent = static_cast<int16>(Os2->usWinAscent);
		const auto Descent = static_cast<int16>(Os2->usWinDescent);
		if (Ascent + Descent > 0)
		{
			Face.Ascent = Ascent / Em;
			Face.Descent = Descent / Em;
		}
	}
	return Face;
}

} // namespace

std::unique_ptr<FFont> FFont::Load(FT_Library InLibrary, const FFontFile& InFile)
{
	std::unique_ptr<FFont> Font(new FFont);
	Font->Shaping = LoadShaping(InFile);
	FT_Face Face = nullptr;
	if (!Font->Shaping || FT_New_Face(InLibrary, InFile.Path.c_str(), InFile.Index, &Face) != 0)
	{
		return nullptr;
	}
	Font->Drawing = std::make_unique<FDrawing>();
	Font->Drawing->Face.reset(Face);
	Font->TextFace = DescribeFace(Face, InFile.Family);
	FT_Stroker Stroker = nullptr;
	if (FT_Stroker_New(InLibrary, &Stroker) != 0)
	{
		return nullptr;
	}
	Font->Drawing->Stroker.reset(Stroker);
	Font->bColor = InFile.bColor;
	if (Font->bColor)
	{
		Font->FitEmoji();
	}
	hb_font_make_immutable(Font->Shaping.get());
	return Font;
}

void FFont::FitEmoji()
{
	constexpr hb_codepoint_t GrinningFace = 0x1f600;
	hb_codepoint_t Glyph = 0;
	if (!hb_font_get_nominal_glyph(Shaping.get(), GrinningFace, &Glyph))
	{
		return;
	}
	const hb_position_t Advance = hb_font_get_glyph_h_advance(Shaping.get(), Glyph);
	if (Advance <= 0)
	{
		return;
	}
	Magnification = std::clamp(TextMetrics::EmojiAdvance * TextMetrics::UnitsPerEm / Advance, 0.5, 2.0);
	const int Scale = static_cast<int>(TextMetrics::UnitsPerEm * Magnification);
	hb_font_set_scale(Shaping.get(), Scale, Scale);
}

bool FFont::Covers(uint32 InPoint) const
{
	hb_codepoint_t Glyph = 0;
	return hb_font_get_nominal_glyph(Shaping.get(), InPoint, &Glyph) != 0;
}

} // namespace Flitmark
