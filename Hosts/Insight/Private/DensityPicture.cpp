#include "Insight/DensityPicture.h"

#include "Insight/CommentDensity.h"
#include "Formats/CommentTraits.h"
#include "DensityPictureLabels.h"
#include "DensityPictureScale.h"
#include "DensityPictureText.h"
#include "Values/TimeText.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>

namespace Flitmark
{

namespace
{

constexpr double Width = 1200.0;
constexpr double Height = 400.0;

/** The field of the curve; its axes' labels are outside, the marks' labels in rows above it. */
constexpr double Left = 66.0;
constexpr double Right = Width - 30.0;
constexpr double Top = 132.0;
constexpr double Bottom = Height - 44.0;

constexpr double LabelTop = 86.0;
constexpr double LabelRowHeight = 19.0;
constexpr std::size_t NumLabelRows = 2;
constexpr double LabelFontSize = 13.0;
constexpr double LongestLabel = 230.0;

constexpr const char* Style = R"(
	text { font-family: system-ui, "Helvetica Neue", Arial, "Noto Sans", "Noto Sans CJK SC", "Noto Sans CJK JP", sans-serif; fill: #5b6775; font-size: 13px; }
	.title { font-size: 20px; font-weight: 600; fill: #16202b; }
	.subtitle { font-size: 14px; }
	.mark { fill: #16202b; }
	.time { font-weight: 600; fill: #b4370d; }
	.grid { stroke: #e4e8ed; stroke-width: 1; }
	.axis { stroke: #9aa5b1; stroke-width: 1; }
	.area { fill: #cfe2f5; }
	.curve { fill: none; stroke: #1c66ab; stroke-width: 2.25; stroke-linejoin: round; stroke-linecap: round; }
	.leader { stroke: #b4370d; stroke-width: 1; stroke-dasharray: 2 3; opacity: 0.65; }
	.dot { fill: #b4370d; stroke: #ffffff; stroke-width: 1.5; }
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

class FPictureWriter
{
public:
	explicit FPictureWriter(const FDensityPicture& InPicture)
		: Picture(InPicture)
		, Bins(FDensityBins::Choose(InPicture.DurationTicks))
		, Seconds(static_cast<double>(Bins.GetTicks()) / static_cast<double>(TicksPerSecond))
		, Counts(ComputeDensity(Picture.SpawnTicks, Bins.GetTicks(), Bins.Num, 0.0))
		, Curve(ComputeDensity(Picture.SpawnTicks, Bins.GetTicks(), Bins.Num, Bins.Smoothing))
	{
		const double Highest = static_cast<double>(*std::ranges::max_element(Counts));
		constexpr std::size_t MostCountSteps = 4;
		CountStep = ChooseCountStep(std::max(Highest, 1.0), MostCountSteps);
		TopCount = CountStep * std::ceil(std::max(Highest, 1.0) / CountStep);
	}

	std::string Write()
	{
		Svg = Print(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %g %g" width="%g" height="%g" role="img">)",
					Width, Height, Width, Height);
		Svg += "\n<title>" + EscapeXml(Picture.Title) + "</title>\n<style>" + Style + "</style>\n";
		Svg += Print("<rect width=\"%g\" height=\"%g\" fill=\"#ffffff\"/>\n", Width, Height);
		constexpr double TitleEm = 20.0;
		constexpr double SubtitleEm = 14.0;
		AddText("title", Left, 34.0, CutToWidth(Picture.Title, (Right - Left) / TitleEm));
		AddText("subtitle", Left, 57.0, CutToWidth(Picture.Subtitle, (Right - Left) / SubtitleEm));
		AddGrid();
		AddArea();
		AddCurve();
		AddTimes();
		AddMarks();
		return Svg + "</svg>\n";
	}

private:
	double GetX(double InSeconds) const { return Left + (Right - Left) * std::min(InSeconds / Seconds, 1.0); }
	double GetY(double InCount) const { return Bottom - (Bottom - Top) * InCount / TopCount; }
	double GetMiddle(std::size_t InBin) const
	{
		return GetX((static_cast<double>(InBin) + 0.5) * static_cast<double>(Bins.Seconds));
	}

	void AddLine(const char* InClass, double InX1, double InY1, double InX2, double InY2)
	{
		Svg += Print("<line class=\"%s\" x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", InClass, InX1, InY1,
					 InX2, InY2);
	}

	void AddText(const char* InClass, double InX, double InY, const std::string& InText, const char* InAnchor = "start")
	{
		Svg += Print("<text class=\"%s\" x=\"%.1f\" y=\"%.1f\" text-anchor=\"%s\">", InClass, InX, InY, InAnchor);
		Svg += EscapeXml(InText) + "</text>\n";
	}

	void AddGrid()
	{
		for (double Count = CountStep; Count <= TopCount; Count += CountStep)
		{
			AddLine("grid", Left, GetY(Count), Right, GetY(Count));
			AddText("label", Left - 9.0, GetY(Count) + 4.5, Print("%.0f", Count), "end");
		}
		AddText("label", Left - 9.0, Bottom + 4.5, "0", "end");
		const std::string Each = Bins.Seconds == 1			? "second"
								 : Bins.Seconds == 60		? "minute"
								 : Bins.Seconds % 3600 == 0 ? Print("%g h", static_cast<double>(Bins.Seconds) / 3600.0)
								 : Bins.Seconds % 60 == 0	? Print("%g min", static_cast<double>(Bins.Seconds) / 60.0)
															: Print("%g s", static_cast<double>(Bins.Seconds));
		Svg +=
			Print("<text transform=\"translate(20 %.1f) rotate(-90)\" text-anchor=\"middle\">comments per %s</text>\n",
				  (Top + Bottom) / 2, Each.c_str());
	}

	/** The counts themselves, as steps. */
	void AddArea()
	{
		Svg += Print("<path class=\"area\" d=\"M%.1f %.1f", Left, Bottom);
		for (std::size_t Bin = 0; Bin < Counts.size(); ++Bin)
		{
			const double End = GetX(static_cast<double>(Bin + 1) * static_cast<double>(Bins.Seconds));
			Svg += Print("V%.1fH%.1f", GetY(static_cast<double>(Counts[Bin])), End);
		}
		Svg += Print("V%.1fZ\"/>\n", Bottom);
	}

	/** How much the curve falls from one bin's middle to the next. */
	double GetFall(std::size_t InBin) const
	{
		return GetY(static_cast<double>(Curve[InBin + 1])) - GetY(static_cast<double>(Curve[InBin]));
	}

	/** The curve's slope at a bin's middle, per bin: flat at tops and bottoms, so that it never swings beyond them. */
	double GetSlope(std::size_t InBin) const
	{
		if (InBin == 0 || InBin + 1 == Curve.size())
		{
			return 0.0;
		}
		const double Before = GetFall(InBin - 1);
		const double Behind = GetFall(InBin);
		return Before * Behind > 0.0 ? 2.0 * Before * Behind / (Before + Behind) : 0.0;
	}

	/** A smooth curve through the bins' middles. */
	void AddCurve()
	{
		const auto Y = [this](std::size_t InBin)
		{
			return GetY(static_cast<double>(Curve[InBin]));
		};
		Svg += Print("<path class=\"curve\" d=\"M%.1f %.1fH%.1f", Left, Y(0), GetMiddle(0));
		for (std::size_t Bin = 0; Bin + 1 < Curve.size(); ++Bin)
		{
			const double Third = (GetMiddle(Bin + 1) - GetMiddle(Bin)) / 3.0;
			Svg +=
				Print("C%.1f %.1f %.1f %.1f %.1f %.1f", GetMiddle(Bin) + Third, Y(Bin) + GetSlope(Bin) / 3.0,
					  GetMiddle(Bin + 1) - Third, Y(Bin + 1) - GetSlope(Bin + 1) / 3.0, GetMiddle(Bin + 1), Y(Bin + 1));
		}
		Svg += Print("H%.1f\"/>\n", Right);
	}

	void AddTimes()
	{
		constexpr std::size_t MostTimes = 12;
		AddLine("axis", Left, Bottom, Right, Bottom);
		const int64 Step = ChooseTimeStep(Seconds, MostTimes);
		for (int64 Second = 0; static_cast<double>(Second) <= Seconds; Second += Step)
		{
			const double X = GetX(static_cast<double>(Second));
			AddLine("axis", X, Bottom, X, Bottom + 6.0);
			AddText("label", X, Bottom + 23.0, FormatTime(static_cast<double>(Second)), "middle");
		}
	}

	struct FMarkText
	{
		std::string Time;
		std::string Label;
		double Width = 0.0;
	};

	static FMarkText MakeText(const FDensityMark& InMark)
	{
		FMarkText Text;
		Text.Time = FormatTime(FTimespan(InMark.Ticks));
		Text.Label = CutToWidth(InMark.Label, LongestLabel / LabelFontSize);
		const double Space = Text.Label.empty() ? 0.0 : 0.5;
		Text.Width = (GuessWidth(Text.Time) * 1.1 + Space + GuessWidth(Text.Label)) * LabelFontSize;
		return Text;
	}

	void AddMarks()
	{
		std::vector<FLabelWish> Wishes;
		std::vector<FMarkText> Texts;
		for (const FDensityMark& Mark : Picture.Marks)
		{
			Texts.push_back(MakeText(Mark));
			Wishes.push_back(
				{GetX(static_cast<double>(Mark.Ticks) / static_cast<double>(TicksPerSecond)), Texts.back().Width});
		}
		const auto Places = PlaceLabels(Wishes, Left, Right, NumLabelRows);
		for (std::size_t Index = 0; Index < Places.size(); ++Index)
		{
			const double X = Wishes[Index].X;
			const double Y = GetCurveY(X);
			if (Places[Index])
			{
				const double Baseline = LabelTop + LabelRowHeight * static_cast<double>(Places[Index]->Row) + 10.0;
				AddLine("leader", X, Baseline + 5.0, X, Y);
				Svg += Print("<text class=\"mark\" x=\"%.1f\" y=\"%.1f\"><tspan class=\"time\">", Places[Index]->Left,
							 Baseline);
				Svg += EscapeXml(Texts[Index].Time) + "</tspan>";
				Svg +=
					Texts[Index].Label.empty() ? "" : " <tspan dx=\"3\">" + EscapeXml(Texts[Index].Label) + "</tspan>";
				Svg += "</text>\n";
			}
			Svg += Print("<circle class=\"dot\" cx=\"%.1f\" cy=\"%.1f\" r=\"4.5\"/>\n", X, Y);
		}
	}

	/** Of the curve, straight between the bins' middles. */
	double GetCurveY(double InX) const
	{
		const double Place = (InX - Left) / (Right - Left) * Seconds / static_cast<double>(Bins.Seconds) - 0.5;
		const double Inside = std::clamp(Place, 0.0, static_cast<double>(Curve.size() - 1));
		const auto Bin = static_cast<std::size_t>(Inside);
		const std::size_t Next = std::min(Bin + 1, Curve.size() - 1);
		const double Share = Inside - static_cast<double>(Bin);
		return GetY(static_cast<double>(Curve[Bin]) * (1.0 - Share) + static_cast<double>(Curve[Next]) * Share);
	}

	const FDensityPicture& Picture;
	const FDensityBins Bins;
	/** From the left to the right end. */
	const double Seconds;
	const std::vector<float> Counts;
	const std::vector<float> Curve;
	double CountStep = 1.0;
	double TopCount = 1.0;
	std::string Svg;
};

} // namespace

std::string DrawDensityPicture(const FDensityPicture& InPicture)
{
	return FPictureWriter(InPicture).Write();
}

} // namespace Flitmark
