#include "Clusters.h"

#include <optional>

namespace Flitmark
{

namespace
{

constexpr uint32 Joiner = 0x200d;
constexpr uint32 TextSelector = 0xfe0e;
constexpr uint32 EmojiSelector = 0xfe0f;
constexpr uint32 Keycap = 0x20e3;

bool Has(const FLine& InLine, std::size_t InIndex, ECharFlags InFlags)
{
	return InIndex < InLine.Infos.size() && HasAny(InLine.Infos[InIndex].Flags, InFlags);
}

bool Is(const FLine& InLine, std::size_t InIndex, uint32 InPoint)
{
	return InIndex < InLine.Points.size() && InLine.Points[InIndex] == InPoint;
}

bool IsKeycap(const FLine& InLine, std::size_t InBegin)
{
	const uint32 Point = InLine.Points[InBegin];
	const bool bBase = (Point >= '0' && Point <= '9') || Point == '#' || Point == '*';
	return bBase && Is(InLine, InBegin + (Is(InLine, InBegin + 1, EmojiSelector) ? 2 : 1), Keycap);
}

/** Whether the cluster that begins here is displayed as an emoji. */
bool IsEmoji(const FLine& InLine, std::size_t InBegin)
{
	if (!Has(InLine, InBegin, ECharFlags::Emoji))
	{
		return IsKeycap(InLine, InBegin);
	}
	if (Is(InLine, InBegin + 1, TextSelector))
	{
		return false;
	}
	const bool bJoined = Is(InLine, InBegin + 1, Joiner) && Has(InLine, InBegin + 2, ECharFlags::Emoji);
	return Has(InLine, InBegin, ECharFlags::EmojiByDefault) || Is(InLine, InBegin + 1, EmojiSelector) ||
		   Has(InLine, InBegin + 1, ECharFlags::SkinTone) || bJoined;
}

std::size_t FindEmojiEnd(const FLine& InLine, std::size_t InBegin)
{
	std::size_t End = InBegin + 1;
	if (Has(InLine, InBegin, ECharFlags::Regional) && Has(InLine, End, ECharFlags::Regional))
	{
		++End;
	}
	constexpr ECharFlags Extends = ECharFlags::SkinTone | ECharFlags::Mark | ECharFlags::Ignorable;
	while (Has(InLine, End, Extends))
	{
		const bool bJoins = Is(InLine, End, Joiner) && Has(InLine, End + 1, ECharFlags::Emoji);
		End += bJoins ? 2 : 1;
	}
	return End;
}

std::size_t FindTextEnd(const FLine& InLine, std::size_t InBegin)
{
	std::size_t End = InBegin + 1;
	while (Has(InLine, End, ECharFlags::Mark | ECharFlags::Ignorable))
	{
		++End;
	}
	return End;
}

void SetFont(FLine& InOutLine, std::size_t InBegin, std::size_t InEnd, FFontId InFont)
{
	for (std::size_t Index = InBegin; Index < InEnd; ++Index)
	{
		FCharInfo& Info = InOutLine.Infos[Index];
		// The advance stored with a simple character is that of its own font.
		Info.Flags = Info.Font == InFont ? Info.Flags : Without(Info.Flags, ECharFlags::Simple);
		Info.Font = InFont;
	}
}

/** The base's own font if it has the marks, else one that has everything; else each mark uses its own. */
void SetTextFont(FFontSet& InFonts, FLine& InOutLine, std::size_t InBegin, std::size_t InEnd)
{
	const FFontId Font = InOutLine.Infos[InBegin].Font;
	bool bCovered = true;
	for (std::size_t Index = InBegin + 1; Index < InEnd; ++Index)
	{
		FCharInfo& Info = InOutLine.Infos[Index];
		if (HasAny(Info.Flags, ECharFlags::Ignorable) || InFonts.Get(Font).Covers(InOutLine.Points[Index]))
		{
			Info.Font = Font;
		}
		bCovered = bCovered && Info.Font == Font;
	}
	if (!bCovered)
	{
		const std::span Points(InOutLine.Points.data() + InBegin, InEnd - InBegin);
		const std::optional<FFontId> Common = InFonts.FindCovering(Points);
		SetFont(InOutLine, InBegin, Common ? InEnd : InBegin, Common.value_or(Font));
	}
}

} // namespace

void ChooseClusterFonts(FFontSet& InFonts, FLine& InOutLine)
{
	const std::optional<FFontId> EmojiFont = InFonts.GetEmoji();
	std::size_t End = 0;
	for (std::size_t Begin = 0; Begin < InOutLine.Points.size(); Begin = End)
	{
		const bool bEmoji =
			EmojiFont && IsEmoji(InOutLine, Begin) && InFonts.Get(*EmojiFont).Covers(InOutLine.Points[Begin]);
		End = bEmoji ? FindEmojiEnd(InOutLine, Begin) : FindTextEnd(InOutLine, Begin);
		if (bEmoji)
		{
			SetFont(InOutLine, Begin, End, *EmojiFont);
		}
		else if (End > Begin + 1)
		{
			SetTextFont(InFonts, InOutLine, Begin, End);
		}
	}
}

} // namespace Flitmark
