#pragma once

#include "CoreMinimal.h"
#include "FlitmarkComment.h"

#include "FlitmarkViewerComment.generated.h"

/** The viewer's own comment. It looks like any other, but has its own class so that a game can tell it apart. */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Viewer Comment"))
class FLITMARKWIDGETS_API UFlitmarkViewerComment : public UFlitmarkComment
{
	GENERATED_BODY()
};
