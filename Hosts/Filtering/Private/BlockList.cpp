#include "Filtering/BlockList.h"

#include "Filtering/CommentFilter.h"
#include "Formats/CleanText.h"
#include "Formats/FieldValues.h"
#include "Formats/XmlTag.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <algorithm>

namespace Flitmark
{

namespace
{

std::string_view Trim(std::string_view InText)
{
	constexpr std::string_view Blanks = " \t\r";
	InText.remove_prefix(std::min(InText.find_first_not_of(Blanks), InText.size()));
	return InText.substr(0, InText.find_last_not_of(Blanks) + 1);
}

/** What stands between slashes, with `(?i)` before it if an `i` follows them; nothing if there are none. */
std::optional<std::string> FindSlashed(std::string_view InText)
{
	const bool bAnyCase = InText.size() > 3 && InText.ends_with("/i");
	InText.remove_suffix(bAnyCase ? 1 : 0);
	const bool bSlashed = InText.size() > 2 && InText.front() == '/' && InText.back() == '/';
	return bSlashed ? std::optional((bAnyCase ? "(?i)" : "") + std::string(InText.substr(1, InText.size() - 2)))
					: std::nullopt;
}

/** One line of a person's list; what is wrong with it, or nothing. */
std::string AddLine(std::string_view InLine, FBlockList& OutList)
{
	constexpr std::string_view User = "user:";
	constexpr std::string_view Word = "word:";
	if (InLine.starts_with(User) || InLine.starts_with(Word))
	{
		const bool bUser = InLine.starts_with(User);
		const std::string Value(Trim(InLine.substr(User.size())));
		const std::optional<std::string> Fault = bUser ? FindUserFault(Value) : std::nullopt;
		if (Value.empty() || Fault)
		{
			return Fault ? "\"" + Value + "\" is not a regular expression: " + *Fault
						 : "nothing follows \"" + std::string(InLine) + "\"";
		}
		(bUser ? OutList.Users : OutList.Words).push_back(Value);
		return {};
	}
	const std::optional<std::string> Pattern = FindSlashed(InLine);
	if (!Pattern)
	{
		OutList.Words.emplace_back(InLine);
		return {};
	}
	if (const std::optional<std::string> Fault = FindPatternFault(*Pattern))
	{
		return "\"" + std::string(InLine) + "\" is not a regular expression: " + *Fault;
	}
	OutList.Patterns.push_back(*Pattern);
	return {};
}

bool ReadLines(std::string_view InText, FBlockList& OutList, std::string& OutError)
{
	int64 Number = 0;
	while (!InText.empty())
	{
		const std::size_t End = InText.find('\n');
		const std::string_view Line = Trim(InText.substr(0, End));
		InText.remove_prefix(End == std::string_view::npos ? InText.size() : End + 1);
		++Number;
		const std::string Fault = Line.empty() || Line.starts_with('#') ? std::string() : AddLine(Line, OutList);
		if (!Fault.empty())
		{
			OutError = "line " + std::to_string(Number) + ": " + Fault;
			return false;
		}
	}
	return true;
}

/** One entry of a service's list, as it comes. */
struct FExported
{
	std::string Type;
	std::string Filter;
	bool bEnabled = true;
};

/** Takes a service's entries one by one. */
class FExportReader
{
public:
	explicit FExportReader(FBlockList& OutList)
		: List(OutList)
	{
	}

	void Add(const FExported& InEntry)
	{
		++Number;
		if (!InEntry.bEnabled)
		{
			++List.NumDisabled;
		}
		else if (InEntry.Filter.empty())
		{
			Refuse("has nothing to look for");
		}
		else if (InEntry.Type == "0" || InEntry.Type == "t")
		{
			List.Words.push_back(InEntry.Filter);
		}
		else if (InEntry.Type == "1" || InEntry.Type == "r")
		{
			AddPattern(FindSlashed(InEntry.Filter).value_or(InEntry.Filter));
		}
		else if (InEntry.Type == "2" || InEntry.Type == "u")
		{
			List.Users.push_back(InEntry.Filter);
		}
		else
		{
			Refuse("is of the unknown type \"" + MakeCleanText(InEntry.Type) + "\"");
		}
	}

private:
	void AddPattern(const std::string& InPattern)
	{
		if (const std::optional<std::string> Fault = FindPatternFault(InPattern))
		{
			Refuse("\"" + MakeCleanText(InPattern) + "\" is not a regular expression that can be used: " + *Fault);
			return;
		}
		List.Patterns.push_back(InPattern);
	}

	void Refuse(const std::string& InReason)
	{
		List.Unusable.push_back("entry " + std::to_string(Number) + ": " + InReason);
	}

	FBlockList& List;
	int64 Number = 0;
};

bool IsOn(std::string_view InText)
{
	return InText.empty() || (InText != "false" && InText != "0");
}

/** `<item enabled="true">t=word</item>`, or with the attributes `type` and `filter`. */
void ReadXml(std::string_view InText, FExportReader& OutReader)
{
	constexpr std::string_view Begin = "<item";
	for (std::size_t Place = InText.find(Begin); Place != std::string_view::npos; Place = InText.find(Begin, Place))
	{
		Place += Begin.size();
		const std::size_t TagEnd = std::min(InText.find('>', Place), InText.size());
		std::string_view Tag = InText.substr(Place, TagEnd - Place);
		const bool bEmpty = Tag.ends_with('/');
		Tag.remove_suffix(bEmpty ? 1 : 0);
		const std::size_t Rest = std::min(TagEnd + 1, InText.size());
		const std::size_t End = bEmpty ? Rest : std::min(InText.find("</item", Rest), InText.size());
		FExported Entry;
		std::string Storage;
		AppendXmlText(Entry.Filter, InText.substr(Rest, End - Rest));
		Entry.Filter = Trim(Entry.Filter);
		Entry.Type = FindXmlAttribute(Tag, "type");
		Entry.bEnabled = IsOn(FindXmlAttribute(Tag, "enabled")) && IsOn(FindXmlAttribute(Tag, "opened"));
		if (const std::string_view Filter = FindXmlAttribute(Tag, "filter"); !Filter.empty())
		{
			Entry.Filter = ResolveEntities(Filter, Storage);
		}
		if (Entry.Type.empty() && Entry.Filter.size() > 1 && Entry.Filter[1] == '=')
		{
			Entry.Type = Entry.Filter.substr(0, 1);
			Entry.Filter.erase(0, 2);
		}
		OutReader.Add(Entry);
		Place = End;
	}
}

std::string ToText(const rapidjson::Value& InObject, const char* InName)
{
	const auto Member = InObject.FindMember(InName);
	if (Member == InObject.MemberEnd())
	{
		return {};
	}
	const rapidjson::Value& Value = Member->value;
	return Value.IsString() ? std::string(Value.GetString(), Value.GetStringLength())
		   : Value.IsInt()	? std::to_string(Value.GetInt())
		   : Value.IsBool() ? (Value.GetBool() ? "true" : "false")
							: "";
}

/** `{"type":0,"filter":"word","opened":true}` in a list, however deep. */
void WalkJson(const rapidjson::Value& InRoot, FExportReader& OutReader)
{
	// A stack of our own, so that no depth of a file can exhaust the program's. It is filled from the end.
	std::vector<const rapidjson::Value*> Waiting{&InRoot};
	while (!Waiting.empty())
	{
		const rapidjson::Value& Value = *Waiting.back();
		Waiting.pop_back();
		if (Value.IsObject() && Value.HasMember("filter"))
		{
			OutReader.Add({ToText(Value, "type"), ToText(Value, "filter"),
						   IsOn(ToText(Value, "opened")) && IsOn(ToText(Value, "enabled"))});
		}
		else if (Value.IsObject())
		{
			for (const auto& Member : Value.GetObject())
			{
				Waiting.push_back(&Member.value);
			}
		}
		else if (Value.IsArray())
		{
			for (rapidjson::SizeType Index = Value.Size(); Index > 0; --Index)
			{
				Waiting.push_back(&Value[Index - 1]);
			}
		}
	}
}

bool ReadJson(std::string_view InText, FExportReader& OutReader, std::string& OutError)
{
	rapidjson::Document Json;
	Json.Parse<rapidjson::kParseIterativeFlag>(InText.data(), InText.size());
	if (Json.HasParseError())
	{
		const auto Line = 1 + std::ranges::count(InText.substr(0, Json.GetErrorOffset()), '\n');
		OutError = "line " + std::to_string(Line) + ": not JSON: " + rapidjson::GetParseError_En(Json.GetParseError());
		return false;
	}
	WalkJson(Json, OutReader);
	return true;
}

} // namespace

std::optional<FBlockList> FBlockList::Parse(std::string_view InText, std::string& OutError)
{
	if (InText.starts_with("\xEF\xBB\xBF"))
	{
		InText.remove_prefix(3);
	}
	if (!IsUtf8(InText))
	{
		OutError = "is not UTF-8; save it as UTF-8";
		return std::nullopt;
	}
	const std::string_view Begin = InText.substr(std::min(InText.find_first_not_of(" \t\r\n"), InText.size()));
	FBlockList List;
	FExportReader Reader(List);
	bool bRead = true;
	if (Begin.starts_with('<') && Begin.find("<item") != std::string_view::npos)
	{
		ReadXml(Begin, Reader);
	}
	else if ((Begin.starts_with('[') || Begin.starts_with('{')) && Begin.find("\"filter\"") != std::string_view::npos)
	{
		bRead = ReadJson(InText, Reader, OutError);
	}
	else
	{
		bRead = ReadLines(InText, List, OutError);
	}
	return bRead ? std::optional(std::move(List)) : std::nullopt;
}

} // namespace Flitmark
