#include "Insight/DensityPicture.h"

#include "Formats/CleanText.h"
#include "Formats/CommentTraits.h"
#include "Formats/Utf8.h"
#include "Insight/CommentDensity.h"
#include "Insight/CommentStats.h"
#include "Insight/CommentTerms.h"
#include "Values/TimeText.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <iterator>
#include <numeric>

namespace Flitmark
{

namespace
{

constexpr double Width = 1200.0;
constexpr double Height = 400.0;

/**
 * The plot. Its side margins hold half a label, and marks are at least one label apart, so labels are simply centered on
 * their bars and never overlap: 16 of the widest characters at 13 pixels are 208 wide.
 */
constexpr double Left = 105.0;
constexpr double Right = Width - Left;
constexpr double Top = 128.0;
constexpr double Bottom = Height - 44.0;
constexpr std::size_t MaxLabelLength = 16;
constexpr double MarkDistance = 208.0 / (Right - Left);

/** Of 18 pixels at most, from the plot's left side on. */
constexpr std::size_t MaxTitleLength = 60;

constexpr const char* Style = R"(
	text { font-family: system-ui, "Helvetica Neue", Arial, "Noto Sans", "Noto Sans CJK SC", "Noto Sans CJK JP", sans-serif; fill: #5b6775; font-size: 13px; }
	.title { font-size: 18px; font-weight: 600; fill: #16202b; }
	.said { fill: #16202b; }
	.time { font-weight: 600; fill: #b4370d; }
	.grid { stroke: #e4e8ed; }
	.axis { stroke: #9aa5b1; }
	.bars { fill: #5b97d0; }
	.busy { fill: #b4370d; }
	.leader { stroke: #b4370d; stroke-dasharray: 2 3; }
)";

__attribute__((format(printf, 1, 2))) std::string Print(const char* InFormat, ...)
{
	char Text[256];
	va_list Arguments;
	va_start(Arguments, InFormat);
	std::vsnprintf(Text, sizeof(Text), InFormat, Arguments);
	va_end(Arguments);
	return Text;
}

/** The shortest round time in seconds that fits no more than InMost times into InSeconds. */
int64 ChooseTimeStep(int64 InSeconds, int64 InMost)
{
	constexpr int64 Steps[] = {1,	2,	 5,	   10,	 15,   20,	 30,	60,	   120,	  300,
							   600, 900, 1200, 1800, 3600, 7200, 10800, 21600, 43200, 86400};
	const auto* const Found = std::ranges::find_if(Steps, [=](int64 InStep) { return InSeconds <= InStep * InMost; });
	return Found != std::end(Steps) ? *Found : *std::prev(std::end(Steps));
}

/** The least 1, 2 or 5 times a power of ten that fits no more than InMost times into InTop. */
double ChooseCountStep(double InTop, double InMost)
{
	for (double Power = 1.0;; Power *= 10.0)
	{
		for (const double Step : {Power, 2.0 * Power, 5.0 * Power})
		{
			if (InTop <= Step * InMost)
			{
				return Step;
			}
		}
	}
}

std::string EscapeXml(std::string_view InText)
{
	std::string Escaped;
	for (const char Character : MakeCleanText(InText))
	{
		Escaped += Character == '&'	  ? std::string("&amp;")
				   : Character == '<' ? std::string("&lt;")
				   : Character == '>' ? std::string("&gt;")
									  : std::string(1, Character);
	}
	return Escaped;
}

/** With an ellipsis if it has more characters. */
std::string Shorten(std::string_view InText, std::size_t InMaxLength)
{
	std::size_t End = 0;
	std::size_t Last = 0;
	for (std::size_t Length = 0; Length < InMaxLength && End < InText.size(); ++Length)
	{
		Last = End;
		TakeCharacter(InText, End);
	}
	return End < InText.size() ? std::string(InText.substr(0, Last)) + "…" : std::string(InText);
}

std::string DescribeUnit(int64 InSeconds)
{
	const long long UnitSeconds = InSeconds % 3600 == 0 ? 3600 : InSeconds % 60 == 0 ? 60 : 1;
	const char* const Unit = UnitSeconds == 3600 ? "hour" : UnitSeconds == 60 ? "minute" : "second";
	return InSeconds == UnitSeconds ? Print("comments per %s", Unit)
									: Print("comments per %lld %ss", InSeconds / UnitSeconds, Unit);
}

class FPictureWriter
{
public:
	explicit FPictureWriter(std::span<const FServiceComment> InComments)
		: Comments(InComments)
	{
		constexpr int64 MaxBars = 200;
		const std::vector<int64> Ticks = GatherSpawnTicks(InComments);
		const int64 Last = Ticks.empty() ? 0 : *std::ranges::max_element(Ticks) / TicksPerSecond;
		BarSeconds = ChooseTimeStep(Last + 1, MaxBars);
		const int64 NumBars = Last / BarSeconds + 1;
		Seconds = NumBars * BarSeconds;
		Bars = ComputeDensity(Ticks, Seconds * TicksPerSecond, static_cast<std::size_t>(NumBars), 0.0);
		MaxBar = *std::ranges::max_element(Bars);
		const double Most = std::max(static_cast<double>(MaxBar), 1.0);
		CountStep = ChooseCountStep(Most, 4.0);
		TopCount = CountStep * std::ceil(Most / CountStep);
	}

	std::string Write(const std::string& InTitle, const std::string& InSubtitle)
	{
		Svg = Print(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %g %g" width="%g" height="%g" role="img">)",
					Width, Height, Width, Height);
		Svg += "\n<title>" + EscapeXml(InTitle) + "</title>\n<style>" + Style + "</style>\n";
		Svg += Print("<rect width=\"%g\" height=\"%g\" fill=\"#ffffff\"/>\n", Width, Height);
		AddText("title", Left, 34.0, Shorten(InTitle, MaxTitleLength), "start");
		AddText("subtitle", Left, 57.0, Shorten(InSubtitle, MaxTitleLength), "start");
		AddCounts();
		AddBars();
		AddTimes();
		AddMarks();
		return Svg + "</svg>\n";
	}

private:
	double GetX(double InSeconds) const { return Left + (Right - Left) * InSeconds / static_cast<double>(Seconds); }
	double GetY(double InCount) const { return Bottom - (Bottom - Top) * InCount / TopCount; }

	void AddLine(const char* InClass, double InX1, double InY1, double InX2, double InY2)
	{
		Svg += Print("<line class=\"%s\" x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", InClass, InX1, InY1,
					 InX2, InY2);
	}

	void AddText(const char* InClass, double InX, double InY, const std::string& InText, const char* InAnchor)
	{
		Svg += Print("<text class=\"%s\" x=\"%.1f\" y=\"%.1f\" text-anchor=\"%s\">", InClass, InX, InY, InAnchor);
		Svg += EscapeXml(InText) + "</text>\n";
	}

	void AddCounts()
	{
		for (double Count = 0.0; Count <= TopCount; Count += CountStep)
		{
			AddLine("grid", Left, GetY(Count), Right, GetY(Count));
			AddText("count", Left - 9.0, GetY(Count) + 4.5, Print("%.0f", Count), "end");
		}
		Svg += Print("<text transform=\"translate(36 %.1f) rotate(-90)\" text-anchor=\"middle\">%s</text>\n",
					 (Top + Bottom) / 2, DescribeUnit(BarSeconds).c_str());
	}

	std::string MakeBar(std::size_t InBar) const
	{
		constexpr double Gap = 1.0;
		const double Begin = GetX(static_cast<double>(BarSeconds) * static_cast<double>(InBar));
		const double End = GetX(static_cast<double>(BarSeconds) * static_cast<double>(InBar + 1));
		return Print("M%.1f %.1fV%.1fH%.1fV%.1fZ", Begin, Bottom, GetY(static_cast<double>(Bars[InBar])), End - Gap,
					 Bottom);
	}

	void AddBars()
	{
		Svg += "<path class=\"bars\" d=\"";
		for (std::size_t Bar = 0; Bar < Bars.size(); ++Bar)
		{
			Svg += Bars[Bar] > 0.f ? MakeBar(Bar) : "";
		}
		Svg += "\"/>\n";
	}

	void AddTimes()
	{
		constexpr int64 MaxTimes = 12;
		AddLine("axis", Left, Bottom, Right, Bottom);
		for (int64 Second = 0; Second <= Seconds; Second += ChooseTimeStep(Seconds, MaxTimes))
		{
			const double X = GetX(static_cast<double>(Second));
			AddLine("axis", X, Bottom, X, Bottom + 6.0);
			AddText("at", X, Bottom + 23.0, FormatTime(static_cast<double>(Second)), "middle");
		}
	}

	/** What several of a bar's comments say; empty if they have nothing in common. */
	std::string FindSaid(std::size_t InBar) const
	{
		std::vector<const FServiceComment*> OfBar;
		for (const FServiceComment& Comment : Comments)
		{
			if (IsReached(Comment) && static_cast<std::size_t>(GetSecond(Comment) / BarSeconds) == InBar)
			{
				OfBar.push_back(&Comment);
			}
		}
		const std::vector<FCommentTerm> Terms = FindTerms(OfBar, 1);
		return Terms.empty() ? std::string() : Terms.front().Text;
	}

	/** The busiest bars, if they are busy compared with the others. */
	void AddMarks()
	{
		constexpr std::size_t MaxMarks = 3;
		constexpr float LeastOfMost = 0.25f;
		constexpr float LeastOfMean = 1.5f;
		const float Mean = std::accumulate(Bars.begin(), Bars.end(), 0.f) / static_cast<float>(Bars.size());
		const auto Distance = static_cast<std::size_t>(std::ceil(MarkDistance * static_cast<double>(Bars.size())));
		for (const std::size_t Bar : FindPeaks(Bars, MaxMarks, Distance))
		{
			if (Bars[Bar] < LeastOfMost * MaxBar || Bars[Bar] < LeastOfMean * Mean)
			{
				continue;
			}
			const int64 Second = static_cast<int64>(Bar) * BarSeconds;
			const double X = GetX(static_cast<double>(Second) + static_cast<double>(BarSeconds) / 2.0);
			Svg += "<path class=\"busy\" d=\"" + MakeBar(Bar) + "\"/>\n";
			AddLine("leader", X, Top - 12.0, X, GetY(static_cast<double>(Bars[Bar])));
			const std::string Said = FindSaid(Bar);
			AddText("time", X, Top - (Said.empty() ? 18.0 : 36.0), FormatTime(static_cast<double>(Second)), "middle");
			if (!Said.empty())
			{
				AddText("said", X, Top - 18.0, Shorten(Said, MaxLabelLength), "middle");
			}
		}
	}

	const std::span<const FServiceComment> Comments;
	int64 BarSeconds = 1;
	/** From the left to the right end. */
	int64 Seconds = 1;
	std::vector<float> Bars;
	float MaxBar = 0.f;
	double CountStep = 1.0;
	double TopCount = 1.0;
	std::string Svg;
};

} // namespace

std::string DrawDensityPicture(std::span<const FServiceComment> InComments, const std::string& InTitle,
							   const std::string& InSubtitle)
{
	return FPictureWriter(InComments).Write(InTitle, InSubtitle);
}

} // namespace Flitmark
