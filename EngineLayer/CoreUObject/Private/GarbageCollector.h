#pragma once

#include "UObject/Object.h"

#include <vector>

/** One collection: mark from the roots, then destroy what was not reached. */
class FGarbageCollector final : public FReferenceCollector
{
public:
	void Collect(EObjectFlags KeepFlags);
	void AddReferencedObject(UObject* Object) override;

	/** Frees an object whose destruction has begun. */
	static void Free(UObject* Object);

private:
	void MarkRoots(EObjectFlags KeepFlags);
	void FollowReferences();
	void Follow(UObject& Object);
	static std::vector<UObject*> TakeUnreached();

	std::vector<UObject*> Pending;
};
