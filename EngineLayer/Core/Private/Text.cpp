#include "Internationalization/Text.h"

#include "Internationalization/Internationalization.h"
#include "Internationalization/TextLocalizationManager.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace
{

/** Unicode's White_Space property; it has no characters beyond the first plane. */
constexpr bool IsWhitespace(TCHAR Character)
{
	return (Character >= 0x0009 && Character <= 0x000D) || Character == 0x0020 || Character == 0x0085 ||
		   Character == 0x00A0 || Character == 0x1680 || (Character >= 0x2000 && Character <= 0x200A) ||
		   Character == 0x2028 || Character == 0x2029 || Character == 0x202F || Character == 0x205F ||
		   Character == 0x3000;
}

class FPlainText final : public ITextData
{
public:
	explicit FPlainText(FString&& InString)
		: String(std::move(InString))
	{
	}

	const FString& GetDisplayString() override { return String; }

private:
	FString String;
};

/** A string that depends on the culture; rebuilt on demand after the culture changes. */
class FCultureText : public ITextData
{
public:
	const FString& GetDisplayString() override
	{
		const uint32 Present = FTextLocalizationManager::Get().GetTextRevision();
		if (Revision != Present)
		{
			String = Build();
			Revision = Present;
		}
		return String;
	}

private:
	virtual FString Build() const = 0;

	FString String;
	/** The manager's revision is never 0. */
	uint32 Revision = 0;
};

class FLocalizableText final : public FCultureText
{
public:
	FLocalizableText(const TCHAR* InNamespace, const TCHAR* InKey, const TCHAR* InSource)
		: Namespace(InNamespace)
		, Key(InKey)
		, Source(InSource)
	{
	}

private:
	FString Build() const override
	{
		const FString* Translation = FTextLocalizationManager::Get().FindDisplayString(Namespace, Key, Source);
		return Translation != nullptr ? *Translation : Source;
	}

	FString Namespace;
	FString Key;
	FString Source;
};

class FNumberText final : public FCultureText
{
public:
	explicit FNumberText(int64 InValue)
		: Value(InValue)
	{
	}

private:
	FString Build() const override
	{
		constexpr std::ptrdiff_t GroupSize = 3;
		char Digits[24];
		const char* End = std::to_chars(std::begin(Digits), std::end(Digits), Value).ptr;
		FString Result;
		for (const char* Each = Digits; Each != End; ++Each)
		{
			if (Each != Digits && Each[-1] != '-' && (End - Each) % GroupSize == 0)
			{
				Result += FInternationalization::Get().GetGroupSeparator();
			}
			Result += static_cast<TCHAR>(*Each);
		}
		return Result;
	}

	int64 Value;
};

/**
 * The argument that "{12}" at the start of Pattern refers to, and where the pattern continues; null for anything else.
 */
const FText* ReadArgument(std::u16string_view Pattern, const FFormatOrderedArguments& Arguments, std::size_t& OutLength)
{
	const std::size_t Close = Pattern.find(u'}');
	if (Close == std::u16string_view::npos || Close < 2)
	{
		return nullptr;
	}
	int32 Place = 0;
	for (const TCHAR Digit : Pattern.substr(1, Close - 1))
	{
		if (Digit < u'0' || Digit > u'9' || Place >= Arguments.Num())
		{
			return nullptr;
		}
		Place = Place * 10 + (Digit - u'0');
	}
	OutLength = Close + 1;
	return Arguments.IsValidIndex(Place) ? &Arguments[Place].GetTextValue() : nullptr;
}

class FFormattedText final : public FCultureText
{
public:
	FFormattedText(const FTextFormat& InFormat, const FFormatOrderedArguments& InArguments)
		: Format(InFormat)
		, Arguments(InArguments)
	{
	}

private:
	FString Build() const override
	{
		std::u16string_view Rest = Format.GetSourceText().ToString().GetStd();
		FString Result;
		while (!Rest.empty())
		{
			std::size_t Length = 1;
			const bool bEscaped = Rest.size() > 1 && Rest[0] == u'`' &&
								  std::u16string_view(u"`{}").find(Rest[1]) != std::u16string_view::npos;
			const FText* Argument = Rest[0] == u'{' ? ReadArgument(Rest, Arguments, Length) : nullptr;
			if (Argument != nullptr)
			{
				Result += Argument->ToString();
			}
			else
			{
				Length = bEscaped ? 2 : 1;
				Result += Rest[Length - 1];
			}
			Rest.remove_prefix(Length);
		}
		return Result;
	}

	FTextFormat Format;
	FFormatOrderedArguments Arguments;
};

} // namespace

FText FText::FromString(FString&& InString)
{
	return FText(std::make_shared<FPlainText>(std::move(InString)));
}

FText FText::AsLocalizable_Advanced(const TCHAR* InNamespace, const TCHAR* InKey, const TCHAR* InString)
{
	return FText(std::make_shared<FLocalizableText>(InNamespace, InKey, InString));
}

FText FText::AsNumber(int64 Val)
{
	return FText(std::make_shared<FNumberText>(Val));
}

FText FText::Format(FTextFormat Fmt, const FFormatOrderedArguments& InArguments)
{
	return FText(std::make_shared<FFormattedText>(Fmt, InArguments));
}

const FString& FText::ToString() const
{
	static const FString Empty;
	return Data ? Data->GetDisplayString() : Empty;
}

bool FText::IsEmptyOrWhitespace() const
{
	return std::ranges::all_of(ToString().GetStd(), IsWhitespace);
}
