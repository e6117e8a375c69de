#pragma once

#include "CoreMinimal.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

class IModuleInterface;

namespace Flitmark
{

/** What a package announced, in words: for a person to hold against a widget blueprint, and for programs. */
struct FModuleListing
{
	using FMetaDataMap = std::map<std::string, FString, std::less<>>;

	struct FPropertyEntry
	{
		std::string Name;
		/** As it is written in C++. */
		std::string Type;
		/**
		 * "bound widget" (", optional"), "event", "editable anywhere", "editable on defaults only" or "reflected only"; empty for a
		 * parameter.
		 */
		std::string Kind;
		/** Of an editable number, on the class's defaults. */
		std::optional<int32> Default;
		/** For a parameter: declared as a constant reference. */
		bool bConstReference = false;
		std::vector<std::string> Flags;
		FMetaDataMap MetaData;
	};

	struct FFunctionEntry
	{
		std::string Name;
		/** Type of what it returns; empty for nothing. */
		std::string Result;
		std::vector<std::string> Flags;
		std::vector<FPropertyEntry> Parameters;
		FMetaDataMap MetaData;
	};

	struct FClassEntry
	{
		std::string Name;
		std::string Base;
		std::vector<std::string> Flags;
		std::vector<FPropertyEntry> Properties;
		std::vector<FFunctionEntry> Functions;
		FMetaDataMap MetaData;
	};

	struct FEnumEntry
	{
		std::string Name;
		std::string UnderlyingType;
		std::vector<std::pair<std::string, int64>> Enumerators;
		FMetaDataMap MetaData;
	};

	std::string Module;
	std::string Package;
	bool bSupportsDynamicReloading = false;
	bool bSupportsAutomaticShutdown = false;
	bool bGameModule = false;
	std::vector<FClassEntry> Classes;
	std::vector<FEnumEntry> Enums;
	std::vector<FFunctionEntry> Delegates;

	/** Lists a loaded module's package. */
	static FModuleListing Make(const std::string& InModule, IModuleInterface& InInterface);

	/** For a person; without a member's place in memory, so that it is the same everywhere. */
	std::string ToText() const;
	/** ReadyMade: listed inside as "ready_made"; may be null. */
	std::string ToJson(const FModuleListing* ReadyMade) const;
};

} // namespace Flitmark
