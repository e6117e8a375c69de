#pragma once

#include "Blueprint/WidgetTeardown.h"
#include "Components/CanvasPanel.h"
#include "TestClasses.h"

#include <gtest/gtest.h>

using FLog = std::vector<std::string>;

/** A world of its own; at its end nothing is left of what the test made. */
class FLayerFixture : public testing::Test, public FGCObject
{
protected:
	FLayerFixture()
		: World(Keep(NewObject<UWorld>()))
	{
		LayerTest::TakeLog();
	}

	/** Keeps the object alive until the test's end or its release. */
	template <class T>
	T* Keep(T* Object)
	{
		KeptObjects.push_back(Object);
		return Object;
	}
	void Release(UObject* Object) { std::erase(KeptObjects, Object); }

	template <class T>
	T* MakeKept(const TCHAR* Name)
	{
		return Keep(NewObject<T>(World, T::StaticClass(), Name));
	}

	/** Before the test's members go: a widget blueprint must outlive its widgets. */
	void TearDown() override
	{
		KeptObjects.clear();
		CollectGarbage();
	}

private:
	void AddReferencedObjects(FReferenceCollector& Collector) override
	{
		for (UObject* Each : KeptObjects)
		{
			Collector.AddReferencedObject(Each);
		}
	}

	std::vector<UObject*> KeptObjects;

protected:
	UWorld* World;
};
