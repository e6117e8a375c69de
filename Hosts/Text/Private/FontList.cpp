#include "FontList.h"

#include <optional>

namespace Flitmark
{

namespace
{

/** More fonts would not fit a character's packed record. */
constexpr std::size_t MaxFonts = 2000;

const FcChar8* ToFc(const char* InText)
{
	return reinterpret_cast<const FcChar8*>(InText);
}

std::string GetText(const FcPattern* InPattern, const char* InObject)
{
	FcChar8* Value = nullptr;
	const bool bFound = FcPatternGetString(InPattern, InObject, 0, &Value) == FcResultMatch;
	return bFound ? reinterpret_cast<const char*>(Value) : std::string();
}

bool GetFlag(const FcPattern* InPattern, const char* InObject)
{
	FcBool Value = FcFalse;
	return FcPatternGetBool(InPattern, InObject, 0, &Value) == FcResultMatch && Value != FcFalse;
}

/** Nothing for fonts we do not shape: bitmaps without color, PostScript fonts. */
std::optional<FFontFile> ReadFont(const FcPattern* InPattern)
{
	FFontFile File;
	File.Path = GetText(InPattern, FC_FILE);
	File.Family = GetText(InPattern, FC_FAMILY);
	File.bColor = GetFlag(InPattern, FC_COLOR);
	FcCharSet* Coverage = nullptr;
	const bool bHasCoverage = FcPatternGetCharSet(InPattern, FC_CHARSET, 0, &Coverage) == FcResultMatch;
	const std::string Format = GetText(InPattern, FC_FONTFORMAT);
	const bool bSfnt = Format == "TrueType" || Format == "CFF";
	const bool bDrawable = GetFlag(InPattern, FC_SCALABLE) || File.bColor;
	// A variable font is also listed by its named instances, which need no choice of axes.
	if (File.Path.empty() || !bHasCoverage || !bSfnt || !bDrawable || GetFlag(InPattern, FC_VARIABLE))
	{
		return std::nullopt;
	}
	FcPatternGetInteger(InPattern, FC_INDEX, 0, &File.Index);
	File.Coverage.reset(FcCharSetCopy(Coverage));
	return File;
}

FFcPatternPtr MakePattern(const std::string& InFamily, bool bInBold)
{
	const bool bPattern = InFamily.find(':') != std::string::npos;
	FFcPatternPtr Pattern(bPattern ? FcNameParse(ToFc(InFamily.c_str())) : FcPatternCreate());
	if (Pattern && !InFamily.empty() && !bPattern)
	{
		FcPatternAddString(Pattern.get(), FC_FAMILY, ToFc(InFamily.c_str()));
	}
	if (Pattern)
	{
		FcPatternAddString(Pattern.get(), FC_FAMILY, ToFc("sans-serif"));
	}
	if (Pattern && bInBold)
	{
		FcPatternDel(Pattern.get(), FC_WEIGHT);
		FcPatternAddInteger(Pattern.get(), FC_WEIGHT, FC_WEIGHT_BOLD);
	}
	return Pattern;
}

FFcFontSetPtr Sort(FcConfig* InConfig, FcPattern* InPattern)
{
	FcConfigSubstitute(InConfig, InPattern, FcMatchPattern);
	FcDefaultSubstitute(InPattern);
	FcResult Result = FcResultMatch;
	return FFcFontSetPtr(FcFontSort(InConfig, InPattern, FcTrue, nullptr, &Result));
}

void AddTextFonts(const FcFontSet& InSorted, std::vector<FFontFile>& OutFonts)
{
	for (int Index = 0; Index < InSorted.nfont && OutFonts.size() < MaxFonts; ++Index)
	{
		std::optional<FFontFile> File = ReadFont(InSorted.fonts[Index]);
		if (File && !File->bColor)
		{
			OutFonts.push_back(std::move(*File));
		}
	}
}

void AddEmojiFont(FcConfig* InConfig, std::vector<FFontFile>& OutFonts)
{
	const FFcPatternPtr Pattern(FcPatternCreate());
	FcPatternAddString(Pattern.get(), FC_FAMILY, ToFc("emoji"));
	FcPatternAddBool(Pattern.get(), FC_COLOR, FcTrue);
	const FFcFontSetPtr Sorted = Sort(InConfig, Pattern.get());
	for (int Index = 0; Sorted && Index < Sorted->nfont; ++Index)
	{
		std::optional<FFontFile> File = ReadFont(Sorted->fonts[Index]);
		if (File && File->bColor)
		{
			OutFonts.push_back(std::move(*File));
			return;
		}
	}
}

} // namespace

std::vector<FFontFile> ListFonts(const FTextOptions& InOptions, std::string& OutError)
{
	std::vector<FFontFile> Fonts;
	const FFcConfigPtr Config(FcInitLoadConfigAndFonts());
	if (!Config)
	{
		OutError = "fontconfig could not load its configuration; check that fontconfig-config is installed";
		return Fonts;
	}
	const FFcPatternPtr Pattern = MakePattern(InOptions.Family, InOptions.bBold);
	if (!Pattern)
	{
		OutError =
			"'" + InOptions.Family + "' is no font pattern; give a family, or FAMILY:STYLE as in 'Noto Sans:bold'";
		return Fonts;
	}
	const FFcFontSetPtr Sorted = Sort(Config.get(), Pattern.get());
	if (Sorted)
	{
		AddTextFonts(*Sorted, Fonts);
		AddEmojiFont(Config.get(), Fonts);
	}
	if (Fonts.empty())
	{
		OutError = "no font found; install one, for example the package fonts-noto-core";
	}
	return Fonts;
}

} // namespace Flitmark
