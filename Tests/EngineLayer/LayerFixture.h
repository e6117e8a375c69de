#pragma once

#include "Blueprint/WidgetTeardown.h"
#include "Components/CanvasPanel.h"
#include "TestClasses.h"

#include <gtest/gtest.h>

using FLog = std::vector<std::string>;

/** A fresh world; when it is destroyed, nothing that the test made is left. */
class FLayerFixture : public testing::Test, public FGCObject
{
protected:
	FLayerFixture()
		: World(Keep(NewObject<UWorld>()))
	{
		LayerTest::TakeLog();
	}

	/** Keeps the object alive until the test ends or releases it. */
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

	/** Before the test's members are destroyed: a widget blueprint must outlive its widgets. */
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
