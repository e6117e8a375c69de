#include "TimerManager.h"

#include <algorithm>

FTimerManager::FTimer* FTimerManager::Find(FTimerHandle InHandle)
{
	const auto Found = std::ranges::lower_bound(Timers, InHandle.Id, {}, &FTimer::Id);
	return Found != Timers.end() && Found->Id == InHandle.Id && !Found->bCleared ? &*Found : nullptr;
}

void FTimerManager::SetTimer(FTimerHandle& InOutHandle, const FTimerDelegate& InDelegate, float InRate, bool InbLoop,
							 float InFirstDelay)
{
	ClearTimer(InOutHandle);
	if (!(InRate > 0.f))
	{
		return;
	}
	FTimer& Timer = Timers.emplace_back();
	Timer.Id = ++LastId;
	Timer.Rate = static_cast<double>(InRate);
	Timer.Delay = InFirstDelay >= 0.f ? static_cast<double>(InFirstDelay) : Timer.Rate;
	Timer.bLoop = InbLoop;
	Timer.Delegate = InDelegate;
	Timer.Owner = InDelegate.GetOwnerAddress();
	if (Timer.Owner != nullptr)
	{
		ByOwner.emplace(Timer.Owner, Timer.Id);
	}
	++NumAlive;
	InOutHandle.Id = Timer.Id;
}

void FTimerManager::Clear(FTimer& Timer)
{
	const auto [Begin, End] = ByOwner.equal_range(Timer.Owner);
	const auto Entry = std::find_if(Begin, End, [&](const auto& Each) { return Each.second == Timer.Id; });
	if (Entry != End)
	{
		ByOwner.erase(Entry);
	}
	Timer.bCleared = true;
	// Its code may be unloaded before the list is cleaned up.
	Timer.Delegate = FTimerDelegate();
	--NumAlive;
}

void FTimerManager::ClearTimer(FTimerHandle& InHandle)
{
	if (FTimer* Timer = Find(InHandle))
	{
		Clear(*Timer);
		DropCleared();
	}
	InHandle.Invalidate();
}

bool FTimerManager::TimerExists(FTimerHandle InHandle) const
{
	return const_cast<FTimerManager*>(this)->Find(InHandle) != nullptr;
}

void FTimerManager::InternalClearAllTimers(const void* Object)
{
	for (auto Entry = ByOwner.find(Object); Entry != ByOwner.end(); Entry = ByOwner.find(Object))
	{
		FTimerHandle Handle;
		Handle.Id = Entry->second;
		Clear(*Find(Handle));
	}
	DropCleared();
}

void FTimerManager::Fire(std::size_t Index)
{
	// A copy: the callback may set or clear timers.
	const FTimerDelegate Delegate = Timers[Index].Delegate;
	if (Timers[Index].bLoop)
	{
		Timers[Index].Elapsed -= Timers[Index].Delay;
		Timers[Index].Delay = Timers[Index].Rate;
	}
	Delegate.ExecuteIfBound();
	FTimer& Timer = Timers[Index];
	if (!Timer.bCleared && (!Timer.bLoop || !Timer.Delegate.IsBound()))
	{
		Clear(Timer);
	}
}

void FTimerManager::Tick(float DeltaTime)
{
	bTicking = true;
	const std::size_t NumAtStart = Timers.size();
	for (std::size_t Index = 0; Index < NumAtStart; ++Index)
	{
		Timers[Index].Elapsed += static_cast<double>(DeltaTime);
		// A long frame may span several periods of a looping timer.
		while (!Timers[Index].bCleared && Timers[Index].Elapsed >= Timers[Index].Delay)
		{
			Fire(Index);
		}
	}
	bTicking = false;
	DropCleared();
}

void FTimerManager::DropCleared()
{
	// Removing entries means walking the list, so wait until half of them have ended.
	if (!bTicking && Timers.size() - static_cast<std::size_t>(NumAlive) > Timers.size() / 2)
	{
		std::erase_if(Timers, [](const FTimer& Timer) { return Timer.bCleared; });
	}
}
