#pragma once

#include "CoreMinimal.h"
#include "FlitmarkComment.h"

#include "FlitmarkViewerComment.generated.h"

/** The viewer's own comment. It looks like any other, and is a class of its own so that a game can tell it apart. */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Viewer Comment"))
class FLITMARKWIDGETS_API UFlitmarkViewerComment : public UFlitmarkComment
{
	GENERATED_BODY()
};
