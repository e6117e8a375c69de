#include "BatchFiles.h"

#include "Formats/CommentFormat.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

namespace Flitmark
{

namespace
{

namespace fs = std::filesystem;

/** What is to be opened as a video; by content, FFmpeg takes texts and pictures for videos too. */
constexpr std::string_view VideoEndings[] = {".3gp", ".asf", ".avi", ".f4v", ".flv",  ".gif",  ".m2ts",
											 ".m4v", ".mkv", ".mov", ".mp4", ".mpeg", ".mpg",  ".mts",
											 ".mxf", ".ogm", ".ogv", ".ts",	 ".vob",  ".webm", ".wmv"};

bool IsVideo(const fs::path& InPath)
{
	std::string Ending = InPath.extension().string();
	std::ranges::transform(Ending, Ending.begin(),
						   [](unsigned char InLetter) { return static_cast<char>(std::tolower(InLetter)); });
	return std::ranges::find(VideoEndings, Ending) != std::end(VideoEndings);
}

/** Plain files in order of their names; hidden ones are not meant. */
std::optional<std::vector<fs::path>> ListFiles(const fs::path& InFolder, std::string& OutError)
{
	std::vector<fs::path> Files;
	std::error_code Error;
	for (fs::directory_iterator Each(InFolder, Error); !Error && Each != fs::directory_iterator();
		 Each.increment(Error))
	{
		std::error_code Ignored;
		if (Each->is_regular_file(Ignored) && !Each->path().filename().string().starts_with('.'))
		{
			Files.push_back(Each->path());
		}
	}
	if (Error)
	{
		OutError = InFolder.string() + ": cannot be read as a folder: " + Error.message();
		return std::nullopt;
	}
	std::ranges::sort(Files);
	return Files;
}

/** How many words a file's name has beyond a video's: 0 for "film.xml", 1 for "film.ja.xml"; empty for others. */
std::optional<int> CountWordsMore(const fs::path& InFile, const fs::path& InVideo)
{
	const std::string Stem = InFile.stem().string();
	const std::string Wanted = InVideo.stem().string();
	if (Stem == Wanted)
	{
		return 0;
	}
	const bool bWord = Stem.starts_with(Wanted + '.') && Stem.find('.', Wanted.size() + 1) == std::string::npos;
	return bWord ? std::optional(1) : std::nullopt;
}

FBatchPair FindComments(const fs::path& InVideo, const std::vector<fs::path>& InComments)
{
	FBatchPair Pair{InVideo, {}, {}};
	for (const int Words : {0, 1})
	{
		for (const fs::path& File : InComments)
		{
			if (CountWordsMore(File, InVideo) != Words)
			{
				continue;
			}
			Pair.Confusion += (Pair.Confusion.empty() ? "" : ", ") + File.filename().string();
			Pair.Comments = Pair.Comments.empty() ? File : Pair.Comments;
		}
		if (!Pair.Comments.empty())
		{
			break;
		}
	}
	if (Pair.Confusion == Pair.Comments.filename().string())
	{
		Pair.Confusion.clear();
	}
	return Pair;
}

} // namespace

std::optional<std::vector<FBatchPair>> PairVideos(const fs::path& InFolder, std::string& OutError)
{
	const auto Files = ListFiles(InFolder, OutError);
	const auto Comments = Files ? ListComments(InFolder, OutError) : std::nullopt;
	if (!Comments)
	{
		return std::nullopt;
	}
	std::vector<FBatchPair> Pairs;
	for (const fs::path& File : *Files)
	{
		if (IsVideo(File))
		{
			Pairs.push_back(FindComments(File, *Comments));
		}
	}
	return Pairs;
}

std::optional<std::vector<fs::path>> ListComments(const fs::path& InFolder, std::string& OutError)
{
	auto Files = ListFiles(InFolder, OutError);
	if (Files)
	{
		std::erase_if(*Files, [](const fs::path& In) { return IsVideo(In) || DetectFile(In) == nullptr; });
	}
	return Files;
}

} // namespace Flitmark
