#include "JsonProbe.h"

#include "JsonScan.h"

#include <algorithm>
#include <array>

namespace Flitmark
{

namespace
{

/** Follows a text's brackets until a node matches. */
class FJsonWalk
{
public:
	FJsonWalk(std::string_view InText, bool (*InMatches)(const FJsonNode&))
		: Text(InText)
		, Matches(InMatches)
	{
	}

	FFormatProbe Probe()
	{
		std::size_t Offset = 0;
		while ((Offset = Text.find_first_of("\"{}[],", Offset)) != std::string_view::npos)
		{
			switch (Text[Offset])
			{
			case '"':
			{
				const std::size_t End = FindStringEnd(Text, Offset);
				if (OnString(Offset, End))
				{
					return {FFormatProbe::EResult::Certain, Offset};
				}
				Offset = End;
				continue;
			}
			case '{':
			case '[':
				Open(Offset);
				break;
			case ',':
				++Nodes[Depth].NumCommas;
				break;
			default:
				Depth -= Depth > 0 ? 1 : 0;
				break;
			}
			++Offset;
		}
		return {};
	}

private:
	void Open(std::size_t InOffset)
	{
		const std::size_t First = SkipJsonBlanks(Text, InOffset + 1);
		const bool bInList = Nodes[Depth].bList;
		Depth = std::min(Depth + 1, Nodes.size() - 1);
		FJsonNode& Node = Nodes[Depth];
		Node.bList = Text[InOffset] == '[';
		Node.bInList = bInList;
		Node.bStartsWithNumber = First != std::string_view::npos &&
								 std::string_view("-.0123456789").find(Text[First]) != std::string_view::npos;
		Node.NumCommas = 0;
		Node.Depth = Depth;
		Node.Members.clear();
	}

	/** Whether its node matches now. */
	bool OnString(std::size_t InOffset, std::size_t InEnd)
	{
		constexpr std::size_t MaxMembers = 64;
		FJsonNode& Node = Nodes[Depth];
		const std::size_t Colon = SkipJsonBlanks(Text, InEnd);
		if (Colon != std::string_view::npos && Text[Colon] == ':')
		{
			if (Node.Members.size() == MaxMembers)
			{
				return false;
			}
			const std::size_t Value = SkipJsonBlanks(Text, Colon + 1);
			Node.Members.emplace_back(Text.substr(InOffset + 1, InEnd - InOffset - 2),
									  Value == std::string_view::npos ? '\0' : Text[Value]);
			return Matches(Node);
		}
		return Node.bList && Matches(Node);
	}

	const std::string_view Text;
	bool (*const Matches)(const FJsonNode&);

	/** The first is outside everything; what is deeper than the last shares it. */
	std::array<FJsonNode, 32> Nodes;
	std::size_t Depth = 0;
};

template <typename TestType>
bool HasMember(const FJsonNode& InNode, std::initializer_list<std::string_view> InNames, TestType InTest)
{
	return std::ranges::any_of(
		InNode.Members, [&](const auto& InMember)
		{ return InTest(InMember.second) && std::ranges::find(InNames, InMember.first) != InNames.end(); });
}

/** Without the name and the parenthesis of a function call. */
std::string_view SkipCall(std::string_view InText)
{
	const std::size_t Name =
		InText.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.$");
	if (Name > 0 && Name != std::string_view::npos && InText[Name] == '(')
	{
		InText.remove_prefix(std::min(SkipJsonBlanks(InText, Name + 1), InText.size()));
	}
	return InText;
}

} // namespace

bool FJsonNode::HasString(std::initializer_list<std::string_view> InNames) const
{
	return HasMember(*this, InNames, [](char InStart) { return InStart == '"'; });
}

bool FJsonNode::HasObject(std::string_view InName) const
{
	return HasMember(*this, {InName}, [](char InStart) { return InStart == '{'; });
}

bool FJsonNode::HasList(std::string_view InName) const
{
	return HasMember(*this, {InName}, [](char InStart) { return InStart == '['; });
}

bool FJsonNode::HasScalar(std::initializer_list<std::string_view> InNames) const
{
	return HasMember(*this, InNames, [](char InStart) { return InStart != '{' && InStart != '['; });
}

FFormatProbe ProbeJson(std::string_view InText, bool (*InMatches)(const FJsonNode& InNode))
{
	const std::string_view Json = SkipCall(InText);
	return Json.starts_with('{') || Json.starts_with('[') ? FJsonWalk(Json, InMatches).Probe() : FFormatProbe();
}

bool IsJsonObject(std::string_view InText)
{
	return SkipCall(InText).starts_with('{');
}

} // namespace Flitmark
