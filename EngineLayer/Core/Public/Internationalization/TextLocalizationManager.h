#pragma once

#include "Internationalization/PolyglotTextData.h"

#include <map>
#include <string>
#include <utility>

/** The translations that a host registered. Game thread. */
class ENGINELAYER_API FTextLocalizationManager
{
public:
	static FTextLocalizationManager& Get();

	/** Replaces an earlier registration of the same namespace and key. Existing texts pick it up. */
	void RegisterPolyglotTextData(const FPolyglotTextData& InPolyglotTextData);

	/**
	 * The text's string in the current culture, or else in the nearest culture above it; null if there is none, or if
	 * the translation was made from a source text other than InSource.
	 */
	const FString* FindDisplayString(const FString& InNamespace, const FString& InKey, const FString& InSource) const;

	/** Grows whenever texts may read differently from before. */
	uint32 GetTextRevision() const { return TextRevision; }
	void OnCultureChanged() { ++TextRevision; }

private:
	std::map<std::pair<std::u16string, std::u16string>, FPolyglotTextData> Texts;
	uint32 TextRevision = 1;
};
