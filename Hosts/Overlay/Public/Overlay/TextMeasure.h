#pragma once

#include "Fonts/FontMeasure.h"
#include "Text/TextEngine.h"

#include <memory>
#include <string>

namespace Flitmark
{

/**
 * Measures the widgets' texts with real fonts. Canvas units are the text engine's units; family and outline are the
 * engine's own, only the font's size is asked for.
 */
class FTextMeasure final : public FSlateFontMeasure
{
public:
	/** Null with OutError set where no font can be found at all. */
	static std::unique_ptr<FTextMeasure> Create(const FTextOptions& InOptions, std::string& OutError);

	FVector2D Measure(const FString& InText, const FSlateFontInfo& InFont) override;

	FTextEngine& GetEngine() const { return *Engine; }

private:
	explicit FTextMeasure(std::unique_ptr<FTextEngine> InEngine)
		: Engine(std::move(InEngine))
	{
	}

	std::unique_ptr<FTextEngine> Engine;
};

} // namespace Flitmark
