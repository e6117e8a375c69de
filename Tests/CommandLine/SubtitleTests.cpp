#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <sstream>

namespace Flitmark::Testing
{
namespace
{

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/** Where a comment is at a time; canvas units and seconds. */
struct FSample
{
	double Seconds = 0.0;
	double X = 0.0;
	double Y = 0.0;
};

/** A subtitle event. */
struct FEvent
{
	FSample Begin;
	FSample End;
	std::string Text;

	FSample At(double InSeconds) const
	{
		const double Share = (InSeconds - Begin.Seconds) / (End.Seconds - Begin.Seconds);
		return {InSeconds, Begin.X + Share * (End.X - Begin.X), Begin.Y + Share * (End.Y - Begin.Y)};
	}
};

double ReadTime(const std::string& InText)
{
	int Hours = 0;
	int Minutes = 0;
	double Seconds = 0.0;
	EXPECT_EQ(std::sscanf(InText.c_str(), "%d:%d:%lf", &Hours, &Minutes, &Seconds), 3) << InText;
	return Hours * 3600 + Minutes * 60 + Seconds;
}

std::vector<FEvent> ReadEvents(const std::string& InFile)
{
	std::vector<FEvent> Events;
	std::istringstream Lines(InFile);
	for (std::string Line; std::getline(Lines, Line);)
	{
		if (!Line.starts_with("Dialogue: 0,"))
		{
			continue;
		}
		FEvent& Event = Events.emplace_back();
		Event.Begin.Seconds = ReadTime(Line.substr(12, 10));
		Event.End.Seconds = ReadTime(Line.substr(23, 10));
		const char* const Move = std::strstr(Line.c_str(), "\\move(");
		const char* const Place = Move != nullptr ? Move + 6 : std::strstr(Line.c_str(), "\\pos(") + 5;
		FSample End;
		const int Num = std::sscanf(Place, "%lf,%lf,%lf,%lf", &Event.Begin.X, &Event.Begin.Y, &End.X, &End.Y);
		EXPECT_EQ(Num, Move != nullptr ? 4 : 2) << Line;
		Event.End.X = Move != nullptr ? End.X : Event.Begin.X;
		Event.End.Y = Move != nullptr ? End.Y : Event.Begin.Y;
		Event.Text = Line.substr(Line.find('}') + 1);
	}
	return Events;
}

/** What a trace with positions says about a placed comment. */
struct FTraced
{
	double FontSize = 0.0;
	bool bBottom = false;
	std::string Text;
	std::vector<FSample> Samples;
};

double FindNumber(const std::string& InLine, const std::string& InKey)
{
	return std::strtod(InLine.c_str() + InLine.find("\"" + InKey + "\":") + InKey.size() + 3, nullptr);
}

std::map<int, FTraced> ReadTrace(const std::string& InTrace)
{
	std::map<int, FTraced> Comments;
	std::istringstream Lines(InTrace);
	for (std::string Line; std::getline(Lines, Line);)
	{
		if (Line.find("\"event\":\"placed\"") != std::string::npos)
		{
			const std::size_t Text = Line.find("\"content\":\"") + 11;
			Comments[static_cast<int>(FindNumber(Line, "id"))] = {FindNumber(Line, "font_size"),
																  FindNumber(Line, "mode") == 2.0,
																  Line.substr(Text, Line.find('"', Text) - Text),
																  {}};
		}
		const std::size_t List = Line.find("\"nodes\":[");
		for (std::size_t At = List; At != std::string::npos; At = Line.find(",[", At + 1))
		{
			int Id = 0;
			FSample Sample;
			const char* const Node = Line.c_str() + At + (At == List ? 9 : 1);
			if (std::sscanf(Node, "[%d,%lf,%lf]", &Id, &Sample.X, &Sample.Y) == 3)
			{
				Sample.Seconds = FindNumber(Line, "media") / 1e7;
				Comments[Id].Samples.push_back(Sample);
			}
		}
	}
	return Comments;
}

/** Comments of every mode and several sizes, too many for the lanes, with a pause in between. */
std::string MakeCrowd()
{
	std::vector<std::string> Comments;
	for (int Index = 0; Index < 240; ++Index)
	{
		const int Second = Index < 200 ? Index % 12 : 60 + Index % 3;
		const std::string Text = "comment " + std::string(static_cast<std::size_t>(1 + Index * 7 % 23), 'm');
		Comments.push_back(MakeComment("\"danmaku_content\":\"" + Text + "\",\"danmaku_mode\":" +
									   std::to_string(Index % 5 == 1   ? 1
													  : Index % 5 == 3 ? 2
																	   : 0) +
									   ",\"danmaku_font_size\":" + std::to_string(18 + Index % 4 * 9) +
									   ",\"danmaku_spawn_time\":" + std::to_string(Second * 10'000'000 + Index)));
	}
	return MakeDocument(Comments);
}

TEST(Subtitles, StandWhereTheTraceHasThemInEveryFrame)
{
	const FTestFolder Folder;
	const std::string Crowd = Folder.Write("c.json", MakeCrowd());
	const struct
	{
		std::vector<std::string> Options;
		double Fps = 60.0;
		double FontScale = 1.0;
		/** How much lower bottom comments are than on the trace's canvas. */
		double Shift = 0.0;
	} Cases[] = {
		{{"--seed", "1"}},
		{{"--seed", "9", "--size", "1440x1080"}},
		{{"--fps", "24", "--size", "640x400"}, 24.0},
		{{"--area", "0.5", "--speed", "1.7", "--font-scale", "0.75", "--bold"}, 60.0, 0.75, 1080.0 - 720.0},
	};
	for (const auto& Case : Cases)
	{
		const auto Run = [&Case](std::vector<std::string> InArguments)
		{
			InArguments.insert(InArguments.end(), Case.Options.begin(), Case.Options.end());
			return RunProgram(InArguments);
		};
		const FProgramResult Written = Run({"convert", Crowd, "-o", "-", "--to", "ass"});
		const std::vector<FEvent> Events = ReadEvents(Written.Out);
		const std::map<int, FTraced> Traced = ReadTrace(Run({"trace", Crowd, "--measure", "fonts", "--positions"}).Out);
		ASSERT_EQ(Events.size(), Traced.size()) << Written.Error;
		EXPECT_LT(Events.size(), 240U);
		EXPECT_THAT(Written.Error,
					HasSubstr("\nflitmark: " + std::to_string(240 - Events.size()) + " comments found no free lane; "));
		// A property of the font, the same for all: from the top of a comment to the top of its letters' cell, in ems.
		std::optional<double> Rise;
		auto Event = Events.begin();
		for (const auto& [Id, Comment] : Traced)
		{
			const double Em = Comment.FontSize * Case.FontScale * 96.0 / 72.0;
			const double Shift = Comment.bBottom ? Case.Shift : 0.0;
			EXPECT_EQ(Event->Text, Comment.Text);
			EXPECT_NEAR(Event->Begin.Seconds, Comment.Samples.front().Seconds, 1e-6);
			EXPECT_GT(Event->End.Seconds, Comment.Samples.back().Seconds);
			EXPECT_LE(Event->End.Seconds, Comment.Samples.back().Seconds + 1.0 / Case.Fps + 1e-6);
			for (const FSample& Sample : Comment.Samples)
			{
				const FSample Shown = Event->At(Sample.Seconds);
				Rise = Rise.value_or((Shown.Y - Sample.Y - Shift) / Em);
				ASSERT_NEAR(Shown.X, Sample.X + Em / 16.0, 0.002) << Comment.Text << " at " << Sample.Seconds;
				ASSERT_NEAR(Shown.Y, Sample.Y + Shift + *Rise * Em, 0.002) << Comment.Text << " at " << Sample.Seconds;
			}
			++Event;
		}
	}
}

/** A picture's pixels, three bytes each, red first; small enough for fractions of a pixel not to matter. */
std::string ReadPixels(const std::string& InInput, const std::string& InFilter)
{
	const FTestFolder Folder;
	const std::string Raw = Folder.File("raw");
	const std::string Command = "ffmpeg -nostdin -v error -y " + InInput + " -vf \"" + InFilter +
								"format=rgb24,scale=480:270:flags=area\" -frames:v 1 -f rawvideo -pix_fmt rgb24 " + Raw;
	EXPECT_EQ(std::system(Command.c_str()), 0) << Command;
	return ReadFile(Raw);
}

/** Of the pixels that are not black in both pictures, the share in which the pictures clearly differ. */
double CompareInk(const std::string& InOne, const std::string& InOther)
{
	EXPECT_EQ(InOne.size(), InOther.size());
	double NumInk = 0.0;
	double NumDifferent = 0.0;
	for (std::size_t Index = 0; Index < std::min(InOne.size(), InOther.size()); ++Index)
	{
		constexpr int Clear = 40;
		const int One = static_cast<unsigned char>(InOne[Index]);
		const int Other = static_cast<unsigned char>(InOther[Index]);
		NumInk += std::max(One, Other) >= Clear ? 1.0 : 0.0;
		NumDifferent += std::abs(One - Other) >= Clear ? 1.0 : 0.0;
	}
	EXPECT_GT(NumInk, 200.0);
	return NumDifferent / NumInk;
}

TEST(Subtitles, LookLikeTheOverlay)
{
	const std::string Video =
		MakeVideo("tall.mkv", "-f lavfi -i color=black:s=1920x1080:r=10 -t 2 -c:v libx264 -qp 0 -preset ultrafast");
	const FTestFolder Folder;
	const std::string Second = ",\"danmaku_spawn_time\":10000000";
	const struct
	{
		const char* Name;
		std::string Members;
	} Cases[] = {
		{"Latin", R"("danmaku_content":"Quick brown fox, jumping","danmaku_mode":1)"},
		{"Moving", R"("danmaku_content":"Quick brown fox","danmaku_font_color":"#66D1FF","danmaku_font_size":48)"},
		{"Mixed", R"("danmaku_content":"Mixed 混ぜる text 글","danmaku_font_size":48)"},
		{"Lines", R"("danmaku_content":"one 一\n  {two}\n\nfour 四","danmaku_mode":1,"danmaku_font_size":40)"},
		{"RightToLeft", R"("danmaku_content":"رائع جدا 123 [ok]","danmaku_mode":1,"danmaku_font_size":48)"},
		{"Escapes", R"("danmaku_content":"{\\b1}a\\N\\","danmaku_mode":1,"danmaku_font_size":48)"},
		{"Faint", R"("danmaku_content":"half","danmaku_font_color":"#FF804080","danmaku_font_size":80)"},
		{"Dark", R"("danmaku_content":"dark","danmaku_font_color":"#101010","danmaku_font_size":80)"},
	};
	for (const auto& Case : Cases)
	{
		const std::string Comments = Folder.Write("c.json", MakeDocument({MakeComment(Case.Members + Second)}));
		const std::string Picture = Folder.File("p.png");
		const std::string Subtitle = Folder.File("s.ass");
		ASSERT_EQ(RunProgram({"shot", Video, Comments, "--at", "1.5", "-o", Picture}).ExitCode, 0);
		const FProgramResult Written = RunProgram({"convert", Comments, "-o", Subtitle, "--fps", "10"});
		ASSERT_EQ(Written.ExitCode, 0) << Written.Error;
		EXPECT_LT(CompareInk(ReadPixels("-i " + Picture, ""),
							 ReadPixels("-i " + Video, "ass=" + Subtitle + ",select=gte(t\\,1.499),")),
				  0.15)
			<< Case.Name;
	}
}

TEST(Subtitles, CountWhatTheyLeaveOut)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write(
		"c.json", MakeDocument({MakeComment(), MakeComment(R"("danmaku_content":"  ")"),
								MakeComment(R"("danmaku_mode":7)"), MakeComment(R"("danmaku_font_size":2000)"),
								MakeComment(R"("danmaku_content":"clear","danmaku_font_color":"#FF000000")")}));
	const FProgramResult Result = RunProgram({"convert", Path, "-o", Folder.File("o.ASS"), "--opacity", "0.5"});
	EXPECT_EQ(Result.ExitCode, 0);
	EXPECT_THAT(Result.Error, AllOf(HasSubstr("flitmark: 4 comments can't be seen"), Not(HasSubstr("no free lane")),
									HasSubstr("o.ASS: 1 comment written")));
	const std::string Written = ReadFile(Folder.File("o.ASS"));
	EXPECT_EQ(ReadEvents(Written).size(), 1U);
	EXPECT_THAT(Written, HasSubstr(",&H7FFFFFFF,&H00FFFFFF,&H99000000,"));
	// An empty subtitle is a subtitle, too.
	const std::string Empty = Folder.Write("e.json", "{\"datas\":[]}");
	EXPECT_THAT(RunProgram({"convert", Empty, "-o", "-", "--to", "ass"}).Out, testing::EndsWith("Effect, Text\n"));
}

} // namespace
} // namespace Flitmark::Testing
