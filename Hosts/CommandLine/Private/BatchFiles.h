#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** A video and the comments beside it. */
struct FBatchPair
{
	std::filesystem::path Video;

	/** Empty where there is no such file. */
	std::filesystem::path Comments;

	/** Set where there are several: which. */
	std::string Confusion;
};

/**
 * The videos of a folder (by their extension), in order of their names, each with the file of comments that has its name up
 * to the extension, or else up to another word ("film.ja.xml"). Comments are known by their content. Empty with OutError
 * set where the folder cannot be read.
 */
std::optional<std::vector<FBatchPair>> PairVideos(const std::filesystem::path& InFolder, std::string& OutError);

/** A folder's files of comments, known by their content, in order of their names; empty with OutError set as above. */
std::optional<std::vector<std::filesystem::path>> ListComments(const std::filesystem::path& InFolder,
															   std::string& OutError);

} // namespace Flitmark
