#include "CharTable.h"

#include "TextLanguages.h"
#include "RunShaping.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <limits>

namespace Flitmark
{

namespace
{

constexpr uint64 KnownBit = uint64{1} << 63U;
constexpr int64 MaxPackedAdvance = 0xffffff;

uint8 ReadScript(UChar32 InPoint)
{
	UErrorCode Error = U_ZERO_ERROR;
	const UScriptCode Script = uscript_getScript(InPoint, &Error);
	switch (Script)
	{
	case USCRIPT_HIRAGANA:
	case USCRIPT_KATAKANA:
	case USCRIPT_KATAKANA_OR_HIRAGANA:
	case USCRIPT_BOPOMOFO:
		return USCRIPT_HAN;
	case USCRIPT_INHERITED:
	case USCRIPT_UNKNOWN:
		return USCRIPT_COMMON;
	default:
		break;
	}
	const bool bFits = U_SUCCESS(Error) && Script >= 0 && Script <= std::numeric_limits<uint8>::max();
	return bFits ? static_cast<uint8>(Script) : static_cast<uint8>(USCRIPT_COMMON);
}

std::array<hb_script_t, 256> MakeScripts()
{
	std::array<hb_script_t, 256> Scripts;
	for (std::size_t Index = 0; Index < Scripts.size(); ++Index)
	{
		const char* Name = uscript_getShortName(static_cast<UScriptCode>(Index));
		Scripts[Index] = Name ? hb_script_from_string(Name, -1) : HB_SCRIPT_COMMON;
	}
	return Scripts;
}

bool NeedsBidi(UChar32 InPoint)
{
	switch (u_charDirection(InPoint))
	{
	case U_RIGHT_TO_LEFT:
	case U_RIGHT_TO_LEFT_ARABIC:
	case U_ARABIC_NUMBER:
	case U_LEFT_TO_RIGHT_EMBEDDING:
	case U_LEFT_TO_RIGHT_OVERRIDE:
	case U_LEFT_TO_RIGHT_ISOLATE:
	case U_RIGHT_TO_LEFT_EMBEDDING:
	case U_RIGHT_TO_LEFT_OVERRIDE:
	case U_RIGHT_TO_LEFT_ISOLATE:
	case U_FIRST_STRONG_ISOLATE:
	case U_POP_DIRECTIONAL_FORMAT:
	case U_POP_DIRECTIONAL_ISOLATE:
		return true;
	default:
		return false;
	}
}

ECharFlags ReadFlags(UChar32 InPoint)
{
	ECharFlags Flags = ECharFlags::None;
	const auto AddIf = [&Flags](bool bInSet, ECharFlags InFlag)
	{
		Flags = bInSet ? Flags | InFlag : Flags;
	};
	const auto bIs = [InPoint](UProperty InProperty)
	{
		return u_hasBinaryProperty(InPoint, InProperty) != 0;
	};
	AddIf((U_GET_GC_MASK(InPoint) & U_GC_M_MASK) != 0, ECharFlags::Mark);
	AddIf(bIs(UCHAR_DEFAULT_IGNORABLE_CODE_POINT), ECharFlags::Ignorable);
	AddIf(NeedsBidi(InPoint), ECharFlags::Bidi);
	if (InPoint >= 0x80)
	{
		AddIf(bIs(UCHAR_EMOJI), ECharFlags::Emoji);
		AddIf(bIs(UCHAR_EMOJI_PRESENTATION), ECharFlags::EmojiByDefault);
		AddIf(bIs(UCHAR_EMOJI_MODIFIER), ECharFlags::SkinTone);
		AddIf(bIs(UCHAR_REGIONAL_INDICATOR), ECharFlags::Regional);
	}
	return Flags;
}

/** Characters that can be set one by one, but not next to certain others. */
bool JoinsNeighbors(uint32 InPoint, hb_script_t InScript)
{
	// Hangul letters form syllables.
	if (InScript == HB_SCRIPT_HANGUL)
	{
		return InPoint < 0xac00 || InPoint > 0xd7a3;
	}
	// The fraction slash shrinks digits; the halves of the vertical kana repeat mark join.
	return InPoint == 0x2044 || (InPoint >= 0x3033 && InPoint <= 0x3035);
}

} // namespace

FCharTable::FCharTable(FFontSet& InFonts)
	: Fonts(InFonts)
{
}

FCharTable::~FCharTable()
{
	for (std::atomic<FPage*>& Page : Pages)
	{
		delete Page.load();
	}
}

hb_script_t FCharTable::GetScript(uint8 InScript)
{
	static const std::array<hb_script_t, 256> Scripts = MakeScripts();
	return Scripts[InScript];
}

bool FCharTable::IsCommon(uint8 InScript)
{
	return InScript == USCRIPT_COMMON;
}

uint64 FCharTable::Pack(const FCharInfo& InInfo)
{
	return KnownBit | static_cast<uint64>(InInfo.Flags) << 44U | uint64{InInfo.Script} << 36U |
		   uint64{InInfo.Font} << 24U | static_cast<uint64>(InInfo.Advance);
}

FCharInfo FCharTable::Learn(uint32 InPoint)
{
	FCharInfo Info;
	Info.Script = ReadScript(static_cast<UChar32>(InPoint));
	Info.Flags = ReadFlags(static_cast<UChar32>(InPoint));
	Info.Font = Fonts.FindCovering({&InPoint, 1}).value_or(FFontSet::Primary);
	if (MeasureSimple(InPoint, Info))
	{
		Info.Flags = Info.Flags | ECharFlags::Simple;
	}
	NeedPage(InPoint / PageSize)[InPoint % PageSize].store(Pack(Info), std::memory_order_relaxed);
	return Info;
}

/** A character that inherits its neighbors' script must be equally wide in every script and language it may get. */
bool FCharTable::MeasureSimple(uint32 InPoint, FCharInfo& InOutInfo)
{
	const FFont& Font = Fonts.Get(InOutInfo.Font);
	const hb_script_t Script = GetScript(InOutInfo.Script);
	const ECharFlags NeverSimple = ECharFlags::Mark | ECharFlags::Ignorable | ECharFlags::Bidi |
								   ECharFlags::EmojiByDefault | ECharFlags::Regional | ECharFlags::SkinTone;
	if (HasAny(InOutInfo.Flags, NeverSimple) || !IsSetPlain(Font, Script) || JoinsNeighbors(InPoint, Script))
	{
		return false;
	}
	const std::array AllScripts = {Script, HB_SCRIPT_HAN, HB_SCRIPT_HANGUL};
	const std::span Scripts(AllScripts.data(), Script == HB_SCRIPT_COMMON ? AllScripts.size() : 1);
	hb_buffer_t* Buffer = GetThreadBuffer();
	int64 Advance = -1;
	for (const hb_script_t Each : Scripts)
	{
		for (const hb_language_t Language : GetHanLanguages())
		{
			ShapeRun(Buffer, Font, {Each, Language, false}, {&InPoint, 1}, 0, 1);
			const int64 Sum = SumAdvances(Buffer);
			if (Sum < 0 || Sum > MaxPackedAdvance || (Advance >= 0 && Sum != Advance))
			{
				return false;
			}
			Advance = Sum;
		}
	}
	InOutInfo.Advance = static_cast<int32>(Advance);
	return true;
}

FCharTable::FPage& FCharTable::NeedPage(std::size_t InPage)
{
	FPage* Present = Pages[InPage].load(std::memory_order_acquire);
	if (Present == nullptr)
	{
		auto Fresh = std::make_unique<FPage>();
		if (Pages[InPage].compare_exchange_strong(Present, Fresh.get(), std::memory_order_acq_rel))
		{
			Present = Fresh.release();
		}
	}
	return *Present;
}

} // namespace Flitmark
