#pragma once

#include "Internationalization/PolyglotTextData.h"

#include <map>
#include <string>
#include <utility>

/** The translations that a host brought. Game thread. */
class ENGINELAYER_API FTextLocalizationManager
{
public:
	static FTextLocalizationManager& Get();

	/** Takes the place of an earlier registration of the same namespace and key. Texts already made take it up. */
	void RegisterPolyglotTextData(const FPolyglotTextData& InPolyglotTextData);

	/**
	 * The text's string in the present culture, or else in the nearest culture above it; null without one, and where
	 * another source text was translated than InSource.
	 */
	const FString* FindDisplayString(const FString& InNamespace, const FString& InKey, const FString& InSource) const;

	/** Grows whenever texts may read differently from before. */
	uint32 GetTextRevision() const { return TextRevision; }
	void OnCultureChanged() { ++TextRevision; }

private:
	std::map<std::pair<std::u16string, std::u16string>, FPolyglotTextData> Texts;
	uint32 TextRevision = 1;
};
