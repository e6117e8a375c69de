#include "ForeignJson.h"

#include "Formats/CleanText.h"
#include "JsonScan.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace Flitmark
{

namespace
{

/** A kind of JSON by names that all appear in it. */
struct FKind
{
	std::vector<std::string_view> Names;
	const char* What;
};

const FKind Kinds[] = {
	{{"tStartMs", "segs"}, "subtitles"},
	{{"body", "from", "to", "content"}, "subtitles"},
	{{"segments", "start", "end", "text"}, "a transcript"},
	{{"rpid", "message"}, "comments written below a video, which have no time in it"},
	{{"comments", "like_count", "author"}, "comments written below a video, which have no time in it"},
	{{"formats", "webpage_url"}, "a description of a video"},
	{{"streams", "codec_name"}, "a description of a video"},
	{{"log", "entries", "request"}, "a recording of a browser's requests"},
	{{"messages", "timestamp"}, "a chat of a messenger, which has dates, but no times in a video"},
	{{"messages", "date"}, "a chat of a messenger, which has dates, but no times in a video"},
	{{"type", "features", "geometry"}, "a map"},
};

bool HasName(std::string_view InText, std::string_view InName)
{
	return InText.find("\"" + std::string(InName) + "\"") != std::string_view::npos;
}

struct FMember
{
	std::string_view Name;
	/** From its first character; of one that is not whole, to the text's end. */
	std::string_view Value;
};

/** The members of the object that a text begins with, or of the first one in the list that it begins with. */
std::vector<FMember> ListMembers(std::string_view InText)
{
	constexpr std::size_t MaxMembers = 64;
	std::vector<FMember> Members;
	std::size_t Place = InText.starts_with('[') ? SkipJsonBlanks(InText, 1) : 0;
	if (Place == std::string_view::npos || InText[Place] != '{')
	{
		return Members;
	}
	while (Members.size() < MaxMembers)
	{
		const std::size_t Name = SkipJsonBlanks(InText, Place + 1);
		const std::size_t NameEnd =
			Name < InText.size() && InText[Name] == '"' ? FindStringEnd(InText, Name) : std::string_view::npos;
		const std::size_t Colon = NameEnd < InText.size() ? SkipJsonBlanks(InText, NameEnd) : std::string_view::npos;
		const std::size_t Value = Colon < InText.size() ? SkipJsonBlanks(InText, Colon + 1) : std::string_view::npos;
		if (Value >= InText.size() || InText[Colon] != ':')
		{
			break;
		}
		const bool bOpens = InText[Value] == '{' || InText[Value] == '[';
		const std::size_t ValueEnd = std::min(bOpens				 ? FindBalancedEnd(InText, Value)
											  : InText[Value] == '"' ? FindStringEnd(InText, Value)
																	 : InText.find_first_of(",}\n", Value),
											  InText.size());
		Members.push_back({InText.substr(Name + 1, NameEnd - Name - 2), InText.substr(Value, ValueEnd - Value)});
		Place = SkipJsonBlanks(InText, ValueEnd);
		if (Place == std::string_view::npos || InText[Place] != ',')
		{
			break;
		}
	}
	return Members;
}

/** As it may be shown in a message. */
std::string Shorten(std::string_view InText)
{
	constexpr std::size_t Longest = 60;
	std::string Text = MakeCleanText(InText.substr(0, Longest));
	std::ranges::replace(Text, '\n', ' ');
	return Text + (InText.size() > Longest ? "..." : "");
}

std::string_view FindValue(const std::vector<FMember>& InMembers, std::initializer_list<std::string_view> InNames)
{
	for (const FMember& Member : InMembers)
	{
		if (std::ranges::find(InNames, Member.Name) != InNames.end())
		{
			return Member.Value;
		}
	}
	return {};
}

/** What a service answers instead of comments: a code or an error, and mostly a message. */
std::string DescribeRefusal(const std::vector<FMember>& InMembers)
{
	const std::string_view Code = FindValue(InMembers, {"code", "status", "error", "errno"});
	const std::string_view Message =
		FindValue(InMembers, {"message", "msg", "error_description", "errorMessage", "error"});
	if (Code.empty() || Code == "0" || Code == "200" || Code == "null" || Message.empty() || Message.front() != '"')
	{
		return {};
	}
	return "is not comments, but a service's answer to a failed request: " + Shorten(Code) +
		   (Message == Code ? "" : ", " + Shorten(Message)) + "; get the comments anew";
}

std::string ListNames(const std::vector<FMember>& InMembers)
{
	constexpr std::size_t MostNamed = 5;
	std::string Names;
	for (std::size_t Index = 0; Index < std::min(MostNamed, InMembers.size()); ++Index)
	{
		Names += (Index > 0 ? ", \"" : " \"") + Shorten(InMembers[Index].Name) + "\"";
	}
	return Names + (InMembers.size() > MostNamed ? ", ..." : "");
}

/** The first list without elements, also one level down; where there are comments, it would have some. */
std::string FindEmptyList(const std::vector<FMember>& InMembers, bool bInDeeper = true)
{
	for (const FMember& Member : InMembers)
	{
		const std::size_t Inside =
			Member.Value.starts_with('[') ? SkipJsonBlanks(Member.Value, 1) : Member.Value.size();
		std::string Name = Inside < Member.Value.size() && Member.Value[Inside] == ']' ? std::string(Member.Name) : "";
		if (Name.empty() && bInDeeper && Member.Value.starts_with('{'))
		{
			Name = FindEmptyList(ListMembers(Member.Value), false);
		}
		if (!Name.empty())
		{
			return Name;
		}
	}
	return {};
}

} // namespace

std::string DescribeForeignJson(std::string_view InText)
{
	for (const FKind& Kind : Kinds)
	{
		if (std::ranges::all_of(Kind.Names, [&](std::string_view InName) { return HasName(InText, InName); }))
		{
			return std::string("is JSON that looks like ") + Kind.What + "; that is not read";
		}
	}
	const std::vector<FMember> Members = ListMembers(InText);
	if (std::string Refusal = DescribeRefusal(Members); !Refusal.empty())
	{
		return Refusal;
	}
	if (const std::string Empty = FindEmptyList(Members); !Empty.empty())
	{
		return "is JSON with no comments in it: its list \"" + Shorten(Empty) + "\" is empty";
	}
	if (Members.empty())
	{
		return "is JSON, or looks like it, but in no known form of comments";
	}
	return std::string("is JSON, but in no known form of comments; it has") +
		   (InText.starts_with('[') ? " a list of objects with" : "") +
		   (Members.size() == 1 ? " the member" : " the members") + ListNames(Members);
}

} // namespace Flitmark
