#pragma once

#include "CoreMinimal.h"
#include "Engine/EngineTypes.h"
#include "UObject/Object.h"

#include "DanmakuTrack.generated.h"

class UUI_DanmakuNode;

/**
 * One horizontal lane of the canvas, one pitch high and never drawn. It lists the comments that occupy it, decides
 * whether a new comment may enter, and forgets a comment that ends or is torn down. A comment taller than a lane
 * occupies several. Game thread only.
 */
UCLASS()
class FLITMARK_API UDanmakuTrack : public UObject
{
	GENERATED_BODY()

public:
	UDanmakuTrack();

	/** Adds the comment as the lane's last. The caller has made sure that it may enter. */
	void AddNode(UUI_DanmakuNode* Node);

	/** Forgets the comment. */
	void RemoveNode(UUI_DanmakuNode* Node);

	/** Whether the comment, already on the canvas, may enter now. Never for a mode that has no lanes. */
	bool CanAddNode(const UUI_DanmakuNode* Node) const;

	/** Pauses every listed comment. */
	void Pause();

	/** Resumes every listed comment. */
	void Resume();

	/** Removes every listed comment from the canvas and forgets it. */
	void Empty();

protected:
	virtual void BeginDestroy() override;

private:
	/** Whether the newcomer cannot catch up with the lane's last comment before that one is out of view. */
	bool CanAddScrollNode(const UUI_DanmakuNode* Node) const;
	bool CanAddTopNode(const UUI_DanmakuNode* Node) const;
	bool CanAddBottomNode(const UUI_DanmakuNode* Node) const;

	UFUNCTION()
	void OnNodeEnded(UUI_DanmakuNode* Node);

	UFUNCTION()
	void OnTick();

	UPROPERTY()
	TArray<TObjectPtr<UUI_DanmakuNode>> Nodes;

	FTimerHandle TimerHandle;
};
