#include "ToolTip.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <string_view>
#include <vector>

namespace
{

void RemoveAll(std::string& Text, std::string_view Mark)
{
	for (std::size_t At = Text.find(Mark); At != std::string::npos; At = Text.find(Mark, At))
	{
		Text.erase(At, Mark.size());
	}
}

/** Strips the start of a block comment's line: a star and the space after it. */
void RemoveStar(std::string& Line)
{
	const std::size_t Star = Line.find_first_not_of(' ');
	if (Star != std::string::npos && Line[Star] == '*')
	{
		Line.erase(0, Line.compare(Star, 2, "* ") == 0 ? Star + 2 : Star + 1);
	}
}

} // namespace

std::string FormatToolTip(const std::string& Comment)
{
	const auto IsContent = [](char C)
	{
		return static_cast<unsigned char>(C) >= 0x80 || std::isalnum(static_cast<unsigned char>(C));
	};
	if (std::none_of(Comment.begin(), Comment.end(), IsContent))
	{
		return {};
	}
	const bool bBlock = Comment.starts_with("/*");
	std::string Text = Comment;
	std::replace(Text.begin(), Text.end(), '\t', ' ');
	for (const std::string_view Mark :
		 bBlock ? std::vector<std::string_view>{"/**", "/*", "*/"} : std::vector<std::string_view>{"///", "//"})
	{
		RemoveAll(Text, Mark);
	}
	// A block's first line begins after the delimiter, so its indentation does not count.
	Text.erase(0, bBlock ? Text.find_first_not_of(' ') : 0);
	std::vector<std::string> Lines;
	std::size_t Indent = std::string::npos;
	std::istringstream Stream(Text);
	for (std::string Line; std::getline(Stream, Line);)
	{
		Line.erase(Line.find_last_not_of(' ') + 1);
		if (bBlock)
		{
			RemoveStar(Line);
		}
		if (!Line.empty() && (!bBlock || !Lines.empty() || Text.starts_with('\n')))
		{
			Indent = std::min(Indent, Line.find_first_not_of(' '));
		}
		Lines.push_back(Line);
	}
	std::string Result;
	for (const std::string& Line : Lines)
	{
		Result += (&Line == &Lines.front() && bBlock ? Line : Line.substr(std::min(Indent, Line.size()))) + "\n";
	}
	Result.erase(Result.find_last_not_of('\n') + 1);
	return Result.erase(0, Result.find_first_not_of('\n'));
}
