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

/** What every command that reads comments is told about them. */
struct FCommentArguments
{
	std::string Reverse = "scroll";
	std::string Positioned = "text";
	std::vector<std::string> Block;
	std::vector<std::string> BlockUsers;
	std::string Only;
	std::string Merge;
	std::string MaxPerSecond;
};

/** Adds the options of other formats and the filters. */
void AddCommentOptions(CLI::App& InCommand, FCommentArguments& InOutArguments);

/** The options as they are used, with the filter that they name. */
struct FCommentSettings
{
	FCommentsOptions Options;
	/** Null where no filter is asked for. */
	std::unique_ptr<FCommentFilter> Filter;

	/** Empty with OutError set where a filter is not understood; the command line's checks leave little of that. */
	static std::optional<FCommentSettings> Make(const FCommentArguments& InArguments, std::string& OutError);
};

/** LoadComments, with what it has to tell on standard error. */
std::optional<FCommentsFile> LoadCommentsAloud(const std::string& InPath, const FCommentArguments& InArguments,
											   std::string& OutError);

} // namespace Flitmark
