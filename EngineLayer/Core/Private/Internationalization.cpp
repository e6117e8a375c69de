#include "Internationalization/Internationalization.h"

#include "Internationalization/TextLocalizationManager.h"

#include <string_view>

namespace
{

struct FLanguage
{
	std::u16string_view Tag;
	TCHAR GroupSeparator;
};

constexpr FLanguage Languages[] = {{u"en", u','}, {u"zh", u','}, {u"ja", u','}};

} // namespace

FInternationalization& FInternationalization::Get()
{
	static FInternationalization Internationalization;
	return Internationalization;
}

bool FInternationalization::SetCurrentCulture(const FString& InCultureName)
{
	const std::u16string_view Name = InCultureName.GetStd();
	for (const FLanguage& Language : Languages)
	{
		if (Name.substr(0, Name.find(u'-')) == Language.Tag)
		{
			CultureName = InCultureName;
			GroupSeparator = Language.GroupSeparator;
			FTextLocalizationManager::Get().OnCultureChanged();
			return true;
		}
	}
	return false;
}

FTextLocalizationManager& FTextLocalizationManager::Get()
{
	static FTextLocalizationManager Manager;
	return Manager;
}

void FTextLocalizationManager::RegisterPolyglotTextData(const FPolyglotTextData& InPolyglotTextData)
{
	Texts.insert_or_assign({InPolyglotTextData.GetNamespace().GetStd(), InPolyglotTextData.GetKey().GetStd()},
						   InPolyglotTextData);
	++TextRevision;
}

const FString* FTextLocalizationManager::FindDisplayString(const FString& InNamespace, const FString& InKey,
														   const FString& InSource) const
{
	const auto Found = Texts.find({InNamespace.GetStd(), InKey.GetStd()});
	if (Found == Texts.end() || !Found->second.GetNativeString().Equals(InSource))
	{
		return nullptr;
	}
	const auto& Strings = Found->second.GetLocalizedStrings();
	std::u16string Culture = FInternationalization::Get().GetCurrentCultureName().GetStd();
	for (;;)
	{
		if (const auto String = Strings.find(Culture); String != Strings.end())
		{
			return &String->second;
		}
		const std::size_t Parent = Culture.rfind(u'-');
		if (Parent == std::u16string::npos)
		{
			return nullptr;
		}
		Culture.resize(Parent);
	}
}
