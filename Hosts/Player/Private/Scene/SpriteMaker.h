#pragma once

#include "Overlay/CommentScene.h"
#include "Text/TextEngine.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_set>
#include <vector>

namespace Flitmark
{

/** A sprite that is to be made. */
struct FWantedSprite
{
	std::shared_ptr<const FSharedStyle> Style;
	/** Device pixels per canvas unit. */
	double Scale = 1.0;

	bool operator==(const FWantedSprite&) const = default;
};

/** A sprite that was made. */
struct FMadeSprite : FWantedSprite
{
	FSprite Sprite;
};

/** Rasterises comments on threads of its own. May be called from any thread. */
class FSpriteMaker
{
public:
	/** Bytes of made sprites that wait to be taken; beyond it making pauses. */
	static constexpr int64 MaxReadyBytes = int64{32} << 20;

	/** InEngine outlives this, or the call of Stop. */
	explicit FSpriteMaker(FTextEngine& InEngine, int64 InMaxReadyBytes = MaxReadyBytes);
	~FSpriteMaker();

	/**
	 * Called from any thread when there is something to take where there was nothing, and by Notify. It must call nothing
	 * of this; after it was replaced it is not running any more.
	 */
	void SetListener(std::function<void()> InListener);
	/** Has the listener look again. */
	void Notify();

	/** All that is wanted, the most urgent first. What was wanted before and is not any more is dropped, made or not. */
	void SetWanted(std::vector<FWantedSprite> InWanted);

	/** The next sprite that was made. */
	std::optional<FMadeSprite> Take();

	/** Sprites made so far. */
	int64 GetNumMade() const;

	/** Ends the threads, after the sprite that each has at hand; nothing is made any more. */
	void Stop();

private:
	struct FHash
	{
		std::size_t operator()(const FWantedSprite& InWanted) const;
	};
	using FSet = std::unordered_set<FWantedSprite, FHash>;

	void Work(std::stop_token InStop);
	void Finish(FMadeSprite InMade);

	FTextEngine& Engine;
	const int64 ReadyLimit;

	mutable std::mutex Mutex;
	std::condition_variable_any Wake;
	std::function<void()> Listener;
	/** The most urgent last. */
	std::vector<FWantedSprite> Queue;
	/** All that is wanted, made or not. */
	FSet Wanted;
	FSet AtHand;
	/** In the order in which they were made. */
	std::deque<FMadeSprite> Ready;
	int64 ReadyBytes = 0;
	int64 NumMade = 0;

	/** Last, so that they end first. */
	std::vector<std::jthread> Threads;
};

} // namespace Flitmark
