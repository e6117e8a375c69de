#pragma once

#include "CoreMinimal.h"
#include "Delegates/SingleDelegate.h"
#include "Engine/EngineTypes.h"

#include <unordered_map>
#include <vector>

using FTimerDelegate = FSimpleDelegate;

/**
 * A world's timers. A timer adds up the frame times since it was set, in double, and fires in the first frame in which
 * the sum is not less than its delay. Timers due in the same frame fire in the order in which they were set.
 */
class ENGINELAYER_API FTimerManager
{
public:
	/**
	 * Sets a timer on a handle, replacing any that it held. InRate: seconds; 0 or less sets none. InFirstDelay: seconds
	 * to the first call; if negative, the rate.
	 */
	template <class UserClass>
	void SetTimer(FTimerHandle& InOutHandle, UserClass* InObj, void (UserClass::*InTimerMethod)(), float InRate,
				  bool InbLoop = false, float InFirstDelay = -1.f)
	{
		SetTimer(InOutHandle, FTimerDelegate::CreateUObject(InObj, InTimerMethod), InRate, InbLoop, InFirstDelay);
	}
	void SetTimer(FTimerHandle& InOutHandle, const FTimerDelegate& InDelegate, float InRate, bool InbLoop,
				  float InFirstDelay = -1.f);

	/** Cancels the handle's timer, if there is one, and invalidates the handle. */
	void ClearTimer(FTimerHandle& InHandle);
	bool TimerExists(FTimerHandle InHandle) const;

	/** Cancels every timer bound to the object. */
	template <class UserClass>
	void ClearAllTimersForObject(const UserClass* Object)
	{
		InternalClearAllTimers(Object);
	}

	/** One frame. DeltaTime: seconds. Timers set in a callback start with the next frame. */
	void Tick(float DeltaTime);

	/** How many timers are set; for tests and statistics. */
	int32 Num() const { return NumAlive; }

private:
	struct FTimer
	{
		uint64 Id = 0;
		/** Seconds since it was set or last fired. */
		double Elapsed = 0.0;
		double Delay = 0.0;
		double Rate = 0.0;
		bool bLoop = false;
		/** Canceled, and still to be removed from the list. */
		bool bCleared = false;
		const void* Owner = nullptr;
		FTimerDelegate Delegate;
	};

	void InternalClearAllTimers(const void* Object);
	void Clear(FTimer& Timer);
	void Fire(std::size_t Index);
	FTimer* Find(FTimerHandle InHandle);
	void DropCleared();

	/** By ascending id. */
	std::vector<FTimer> Timers;
	/** An owner's timers, by id. */
	std::unordered_multimap<const void*, uint64> ByOwner;
	uint64 LastId = 0;
	int32 NumAlive = 0;
	bool bTicking = false;
};
