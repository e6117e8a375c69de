#include "RunShaping.h"

#include <array>

namespace Flitmark
{

namespace
{

constexpr hb_feature_t SwitchOff(char InFirst, char InSecond, char InThird, char InFourth)
{
	return {HB_TAG(InFirst, InSecond, InThird, InFourth), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};
}

constexpr std::array PlainFeatures = {SwitchOff('k', 'e', 'r', 'n'), SwitchOff('l', 'i', 'g', 'a'),
									  SwitchOff('c', 'l', 'i', 'g'), SwitchOff('c', 'a', 'l', 't')};

} // namespace

bool IsSetPlain(const FFont& InFont, hb_script_t InScript)
{
	// Emoji fonts join sequences by ligatures.
	return !InFont.IsColor() &&
		   (InScript == HB_SCRIPT_HAN || InScript == HB_SCRIPT_HANGUL || InScript == HB_SCRIPT_COMMON);
}

void ShapeRun(hb_buffer_t* InBuffer, const FFont& InFont, const FRunStyle& InStyle, std::span<const uint32> InLine,
			  std::size_t InBegin, std::size_t InCount)
{
	hb_buffer_clear_contents(InBuffer);
	hb_buffer_add_codepoints(InBuffer, InLine.data(), static_cast<int>(InLine.size()), static_cast<unsigned>(InBegin),
							 static_cast<int>(InCount));
	hb_buffer_set_direction(InBuffer, InStyle.bRightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
	hb_buffer_set_script(InBuffer, InStyle.Script);
	hb_buffer_set_language(InBuffer, InStyle.Language);
	const bool bPlain = IsSetPlain(InFont, InStyle.Script);
	hb_shape(InFont.GetShaping(), InBuffer, bPlain ? PlainFeatures.data() : nullptr,
			 bPlain ? static_cast<unsigned>(PlainFeatures.size()) : 0);
}

int64 SumAdvances(hb_buffer_t* InBuffer)
{
	unsigned Count = 0;
	const hb_glyph_position_t* Positions = hb_buffer_get_glyph_positions(InBuffer, &Count);
	int64 Sum = 0;
	for (unsigned Index = 0; Index < Count; ++Index)
	{
		Sum += Positions[Index].x_advance;
	}
	return Sum;
}

hb_buffer_t* GetThreadBuffer()
{
	thread_local const FHbBufferPtr Buffer(hb_buffer_create());
	return Buffer.get();
}

} // namespace Flitmark
