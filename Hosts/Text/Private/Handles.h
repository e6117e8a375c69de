#pragma once

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_STROKER_H
#include <hb.h>

#include <memory>

namespace Flitmark
{

/** Frees a C library's object with its own function. */
template <auto InFree>
struct TFree
{
	template <typename T>
	void operator()(T* InObject) const
	{
		InFree(InObject);
	}
};

using FHbFontPtr = std::unique_ptr<hb_font_t, TFree<hb_font_destroy>>;
using FHbFacePtr = std::unique_ptr<hb_face_t, TFree<hb_face_destroy>>;
using FHbBlobPtr = std::unique_ptr<hb_blob_t, TFree<hb_blob_destroy>>;
using FHbBufferPtr = std::unique_ptr<hb_buffer_t, TFree<hb_buffer_destroy>>;
using FFtLibraryPtr = std::unique_ptr<FT_LibraryRec_, TFree<FT_Done_FreeType>>;
using FFtFacePtr = std::unique_ptr<FT_FaceRec_, TFree<FT_Done_Face>>;
using FFtStrokerPtr = std::unique_ptr<FT_StrokerRec_, TFree<FT_Stroker_Done>>;
using FFcConfigPtr = std::unique_ptr<FcConfig, TFree<FcConfigDestroy>>;
using FFcPatternPtr = std::unique_ptr<FcPattern, TFree<FcPatternDestroy>>;
using FFcFontSetPtr = std::unique_ptr<FcFontSet, TFree<FcFontSetDestroy>>;
using FFcCharSetPtr = std::unique_ptr<FcCharSet, TFree<FcCharSetDestroy>>;

} // namespace Flitmark
