#pragma once

#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Containers/UnrealString.h"
#include "Dom/JsonValue.h"
#include "Misc/DateTime.h"
#include "Misc/Timespan.h"

#include <string>

/** What a comment becomes, of the size of the module's record. */
struct FRecord
{
	int32 DanmakuID = 0;
	int32 PostID = 0;
	int32 UserID = 0;
	FString UserDisplayName;
	FDateTime PostDate;
	FTimespan SpawnTime;
	FString Content;
	int32 Mode = 0;
	int32 FontSize = 0;
	FString FontColor;
};

using FSchedule = TMap<FTimespan, TArray<FRecord>>;

// The stages of loading, as a host and the module take them.
FString ToString(const std::string& Bytes);
TSharedPtr<FJsonValue> Parse(const FString& Text);
FSchedule FileRecords(const TSharedPtr<FJsonValue>& Root);
