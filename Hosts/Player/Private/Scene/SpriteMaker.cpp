#include "Scene/SpriteMaker.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** A second with a thousand comments takes one thread about 20 ms; two leave room for the video decoder. */
unsigned int CountThreads()
{
	return std::thread::hardware_concurrency() > 2 ? 2 : 1;
}

int64 CountBytes(const FMadeSprite& InMade)
{
	return static_cast<int64>(InMade.Sprite.Pixels.size());
}

} // namespace

std::size_t FSpriteMaker::FHash::operator()(const FWantedSprite& InWanted) const
{
	return std::hash<uint64>()(InWanted.Style->Id) * 31 + std::hash<double>()(InWanted.Scale);
}

FSpriteMaker::FSpriteMaker(FTextEngine& InEngine, int64 InMaxReadyBytes)
	: Engine(InEngine)
	, ReadyLimit(InMaxReadyBytes)
{
	for (unsigned int Index = 0; Index < CountThreads(); ++Index)
	{
		Threads.emplace_back([this](std::stop_token InStop) { Work(InStop); });
	}
}

FSpriteMaker::~FSpriteMaker()
{
	Stop();
}

void FSpriteMaker::Stop()
{
	SetWanted({});
	for (std::jthread& Thread : Threads)
	{
		Thread.request_stop();
	}
	Threads.clear();
}

void FSpriteMaker::SetListener(std::function<void()> InListener)
{
	const std::lock_guard Lock(Mutex);
	Listener = std::move(InListener);
}

void FSpriteMaker::Notify()
{
	const std::lock_guard Lock(Mutex);
	if (Listener)
	{
		Listener();
	}
}

void FSpriteMaker::SetWanted(std::vector<FWantedSprite> InWanted)
{
	{
		const std::lock_guard Lock(Mutex);
		Queue.clear();
		Wanted = FSet(InWanted.begin(), InWanted.end());
		std::erase_if(Ready, [this](const FMadeSprite& InMade) { return !Wanted.contains(InMade); });
		ReadyBytes = 0;
		FSet Started = AtHand;
		for (const FMadeSprite& Each : Ready)
		{
			ReadyBytes += CountBytes(Each);
			Started.insert(Each);
		}
		for (auto Each = InWanted.rbegin(); Each != InWanted.rend(); ++Each)
		{
			if (!Started.contains(*Each))
			{
				Queue.push_back(std::move(*Each));
			}
		}
	}
	Wake.notify_all();
}

std::optional<FMadeSprite> FSpriteMaker::Take()
{
	std::optional<FMadeSprite> Made;
	{
		const std::lock_guard Lock(Mutex);
		if (Ready.empty())
		{
			return Made;
		}
		Made = std::move(Ready.front());
		Ready.pop_front();
		ReadyBytes -= CountBytes(*Made);
		Wanted.erase(*Made);
	}
	Wake.notify_all();
	return Made;
}

int64 FSpriteMaker::GetNumMade() const
{
	const std::lock_guard Lock(Mutex);
	return NumMade;
}

void FSpriteMaker::Work(std::stop_token InStop)
{
	while (true)
	{
		FWantedSprite Next;
		{
			std::unique_lock Lock(Mutex);
			if (!Wake.wait(Lock, InStop, [this] { return !Queue.empty() && ReadyBytes < ReadyLimit; }) ||
				InStop.stop_requested())
			{
				return;
			}
			Next = std::move(Queue.back());
			Queue.pop_back();
			AtHand.insert(Next);
		}
		FSprite Sprite = Next.Style->Style.Rasterize(Engine, {Next.Scale, Next.Scale});
		Finish({std::move(Next), std::move(Sprite)});
	}
}

void FSpriteMaker::Finish(FMadeSprite InMade)
{
	const std::lock_guard Lock(Mutex);
	++NumMade;
	AtHand.erase(InMade);
	if (!Wanted.contains(InMade))
	{
		return;
	}
	ReadyBytes += CountBytes(InMade);
	Ready.push_back(std::move(InMade));
	if (Ready.size() == 1 && Listener)
	{
		Listener();
	}
}

} // namespace Flitmark
