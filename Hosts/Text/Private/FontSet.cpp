#include "FontSet.h"

#include <algorithm>

namespace Flitmark
{

std::unique_ptr<FFontSet> FFontSet::Create(const FTextOptions& InOptions, std::string& OutError)
{
	std::vector<FFontFile> Files = ListFonts(InOptions, OutError);
	if (Files.empty())
	{
		return nullptr;
	}
	std::unique_ptr<FFontSet> Set(new FFontSet);
	FT_Library Library = nullptr;
	if (FT_Init_FreeType(&Library) != 0)
	{
		OutError = "FreeType could not be started";
		return nullptr;
	}
	Set->Library.reset(Library);
	const std::string FirstPath = Files.front().Path;
	Set->Fill(std::move(Files));
	if (Set->Slots.empty())
	{
		OutError =
			"not one font could be read, from " + FirstPath + " on; reinstall a font, for example fonts-noto-core";
		return nullptr;
	}
	return Set;
}

void FFontSet::Fill(std::vector<FFontFile> InFiles)
{
	for (FFontFile& File : InFiles)
	{
		Slots.push_back(std::make_unique<FSlot>());
		Slots.back()->File = std::move(File);
		// The primary font stands in for characters that no font has, so it must load.
		if (Slots.size() == 1 && TryLoad(0) == nullptr)
		{
			Slots.clear();
		}
	}
	if (!Slots.empty() && Slots.back()->File.bColor && TryLoad(Slots.size() - 1) != nullptr)
	{
		Emoji = static_cast<FFontId>(Slots.size() - 1);
	}
}

std::optional<FFontId> FFontSet::FindCovering(std::span<const uint32> InPoints)
{
	for (std::size_t Index = 0; Index < Slots.size(); ++Index)
	{
		const FcCharSet* Coverage = Slots[Index]->File.Coverage.get();
		const auto bHas = [Coverage](uint32 Point)
		{
			return FcCharSetHasChar(Coverage, Point) != FcFalse;
		};
		if (std::all_of(InPoints.begin(), InPoints.end(), bHas) && TryLoad(Index) != nullptr)
		{
			return static_cast<FFontId>(Index);
		}
	}
	return std::nullopt;
}

const FFont* FFontSet::TryLoad(std::size_t InIndex)
{
	FSlot& Slot = *Slots[InIndex];
	std::call_once(Slot.Once,
				   [this, &Slot]
				   {
					   const std::lock_guard Lock(LibraryLock);
					   Slot.Font = FFont::Load(Library.get(), Slot.File);
				   });
	return Slot.Font.get();
}

} // namespace Flitmark
