#include "Formats/CommentImport.h"

#include "JsonScan.h"
#include "ProtobufImport.h"
#include "TextDecoding.h"
#include "XmlTag.h"

#include <algorithm>
#include <array>

namespace Flitmark
{

namespace
{

constexpr std::string_view Blanks = " \t\r\n";

/** Whether the text from a place on is the start tag of an element; OutTag is what follows the name. */
bool IsElement(std::string_view InText, std::string_view InName, std::string_view& OutTag)
{
	if (InText.substr(1, InName.size()) != InName)
	{
		return false;
	}
	OutTag = InText.substr(1 + InName.size());
	OutTag = OutTag.substr(0, OutTag.find_first_of("<>"));
	return OutTag.empty() || Blanks.find(OutTag.front()) != std::string_view::npos || OutTag.front() == '/';
}

ECommentFormat DetectXml(std::string_view InText)
{
	ECommentFormat OfRoot = ECommentFormat::Unknown;
	bool bRootSeen = false;
	for (std::size_t Place = InText.find('<'); Place != std::string_view::npos; Place = InText.find('<', Place + 1))
	{
		const std::string_view Rest = InText.substr(Place);
		std::string_view Tag;
		if (IsElement(Rest, "d", Tag) && !FindXmlAttribute(Tag, "p").empty())
		{
			return ECommentFormat::ListXml;
		}
		if (IsElement(Rest, "chat", Tag) && !Tag.empty())
		{
			return ECommentFormat::ChatXml;
		}
		if (!bRootSeen && Rest.size() > 1 && Rest[1] != '?' && Rest[1] != '!')
		{
			bRootSeen = true;
			OfRoot = IsElement(Rest, "i", Tag) ? ECommentFormat::ListXml : OfRoot;
			OfRoot = IsElement(Rest, "packet", Tag) ? ECommentFormat::ChatXml : OfRoot;
		}
	}
	return OfRoot;
}

/** Follows a JSON text's brackets until a member or a list tells what it is. */
class FJsonDetector
{
public:
	explicit FJsonDetector(std::string_view InText)
		: Text(InText)
	{
	}

	ECommentFormat Detect()
	{
		std::size_t Place = 0;
		while ((Place = Text.find_first_of("\"{}[],", Place)) != std::string_view::npos)
		{
			if (Text[Place] == '"')
			{
				Place = OnString(Place);
			}
			else
			{
				OnBracket(Place++);
			}
			if (Found != ECommentFormat::Unknown)
			{
				return Found;
			}
		}
		return Text.starts_with('{') ? ECommentFormat::Own : ECommentFormat::Unknown;
	}

private:
	/** What an open object or list has shown of itself. */
	struct FLevel
	{
		bool bList = false;
		bool bStartsWithNumber = false;
		int NumCommas = 0;
		bool bParameters = false;
		bool bMessage = false;
		bool bPosition = false;
		bool bContent = false;
	};

	void OnBracket(std::size_t InPlace)
	{
		switch (Text[InPlace])
		{
		case '{':
		case '[':
		{
			const std::size_t First = SkipJsonBlanks(Text, InPlace + 1);
			const bool bNumber = First != std::string_view::npos &&
								 (std::string_view("-.0123456789").find(Text[First]) != std::string_view::npos);
			Depth = std::min(Depth + 1, Levels.size() - 1);
			Levels[Depth] = FLevel();
			Levels[Depth].bList = Text[InPlace] == '[';
			Levels[Depth].bStartsWithNumber = bNumber;
			break;
		}
		case ',':
			++Levels[Depth].NumCommas;
			break;
		default:
			Depth -= Depth > 0 ? 1 : 0;
			break;
		}
	}

	std::size_t OnString(std::size_t InPlace)
	{
		FLevel& Level = Levels[Depth];
		const std::size_t End = FindStringEnd(Text, InPlace);
		const std::size_t Colon = SkipJsonBlanks(Text, End);
		if (Level.bList && Level.bStartsWithNumber && Levels[Depth - 1].bList && Level.NumCommas >= 3)
		{
			Found = ECommentFormat::RowsJson;
		}
		else if (Colon != std::string_view::npos && Text[Colon] == ':')
		{
			const std::size_t Value = SkipJsonBlanks(Text, Colon + 1);
			OnMember(Text.substr(InPlace + 1, End - InPlace - 2), Value == std::string_view::npos ? '\0' : Text[Value]);
		}
		return End;
	}

	void OnMember(std::string_view InKey, char InValueStart)
	{
		FLevel& Level = Levels[Depth];
		const bool bString = InValueStart == '"';
		const bool bScalar = InValueStart != '{' && InValueStart != '[';
		Level.bParameters = Level.bParameters || ((InKey == "p" || InKey == "c") && bString);
		Level.bMessage = Level.bMessage || (InKey == "m" && bString);
		Level.bPosition = Level.bPosition || (InKey == "position" && bScalar);
		Level.bContent = Level.bContent || (InKey == "content" && bString);
		if (InKey == "datas" && InValueStart == '[' && Depth == 1)
		{
			Found = ECommentFormat::Own;
		}
		else if (Level.bParameters && Level.bMessage)
		{
			Found = ECommentFormat::ParametersJson;
		}
		else if (Level.bPosition && Level.bContent)
		{
			Found = ECommentFormat::ObjectsJson;
		}
		else if ((bScalar && (InKey == "vpos" || InKey == "vposMs")) || (InKey == "chat" && InValueStart == '{'))
		{
			Found = ECommentFormat::ChatJson;
		}
	}

	std::string_view Text;
	ECommentFormat Found = ECommentFormat::Unknown;

	/** The first is outside everything; what is deeper than the last shares it. */
	std::array<FLevel, 32> Levels{};
	std::size_t Depth = 0;
};

} // namespace

ECommentFormat DetectFormat(std::string_view InHead)
{
	if (IsListProtobuf(InHead))
	{
		return ECommentFormat::ListProtobuf;
	}
	const std::string Decoded = DecodeHead(InHead, FindEncoding(InHead));
	std::string_view Text = Decoded;
	Text.remove_prefix(std::min(Text.find_first_not_of(Blanks), Text.size()));
	if (Text.starts_with('<'))
	{
		return DetectXml(Text);
	}
	// A script that hands JSON to a function.
	const std::size_t Name =
		Text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.$");
	if (Name > 0 && Name != std::string_view::npos && Text[Name] == '(')
	{
		Text.remove_prefix(std::min(SkipJsonBlanks(Text, Name + 1), Text.size()));
	}
	return Text.starts_with('{') || Text.starts_with('[') ? FJsonDetector(Text).Detect() : ECommentFormat::Unknown;
}

std::string_view ToText(ECommentFormat InFormat)
{
	switch (InFormat)
	{
	case ECommentFormat::ListXml:
		return "XML list";
	case ECommentFormat::ListProtobuf:
		return "binary list";
	case ECommentFormat::ParametersJson:
		return "JSON with parameters";
	case ECommentFormat::RowsJson:
		return "JSON rows";
	case ECommentFormat::ChatXml:
		return "XML chat";
	case ECommentFormat::ChatJson:
		return "JSON chat";
	case ECommentFormat::ObjectsJson:
		return "JSON objects";
	case ECommentFormat::Own:
		return "comment document";
	default:
		return "unknown format";
	}
}

} // namespace Flitmark
