#pragma once

#include "SaveGameSystem.h"

#include <map>
#include <string>
#include <utility>

namespace Flitmark
{

/** Save slots that are gone with it. */
class FMemorySlots final : public ISaveGameSystem
{
public:
	bool DoesSaveGameExist(const TCHAR* InName, const int32 InUserIndex) override
	{
		return Slots.contains({InName, InUserIndex});
	}
	bool SaveGame(const TCHAR* InName, const int32 InUserIndex, const TArray<uint8>& InData) override
	{
		Slots[{InName, InUserIndex}] = InData;
		return true;
	}
	bool LoadGame(const TCHAR* InName, const int32 InUserIndex, TArray<uint8>& OutData) override
	{
		const auto Found = Slots.find({InName, InUserIndex});
		if (Found == Slots.end())
		{
			return false;
		}
		OutData = Found->second;
		return true;
	}

private:
	std::map<std::pair<std::basic_string<TCHAR>, int32>, TArray<uint8>> Slots;
};

} // namespace Flitmark
