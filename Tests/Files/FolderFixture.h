#pragma once

#include "Files/FileText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace Flitmark
{

namespace fs = std::filesystem;

/** A test with its own folder. */
class FFolderFixture : public testing::Test
{
protected:
	~FFolderFixture() override { fs::remove_all(Folder); }

	/** The file's text, or "(missing)". */
	static std::string Read(const fs::path& InPath)
	{
		std::string Error;
		return LoadBytes(InPath, Error).value_or("(missing)");
	}
	static void WriteText(const fs::path& InPath, const std::string& InText)
	{
		std::ofstream(InPath, std::ios::binary) << InText;
	}
	/** Texts by file name. */
	std::map<std::string, std::string> ReadFolder() const
	{
		std::map<std::string, std::string> Files;
		for (const fs::directory_entry& Entry : fs::directory_iterator(Folder))
		{
			Files[Entry.path().filename().string()] = Read(Entry.path());
		}
		return Files;
	}

	const fs::path Folder = Make();

private:
	static fs::path Make()
	{
		std::string Name = (fs::temp_directory_path() / "flitmark-files-XXXXXX").string();
		return mkdtemp(Name.data());
	}
};

} // namespace Flitmark
