#include "StatsReport.h"

#include "Insight/CommentDensity.h"
#include "Formats/CommentTraits.h"
#include "Comments/CommentsReport.h"
#include "Insight/DensityPicture.h"
#include "TerminalText.h"
#include "Values/TimeText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Flitmark
{

namespace
{

/** Where the lines' texts begin, after their heads. */
constexpr std::size_t Indent = 10;

constexpr int64 SecondsPerMinute = 60;

std::string Pad(std::string InText, std::size_t InWidth)
{
	return InText.size() < InWidth ? InText + std::string(InWidth - InText.size(), ' ') : InText;
}

std::string PadLeft(const std::string& InText, std::size_t InWidth)
{
	return InText.size() < InWidth ? std::string(InWidth - InText.size(), ' ') + InText : InText;
}

class FStatsWriter
{
public:
	FStatsWriter(const FCommentStats& InStats, const std::vector<int64>& InSpawnTicks, const FStatsStyle& InStyle)
		: Stats(InStats)
		, SpawnTicks(InSpawnTicks)
		, Style(InStyle)
	{
	}

	std::string Write()
	{
		if (Stats.NumComments == 0)
		{
			return {};
		}
		AddDensity();
		AddTotals();
		AddMinutes();
		AddStyles();
		AddTexts();
		return std::move(Text);
	}

private:
	/** A line, cut where it would be too long. */
	void Add(const char* InHead, const std::string& InLine)
	{
		const std::size_t Room = Style.Width > Indent + 1 ? Style.Width - Indent - 1 : 1;
		Text += Pad(InHead, Indent) + CutToColumns(InLine, Room) + "\n";
	}

	/** One row of blocks, and the times below its ends. */
	void AddDensity()
	{
		constexpr const char* Blocks[] = {" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
		constexpr float Highest = std::size(Blocks) - 1;
		// The last column stays free, since writing there breaks the line on some terminals.
		const std::size_t Columns = std::max<std::size_t>(Style.Width, 12) - 1;
		const int64 Duration = Stats.LastTicks + 1;
		const std::vector<float> Density = ComputeDensity(SpawnTicks, Duration, Columns, 0.0);
		const float Most = Density.empty() ? 0.f : *std::ranges::max_element(Density);
		if (SpawnTicks.empty())
		{
			return;
		}
		for (const float Count : Density)
		{
			Text += Blocks[static_cast<std::size_t>(std::ceil(Count / Most * Highest))];
		}
		const std::string End = FormatTime(FTimespan(Stats.LastTicks));
		Text += "\n0:00" + PadLeft(End, Columns - 4) + "\n\n";
	}

	void AddTotals()
	{
		std::string Total = CountComments(Stats.NumComments) + ", " + FormatCount(Stats.NumTexts) +
							(Stats.NumTexts == 1 ? " different text" : " different texts");
		if (Stats.NumNeverReached > 0)
		{
			Total += ", " + FormatCount(Stats.NumNeverReached) + " never reached";
		}
		Add("total", Total);
		if (!SpawnTicks.empty())
		{
			Add("length", FormatTime(FTimespan(Stats.FirstTicks)) + " to " + FormatTime(FTimespan(Stats.LastTicks)) +
							  DescribeRate());
		}
		std::string Users = Stats.NumUsers > 0 ? FormatCount(Stats.NumUsers) : "unknown";
		if (Stats.NumUsers > 0 && Stats.NumWithoutUser > 0)
		{
			Users += ", and " + CountComments(Stats.NumWithoutUser) + " without one";
		}
		Add("users", Users);
	}

	/** Empty for less than a minute. */
	std::string DescribeRate() const
	{
		const double Minutes = static_cast<double>(Stats.LastTicks) / (SecondsPerMinute * TicksPerSecond);
		char Rate[64] = "";
		if (Minutes >= 1.0)
		{
			std::snprintf(Rate, sizeof(Rate), ", %.1f a minute", static_cast<double>(SpawnTicks.size()) / Minutes);
		}
		return Rate;
	}

	void AddMinutes()
	{
		const char* Head = "busiest";
		for (const FBusyMinute& Busy : Stats.BusyMinutes)
		{
			std::string Line = PadLeft(FormatTime(static_cast<double>(Busy.Minute * SecondsPerMinute)), 7) +
							   PadLeft(FormatCount(Busy.NumComments), 8);
			for (const FCommentTerm& Term : Busy.Terms)
			{
				Line += (&Term == &Busy.Terms.front() ? "  " : ", ") + Term.Text + " ×" + FormatCount(Term.Count);
			}
			Add(Head, Line);
			Head = "";
		}
	}

	void AddStyles()
	{
		constexpr std::string_view Names[] = {"scroll",		"top",	   "bottom", "from left to right",
											  "positioned", "scripts", "paid",	 "unknown"};
		std::string Modes;
		for (std::size_t Kind = 0; Kind < Stats.NumOfKind.size(); ++Kind)
		{
			if (Stats.NumOfKind[Kind] > 0)
			{
				Modes +=
					(Modes.empty() ? "" : ", ") + FormatCount(Stats.NumOfKind[Kind]) + " " + std::string(Names[Kind]);
			}
		}
		Add("modes", Modes);
		Add("sizes", List(Stats.Sizes, [](int32 InSize) { return std::to_string(InSize) + " pt"; }));
		Text += Pad("colors", Indent) + List(Stats.Colors, [this](uint32 InColor) { return DescribeColor(InColor); }) +
				"\n";
	}

	template <class T, class FDescribe>
	std::string List(const std::vector<TValueCount<T>>& InValues, FDescribe InDescribe) const
	{
		constexpr std::size_t MostListed = 4;
		std::string Line;
		for (std::size_t Index = 0; Index < std::min(InValues.size(), MostListed); ++Index)
		{
			Line +=
				(Index > 0 ? ", " : "") + InDescribe(InValues[Index].Value) + " ×" + FormatCount(InValues[Index].Count);
		}
		const std::size_t More = InValues.size() - std::min(InValues.size(), MostListed);
		return More > 0 ? Line + ", " + FormatCount(static_cast<int64>(More)) + " more" : Line;
	}

	std::string DescribeColor(uint32 InColor) const
	{
		char Name[16];
		const bool bOpaque = (InColor & 0xFF) == 0xFF;
		std::snprintf(Name, sizeof(Name), bOpaque ? "#%06X" : "#%08X", bOpaque ? InColor >> 8 : InColor);
		if (!Style.bColors)
		{
			return Name;
		}
		char Block[64];
		std::snprintf(Block, sizeof(Block), "\033[48;2;%u;%u;%um  \033[0m ", InColor >> 24, InColor >> 16 & 0xFF,
					  InColor >> 8 & 0xFF);
		return std::string(Block) + Name;
	}

	void AddTexts()
	{
		const char* Head = "repeated";
		for (const FRepeatedText& Repeated : Stats.Repeated)
		{
			Add(Head, PadLeft("×" + FormatCount(Repeated.Count), 8 + 1) + "  " + Repeated.Text);
			Head = "";
		}
		Head = "longest";
		for (const FLongText& Long : Stats.Longest)
		{
			Add(Head, PadLeft(FormatTime(FTimespan(Long.SpawnTicks)), 7) + "  " + FormatCount(Long.NumCharacters) +
						  (Long.NumCharacters == 1 ? " character: " : " characters: ") + Long.Text);
			Head = "";
		}
	}

	const FCommentStats& Stats;
	const std::vector<int64>& SpawnTicks;
	const FStatsStyle& Style;
	std::string Text;
};

} // namespace

FStatsStyle FStatsStyle::OfStandardOutput()
{
	const std::optional<std::size_t> Width = GetTerminalWidth(stdout);
	return Width ? FStatsStyle{*Width, true} : FStatsStyle{};
}

std::string DescribeStats(const FCommentStats& InStats, const std::vector<int64>& InSpawnTicks,
						  const FStatsStyle& InStyle)
{
	return FStatsWriter(InStats, InSpawnTicks, InStyle).Write();
}

} // namespace Flitmark
