#include "LaneReview.h"

#include "Comments/CommentsReport.h"
#include "Formats/CommentDocument.h"
#include "JsonLine.h"
#include "Values/TimeText.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace Flitmark
{

namespace
{

constexpr int64 SecondsPerMinute = 60;

/** Comments before the worst minute that a trial begins with: how lanes fill up depends on all that came before. */
constexpr std::ptrdiff_t LeadIn = 50'000;

std::string MakeTime(int64 InMinute)
{
	return FormatTime(static_cast<double>(InMinute * SecondsPerMinute));
}

std::vector<FCrowdedMinute> FindWorst(const FRehearsal& InRehearsal)
{
	std::vector<FCrowdedMinute> Worst;
	for (const auto& [Minute, Counts] : InRehearsal.Minutes)
	{
		if (Counts.NumNoLane > 0)
		{
			Worst.push_back({Minute, Counts.CountAll(), Counts.NumNoLane});
		}
	}
	std::ranges::stable_sort(Worst, std::ranges::greater(), &FCrowdedMinute::NumNoLane);
	Worst.resize(std::min(Worst.size(), FLaneReview::MostMinutes));
	return Worst;
}

/** The second from which on a trial of that minute runs. */
int64 FindTrialStart(const FCommentDocument& InDocument, int64 InMinute)
{
	std::vector<int64> Seconds;
	for (const FCommentEntry& Entry : InDocument.GetEntries())
	{
		if (Entry.IsReached() && Entry.GetSecond() < InMinute * SecondsPerMinute)
		{
			Seconds.push_back(Entry.GetSecond());
		}
	}
	if (std::ssize(Seconds) <= LeadIn)
	{
		return 0;
	}
	const auto First = Seconds.end() - LeadIn;
	std::ranges::nth_element(Seconds, First);
	return *First;
}

/** How many seconds of a minute have comments. */
int64 CountSeconds(const FCommentDocument& InDocument, int64 InMinute)
{
	std::set<int64> Seconds;
	for (const FCommentEntry& Entry : InDocument.GetEntries())
	{
		if (Entry.IsReached() && Entry.GetSecond() / SecondsPerMinute == InMinute)
		{
			Seconds.insert(Entry.GetSecond());
		}
	}
	return std::ssize(Seconds);
}

/** How many of a minute's comments find no lane with other options. */
std::optional<int64> CountNoLane(const FCommentDocument& InDocument, FRehearsalOptions InOptions, int64 InMinute,
								 std::string& OutError)
{
	InOptions.FirstSecond = FindTrialStart(InDocument, InMinute);
	InOptions.LastSecond = (InMinute + 1) * SecondsPerMinute - 1;
	InOptions.Progress = {};
	const std::optional<FRehearsal> Rehearsal = Rehearse(InDocument, InOptions, OutError);
	return Rehearsal ? std::optional(Rehearsal->Minutes.at(InMinute).NumNoLane) : std::nullopt;
}

bool FindRemedies(const FCommentDocument& InDocument, const FRehearsalOptions& InOptions, FLaneReview& InOutReview,
				  std::string& OutError)
{
	const FCrowdedMinute& Worst = InOutReview.Worst.front();
	const auto Try = [&](const char* InOption, const FRehearsalOptions& InOther)
	{
		const std::optional<int64> NumNoLane = CountNoLane(InDocument, InOther, Worst.Minute, OutError);
		if (NumNoLane && *NumNoLane < Worst.NumNoLane)
		{
			InOutReview.Remedies.push_back({InOption, NumNoLane});
		}
		return NumNoLane.has_value();
	};
	FRehearsalOptions Larger = InOptions;
	Larger.Settings.Area = 1.0;
	FRehearsalOptions Smaller = InOptions;
	Smaller.Size = FVector2f(2.f * InOptions.Size.X, 2.f * InOptions.Size.Y);
	if ((InOptions.Settings.Area < 1.0 && !Try("--area 1", Larger)) || !Try("twice the --scale", Smaller))
	{
		return false;
	}
	const int64 NumPlaced = Worst.NumDue - Worst.NumNoLane;
	InOutReview.Remedies.push_back(
		{"--max-per-second " + std::to_string(std::max<int64>(1, NumPlaced / CountSeconds(InDocument, Worst.Minute))),
		 std::nullopt});
	return true;
}

} // namespace

std::optional<FLaneReview> ReviewLanes(const FCommentDocument& InDocument, const FRehearsalOptions& InOptions,
									   std::string& OutError)
{
	const std::optional<FRehearsal> Rehearsal = Rehearse(InDocument, InOptions, OutError);
	if (!Rehearsal)
	{
		return std::nullopt;
	}
	FLaneReview Review;
	Review.Counts = Rehearsal->Counts;
	Review.Worst = FindWorst(*Rehearsal);
	const bool bDone = Review.Worst.empty() || FindRemedies(InDocument, InOptions, Review, OutError);
	return bDone ? std::optional(std::move(Review)) : std::nullopt;
}

void PrintLanes(const FLaneReview& InReview)
{
	const FPlacementCounts& Counts = InReview.Counts;
	if (Counts.CountAll() == 0)
	{
		return;
	}
	std::printf("lanes    %s of %s that are due find one, %s don't\n",
				FormatCount(Counts.NumShown + Counts.NumBlank).c_str(), CountComments(Counts.CountAll()).c_str(),
				FormatCount(Counts.NumNoLane + Counts.NumUnserved).c_str());
	const char* Head = "worst";
	for (const FCrowdedMinute& Minute : InReview.Worst)
	{
		std::printf("%-8s %s to %s: no free lane for %s of %s\n", Head, MakeTime(Minute.Minute).c_str(),
					MakeTime(Minute.Minute + 1).c_str(), FormatCount(Minute.NumNoLane).c_str(),
					CountComments(Minute.NumDue).c_str());
		Head = "";
	}
	Head = "helps";
	for (const FRemedy& Remedy : InReview.Remedies)
	{
		std::printf("%-8s %s: %s\n", Head, Remedy.Option.c_str(),
					Remedy.NumNoLane ? ("no free lane for " + FormatCount(*Remedy.NumNoLane) + " of them").c_str()
									 : "as many as there is room for, spread evenly");
		Head = "";
	}
}

void AddLanes(FJsonLine& Line, const FLaneReview& InReview)
{
	Line.BeginObject("lanes");
	Line.Add("shown", InReview.Counts.NumShown);
	Line.Add("blank", InReview.Counts.NumBlank);
	Line.Add("no_lane", InReview.Counts.NumNoLane);
	Line.Add("unserved", InReview.Counts.NumUnserved);
	Line.EndObject();
	Line.BeginArray("worst_minutes");
	for (const FCrowdedMinute& Minute : InReview.Worst)
	{
		Line.BeginObject();
		Line.Add("minute", Minute.Minute);
		Line.Add("due", Minute.NumDue);
		Line.Add("no_lane", Minute.NumNoLane);
		Line.EndObject();
	}
	Line.EndArray();
	Line.BeginArray("remedies");
	for (const FRemedy& Remedy : InReview.Remedies)
	{
		Line.BeginObject();
		Line.Add("option", std::string_view(Remedy.Option));
		if (Remedy.NumNoLane)
		{
			Line.Add("no_lane", *Remedy.NumNoLane);
		}
		Line.EndObject();
	}
	Line.EndArray();
}

} // namespace Flitmark
