#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/ObjectPtr.h"

#include "DanmakuDataStruct.generated.h"

class UObject;

/** How and where a comment is shown. A record may hold any other 32-bit value; such a comment is not shown. */
UENUM()
enum class EDanmakuMode : int32
{
	/** Moves from right to left through the scroll lanes. */
	SCROLL,
	/** Stands in the lanes at the top. */
	TOP,
	/** Stands in the lanes at the bottom. */
	BOTTOM,
	/** Has its own lane group, which placement does not serve. */
	REVERSE
};

/** One comment: a plain value, copied wherever it is passed on. */
struct FLITMARK_API FDanmakuData
{
	int32 DanmakuID = 0;

	/** The post that the comment belongs to. */
	int32 PostID = 0;

	/** The author. */
	int32 UserID = 0;

	FString UserDisplayName;

	FDateTime PostDate = FDateTime(0);

	/** Media time at which the comment is due, in ticks of 100 ns. */
	FTimespan SpawnTime = FTimespan(0);

	/** The text as it is shown. */
	FString Content;

	EDanmakuMode Mode = EDanmakuMode::SCROLL;

	/** Points. */
	int32 FontSize = 0;

	/** "#" and hexadecimal digits: RRGGBB or RRGGBBAA. */
	FString FontColor;
};

/** A lane group's data, for host code; the module itself creates none. */
struct FLITMARK_API FDanmakuTrackData
{
	/** Free for the host's use. */
	int32 UserData[4] = {0, 0, 0, 0};

	/** The group's lanes. */
	TArray<TObjectPtr<UObject>> Tracks;

	/** Percentage of the canvas height, 0 to 100. */
	int32 Area = 75;

	/** How many lanes the group has. */
	int32 TrackNum = 0;
};
