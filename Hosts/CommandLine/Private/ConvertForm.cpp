#include "ConvertForm.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace Flitmark
{

std::optional<EConvertForm> ParseForm(std::string_view InName)
{
	constexpr std::pair<std::string_view, EConvertForm> Forms[] = {
		{"json", EConvertForm::Json}, {"xml", EConvertForm::Xml}, {"ass", EConvertForm::Ass}};
	const auto* const Found = std::ranges::find(Forms, InName, &std::pair<std::string_view, EConvertForm>::first);
	return Found != std::end(Forms) ? std::optional(Found->second) : std::nullopt;
}

std::optional<EConvertForm> FindForm(const std::string& InPath, std::string& OutError)
{
	std::string Ending = std::filesystem::path(InPath).extension().string();
	std::ranges::transform(Ending, Ending.begin(),
						   [](char InLetter) {
							   return InLetter >= 'A' && InLetter <= 'Z' ? static_cast<char>(InLetter | 0x20)
																		 : InLetter;
						   });
	const std::optional<EConvertForm> Form = ParseForm(std::string_view(Ending).substr(Ending.empty() ? 0 : 1));
	if (!Form)
	{
		const std::string Fault = Ending.size() > 1 ? "ends in " + Ending + ", which is not known" : "has no ending";
		OutError = InPath + " " + Fault +
				   "; known are .json (our own document), .xml (XML list), and .ass (subtitles), and --to says it for "
				   "any other name";
	}
	return Form;
}

} // namespace Flitmark
