#pragma once

#include "UObject/Object.h"

/** What a widget is painted with; without a resource, a plain area. */
struct FSlateBrush
{
	UObject* GetResourceObject() const { return ResourceObject; }
	void SetResourceObject(UObject* InResourceObject) { ResourceObject = InResourceObject; }

private:
	TObjectPtr<UObject> ResourceObject;
};
