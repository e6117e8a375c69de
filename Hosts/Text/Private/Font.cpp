#include "Font.h"

#include "TextMetrics.h"

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
