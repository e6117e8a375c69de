#include "ChatCommands.h"

#include "Formats/FieldValues.h"

#include <algorithm>
#include <iterator>

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
	{"white", 0xFFFFFF},	   {"red", 0xFF0000},		{"pink", 0xFF8080},		  {"orange", 0xFFC000},
	{"yellow", 0xFFFF00},	   {"green", 0x00FF00},		{"cyan", 0x00FFFF},		  {"blue", 0x0000FF},
	{"purple", 0xC000FF},	   {"black", 0x000000},		{"white2", 0xCCCC99},	  {"red2", 0xCC0033},
	{"truered", 0xCC0033},	   {"pink2", 0xFF33CC},		{"orange2", 0xFF6600},	  {"passionorange", 0xFF6600},
	{"yellow2", 0x999900},	   {"madyellow", 0x999900}, {"green2", 0x00CC66},	  {"elementalgreen", 0x00CC66},
	{"cyan2", 0x00CCCC},	   {"blue2", 0x3399FF},		{"marineblue", 0x3399FF}, {"purple2", 0x6633CC},
	{"nobleviolet", 0x6633CC}, {"black2", 0x666666},
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

void ApplyCommand(std::string_view InCommand, FServiceComment& InOutComment)
{
	if (const FNamedKind* const Kind = Find(Kinds, InCommand))
	{
		InOutComment.Kind = Kind->Kind;
	}
	else if (const FNamedSize* const Size = Find(Sizes, InCommand))
	{
		InOutComment.FontSize = Size->Points;
	}
	else if (const FNamedColor* const Color = Find(Colors, InCommand))
	{
		InOutComment.Color = Color->Rgb << 8 | 0xFF;
	}
	else if (InCommand.starts_with('#'))
	{
		InOutComment.Color = ParseColor(InCommand).value_or(InOutComment.Color);
	}
}

} // namespace

void ApplyChatCommands(std::string_view InCommands, FServiceComment& InOutComment)
{
	constexpr std::string_view Blanks = " \t\r\n";
	while (!InCommands.empty())
	{
		const std::size_t Begin = std::min(InCommands.find_first_not_of(Blanks), InCommands.size());
		const std::size_t End = std::min(InCommands.find_first_of(Blanks, Begin), InCommands.size());
		ApplyCommand(InCommands.substr(Begin, End - Begin), InOutComment);
		InCommands.remove_prefix(End);
	}
}

} // namespace Flitmark
