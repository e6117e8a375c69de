#include "Itemizer.h"

#include "Clusters.h"

#include <fribidi.h>

#include <algorithm>

namespace Flitmark
{

namespace
{

struct FBidiScratch
{
	std::vector<FriBidiCharType> Types;
	std::vector<FriBidiBracketType> Brackets;
};

static_assert(sizeof(FriBidiLevel) == sizeof(int8) && sizeof(FriBidiChar) == sizeof(uint32));

/** The first strong character of the line decides its direction. */
void FindLevels(FLine& InOutLine)
{
	thread_local FBidiScratch Scratch;
	const std::size_t Count = InOutLine.Points.size();
	const auto Length = static_cast<FriBidiStrIndex>(Count);
	Scratch.Types.resize(Count);
	Scratch.Brackets.resize(Count);
	InOutLine.Levels.resize(Count);
	fribidi_get_bidi_types(InOutLine.Points.data(), Length, Scratch.Types.data());
	fribidi_get_bracket_types(InOutLine.Points.data(), Length, Scratch.Types.data(), Scratch.Brackets.data());
	FriBidiParType Base = FRIBIDI_PAR_ON;
	if (fribidi_get_par_embedding_levels_ex(Scratch.Types.data(), Scratch.Brackets.data(), Length, &Base,
											InOutLine.Levels.data()) == 0)
	{
		InOutLine.Levels.clear();
	}
}

void FindRuns(FLine& InOutLine)
{
	InOutLine.Runs.clear();
	for (std::size_t Index = 0; Index < InOutLine.Points.size(); ++Index)
	{
		const FCharInfo& Info = InOutLine.Infos[Index];
		const int8 Level = InOutLine.Levels.empty() ? int8{0} : InOutLine.Levels[Index];
		const bool bSimple = HasAny(Info.Flags, ECharFlags::Simple);
		const bool bCommon = FCharTable::IsCommon(Info.Script);
		FRun* Run = InOutLine.Runs.empty() ? nullptr : &InOutLine.Runs.back();
		const bool bSameScript = Run && (bCommon || FCharTable::IsCommon(Run->Script) || Run->Script == Info.Script);
		if (!bSameScript || Run->Font != Info.Font || Run->Level != Level)
		{
			InOutLine.Runs.push_back({Index, 1, Info.Font, Info.Script, Level, bSimple});
			continue;
		}
		++Run->Count;
		Run->Script = bCommon ? Run->Script : Info.Script;
		Run->bSimple = Run->bSimple && bSimple;
	}
}

/** Rule L2: from the highest level down to the lowest odd one, reverse everything at that level or above. */
void ReorderRuns(std::vector<FRun>& InOutRuns)
{
	int8 Highest = 0;
	for (const FRun& Run : InOutRuns)
	{
		Highest = std::max(Highest, Run.Level);
	}
	for (int8 Level = Highest; Level > 0; --Level)
	{
		const auto IsBelow = [Level](const FRun& InRun)
		{
			return InRun.Level < Level;
		};
		const auto IsAtOrAbove = [Level](const FRun& InRun)
		{
			return InRun.Level >= Level;
		};
		auto End = InOutRuns.begin();
		while (End != InOutRuns.end())
		{
			const auto Begin = std::find_if(End, InOutRuns.end(), IsAtOrAbove);
			End = std::find_if(Begin, InOutRuns.end(), IsBelow);
			std::reverse(Begin, End);
		}
	}
}

} // namespace

void Itemize(FFontSet& InFonts, FCharTable& InChars, FLine& InOutLine)
{
	InOutLine.Infos.clear();
	InOutLine.Levels.clear();
	ECharFlags All = ECharFlags::None;
	for (const uint32 Point : InOutLine.Points)
	{
		InOutLine.Infos.push_back(InChars.Find(Point));
		All = All | InOutLine.Infos.back().Flags;
	}
	if (HasAny(All, ECharFlags::Mark | ECharFlags::Ignorable | ECharFlags::EmojiByDefault | ECharFlags::Regional |
						ECharFlags::SkinTone))
	{
		ChooseClusterFonts(InFonts, InOutLine);
	}
	if (HasAny(All, ECharFlags::Bidi))
	{
		FindLevels(InOutLine);
	}
	FindRuns(InOutLine);
	if (!InOutLine.Levels.empty())
	{
		ReorderRuns(InOutLine.Runs);
	}
}

} // namespace Flitmark
