#pragma once

#include "Comments/CommentsInput.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

namespace Flitmark
{

/** The options of every command that reads comments. */
struct FCommentArguments
{
	std::string Reverse = "scroll";
	std::string Positioned = "text";
	std::string Paid = "text";
	std::vector<std::string> Block;
	std::vector<std::string> BlockUsers;
	std::vector<std::string> BlockFiles;
	std::string Only;
	bool bNoScroll = false;
	bool bNoTop = false;
	bool bNoBottom = false;
	std::string Merge;
	std::string MaxPerSecond;
};

/** Adds the options for other formats and the filters. */
void AddCommentOptions(CLI::App& InCommand, FCommentArguments& InOutArguments);

/** The same options parsed, with the filter they make up. */
struct FCommentSettings
{
	FCommentsOptions Options;
	/** Null where no filter is asked for. */
	std::unique_ptr<FCommentFilter> Filter;

	/** Empty with OutError set where a filter is wrong, which the options' own checks mostly catch. */
	static std::optional<FCommentSettings> Make(const FCommentArguments& InArguments, std::string& OutError);
};

/** LoadComments, with its notes printed on standard error. */
std::optional<FCommentsFile> LoadCommentsAloud(const std::string& InPath, const FCommentArguments& InArguments,
											   std::string& OutError);

} // namespace Flitmark
