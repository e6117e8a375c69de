#include "Insight/CommentStats.h"

#include "Formats/CommentTraits.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace Flitmark
{

namespace
{

constexpr int64 SecondsPerMinute = 60;
constexpr std::size_t TermsPerMinute = 4;

int64 CountCharacters(std::string_view InText)
{
	return std::ranges::count_if(InText,
								 [](char InByte) { return (static_cast<unsigned char>(InByte) & 0xC0) != 0x80; });
}

template <class T>
std::vector<TValueCount<T>> Rank(const std::map<T, int64>& InCounts)
{
	std::vector<TValueCount<T>> Ranked;
	for (const auto& [Value, Count] : InCounts)
	{
		Ranked.push_back({Value, Count});
	}
	std::ranges::stable_sort(Ranked, std::ranges::greater(), &TValueCount<T>::Count);
	return Ranked;
}

void CountLooks(std::span<const FServiceComment> InComments, FCommentStats& OutStats)
{
	std::map<int32, int64> Sizes;
	std::map<uint32, int64> Colors;
	std::unordered_set<int64> Users;
	for (const FServiceComment& Comment : InComments)
	{
		++OutStats.NumOfKind[static_cast<std::size_t>(Comment.Kind)];
		++Sizes[Comment.FontSize];
		++Colors[Comment.Color];
		if (Comment.UserId != 0)
		{
			Users.insert(Comment.UserId);
		}
		OutStats.NumWithoutUser += Comment.UserId == 0 ? 1 : 0;
	}
	OutStats.Sizes = Rank(Sizes);
	OutStats.Colors = Rank(Colors);
	OutStats.NumUsers = static_cast<int64>(Users.size());
}

void CountTimes(std::span<const FServiceComment> InComments, std::size_t InMost, FCommentStats& OutStats)
{
	std::map<int64, std::vector<const FServiceComment*>> Minutes;
	for (const FServiceComment& Comment : InComments)
	{
		if (!IsReached(Comment))
		{
			++OutStats.NumNeverReached;
			continue;
		}
		const bool bFirst = Minutes.empty();
		OutStats.FirstTicks = bFirst ? Comment.SpawnTicks : std::min(OutStats.FirstTicks, Comment.SpawnTicks);
		OutStats.LastTicks = bFirst ? Comment.SpawnTicks : std::max(OutStats.LastTicks, Comment.SpawnTicks);
		Minutes[GetSecond(Comment) / SecondsPerMinute].push_back(&Comment);
	}
	std::map<int64, int64> Counts;
	for (const auto& [Minute, Comments] : Minutes)
	{
		Counts[Minute] = static_cast<int64>(Comments.size());
	}
	std::vector<TValueCount<int64>> Ranked = Rank(Counts);
	Ranked.resize(std::min(Ranked.size(), InMost));
	for (const TValueCount<int64>& Busy : Ranked)
	{
		OutStats.BusyMinutes.push_back({Busy.Value, Busy.Count, FindTerms(Minutes[Busy.Value], TermsPerMinute)});
	}
}

void CountTexts(std::span<const FServiceComment> InComments, std::size_t InMost, FCommentStats& OutStats)
{
	std::unordered_map<std::string, int64> Counts;
	for (const FServiceComment& Comment : InComments)
	{
		if (HasText(Comment.Text))
		{
			++Counts[NormalizeSpace(Comment.Text)];
		}
	}
	OutStats.NumTexts = static_cast<int64>(Counts.size());
	for (const auto& [Text, Count] : Counts)
	{
		if (Count > 1)
		{
			OutStats.Repeated.push_back({Text, Count});
		}
	}
	const std::size_t Most = std::min(InMost, OutStats.Repeated.size());
	const auto End = OutStats.Repeated.begin() + static_cast<std::ptrdiff_t>(Most);
	std::partial_sort(OutStats.Repeated.begin(), End, OutStats.Repeated.end(),
					  [](const FRepeatedText& InLeft, const FRepeatedText& InRight) {
						  return InLeft.Count != InRight.Count ? InLeft.Count > InRight.Count
															   : InLeft.Text < InRight.Text;
					  });
	OutStats.Repeated.resize(Most);
}

/** The longest texts; of equal ones the first. */
void FindLongest(std::span<const FServiceComment> InComments, std::size_t InMost, FCommentStats& OutStats)
{
	using FEntry = std::pair<int64, const FServiceComment*>;
	std::vector<FEntry> Longest;
	for (const FServiceComment& Comment : InComments)
	{
		if (HasText(Comment.Text))
		{
			Longest.emplace_back(CountCharacters(NormalizeSpace(Comment.Text)), &Comment);
		}
	}
	std::ranges::stable_sort(Longest, std::ranges::greater(), &FEntry::first);
	std::unordered_set<std::string> Told;
	for (const auto& [NumCharacters, Comment] : Longest)
	{
		if (OutStats.Longest.size() == InMost)
		{
			return;
		}
		std::string Text = NormalizeSpace(Comment->Text);
		if (Told.insert(Text).second)
		{
			OutStats.Longest.push_back({std::move(Text), NumCharacters, Comment->SpawnTicks});
		}
	}
}

} // namespace

FCommentStats GatherStats(std::span<const FServiceComment> InComments, std::size_t InMost)
{
	FCommentStats Stats;
	Stats.NumComments = static_cast<int64>(InComments.size());
	CountLooks(InComments, Stats);
	CountTimes(InComments, InMost, Stats);
	CountTexts(InComments, InMost, Stats);
	FindLongest(InComments, InMost, Stats);
	return Stats;
}

std::vector<int64> GatherSpawnTicks(std::span<const FServiceComment> InComments)
{
	std::vector<int64> Ticks;
	for (const FServiceComment& Comment : InComments)
	{
		if (IsReached(Comment))
		{
			Ticks.push_back(Comment.SpawnTicks);
		}
	}
	return Ticks;
}

} // namespace Flitmark
