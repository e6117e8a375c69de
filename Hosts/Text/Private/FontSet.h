#pragma once

#include "CoreTypes.h"
#include "Font.h"
#include "Text/TextEngine.h"

#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Flitmark
{

/** A font's position in the fallback order. */
using FFontId = uint16;

/** The fonts of an engine, loaded on demand. Thread-safe. */
class FFontSet
{
public:
	/** Null with OutError set if no font can be loaded. */
	static std::unique_ptr<FFontSet> Create(const FTextOptions& InOptions, std::string& OutError);

	/** The first font that has all the characters; nothing if none has. */
	std::optional<FFontId> FindCovering(std::span<const uint32> InPoints);

	/** An ID returned by FindCovering, Primary, or Emoji. */
	const FFont& Get(FFontId InId) { return *TryLoad(InId); }

	static constexpr FFontId Primary = 0;
	std::optional<FFontId> GetEmoji() const { return Emoji; }
	const std::string& GetPrimaryFamily() const { return Slots.front()->File.Family; }
	FT_Library GetLibrary() const { return Library.get(); }

private:
	struct FSlot
	{
		FFontFile File;
		std::once_flag Once;
		std::unique_ptr<FFont> Font;
	};

	FFontSet() = default;
	const FFont* TryLoad(std::size_t InIndex);
	void Fill(std::vector<FFontFile> InFiles);

	FFtLibraryPtr Library;
	std::mutex LibraryLock;
	std::vector<std::unique_ptr<FSlot>> Slots;
	std::optional<FFontId> Emoji;
};

} // namespace Flitmark
