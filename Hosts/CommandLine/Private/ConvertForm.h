#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/** What convert can write. */
enum class EConvertForm
{
	/** Our own document. */
	Json,
	/** An XML list. */
	Xml,
	/** Subtitles. */
	Ass
};

/** "json", "xml" or "ass"; empty for anything else. */
std::optional<EConvertForm> ParseForm(std::string_view InName);

/** By a file name's ending, in any case; empty with OutError set where that is none of the known ones. */
std::optional<EConvertForm> FindForm(const std::string& InPath, std::string& OutError);

} // namespace Flitmark
