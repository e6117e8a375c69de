#include "ChatCommands.h"

#include "Formats/FieldValues.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

namespace Flitmark
{

namespace
{

struct FNamedColor
{
	std::string_view Name;
	uint32 Rgb;
};

constexpr FNamedColor Colors[] = {
	{"white", 0xFFFFFF},		  {"red", 0xFF0000},		 {"pink", 0xFF8080},	  {"orange", 0xFFC000},
	{"yellow", 0xFFFF00},		  {"green", 0x00FF00},		 {"cyan", 0x00FFFF},	  {"blue", 0x0000FF},
	{"purple", 0xC000FF},		  {"black", 0x000000},		 {"white2", 0xCCCC99},	  {"niconicowhite", 0xCCCC99},
	{"red2", 0xCC0033},			  {"truered", 0xCC0033},	 {"pink2", 0xFF33CC},	  {"orange2", 0xFF6600},
	{"passionorange", 0xFF6600},  {"yellow2", 0x999900},	 {"madyellow", 0x999900}, {"green2", 0x00CC66},
	{"elementalgreen", 0x00CC66}, {"cyan2", 0x00CCCC},		 {"blue2", 0x3399FF},	  {"marineblue", 0x3399FF},
	{"purple2", 0x6633CC},		  {"nobleviolet", 0x6633CC}, {"black2", 0x666666},
};

struct FNamedKind
{
	std::string_view Name;
	ECommentKind Kind;
};

constexpr FNamedKind Kinds[] = {
	{"naka", ECommentKind::Scroll}, {"ue", ECommentKind::Top}, {"shita", ECommentKind::Bottom}};

struct FNamedSize
{
	std::string_view Name;
	int32 Points;
};

constexpr FNamedSize Sizes[] = {{"small", 15}, {"medium", FServiceComment::NormalPoints}, {"big", 39}};

template <typename NamedType, std::size_t Num>
const NamedType* Find(const NamedType (&InTable)[Num], std::string_view InName)
{
	const auto* const Found = std::ranges::find(InTable, InName, &NamedType::Name);
	return Found == std::end(InTable) ? nullptr : Found;
}

/** Color commands of old and new clients; nothing for what is none. */
std::optional<uint32> FindColor(std::string_view InCommand)
{
	if (const FNamedColor* const Color = Find(Colors, InCommand))
	{
		return Color->Rgb << 8 | 0xFF;
	}
	return InCommand.starts_with('#') ? ParseColor(InCommand) : std::nullopt;
}

/** Where the next blank is, from a place on, and how long; also the wide one that Japanese keyboards type. */
std::size_t FindBlank(std::string_view InText, std::size_t InPlace, std::size_t& OutSize)
{
	constexpr std::string_view WideBlank = "\u3000";
	for (; InPlace < InText.size(); ++InPlace)
	{
		const bool bWide = InText.substr(InPlace, WideBlank.size()) == WideBlank;
		if (bWide || std::string_view(" \t\r\n").find(InText[InPlace]) != std::string_view::npos)
		{
			OutSize = bWide ? WideBlank.size() : 1;
			return InPlace;
		}
	}
	OutSize = 0;
	return InPlace;
}

std::string ToLower(std::string_view InText)
{
	std::string Lower(InText);
	std::ranges::transform(Lower, Lower.begin(),
						   [](char InLetter) -> char
						   {
							   const bool bCapital = InLetter >= 'A' && InLetter <= 'Z';
							   return bCapital ? static_cast<char>(InLetter - 'A' + 'a') : InLetter;
						   });
	return Lower;
}

} // namespace

void FChatCommands::Apply(std::string_view InCommands, FServiceComment& InOutComment)
{
	while (!InCommands.empty())
	{
		std::size_t BlankSize = 0;
		const std::size_t End = FindBlank(InCommands, 0, BlankSize);
		if (End > 0)
		{
			ApplyOne(ToLower(InCommands.substr(0, End)), InOutComment);
		}
		InCommands.remove_prefix(End + BlankSize);
	}
}

void FChatCommands::ApplyOne(std::string_view InCommand, FServiceComment& InOutComment)
{
	bHidden = bHidden || InCommand == "invisible";
	const FNamedKind* const Kind = bHasKind ? nullptr : Find(Kinds, InCommand);
	const FNamedSize* const Size = bHasSize ? nullptr : Find(Sizes, InCommand);
	const std::optional<uint32> Color = bHasColor ? std::nullopt : FindColor(InCommand);
	if (Kind != nullptr)
	{
		InOutComment.Kind = Kind->Kind;
		bHasKind = true;
	}
	else if (Size != nullptr)
	{
		InOutComment.FontSize = Size->Points;
		bHasSize = true;
	}
	else if (Color)
	{
		InOutComment.Color = *Color;
		bHasColor = true;
	}
}

std::string_view FindChatSkip(std::string_view InText, const FChatCommands& InCommands, bool bInDeleted)
{
	if (bInDeleted)
	{
		return "deleted by the service";
	}
	if (InText.starts_with('/'))
	{
		return "service commands";
	}
	return InCommands.IsHidden() ? "hidden by their senders" : "";
}

} // namespace Flitmark
