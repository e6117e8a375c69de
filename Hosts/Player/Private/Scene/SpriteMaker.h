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

/** A sprite to be made. */
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

/** Rasterizes comments on its own threads. May be called from any thread. */
class FSpriteMaker
{
public:
	/** Limit on the bytes of finished sprites waiting to be taken; beyond it, the workers pause. */
	static constexpr int64 MaxReadyBytes = int64{32} << 20;

	/** InEngine must outlive this object, or last until Stop has returned. */
	explicit FSpriteMaker(FTextEngine& InEngine, int64 InMaxReadyBytes = MaxReadyBytes);
	~FSpriteMaker();

	/**
	 * Called from any thread when the first finished sprite is ready to be taken, and by Notify. It must not call this
	 * object. Once replaced, it is no longer running.
	 */
	void SetListener(std::function<void()> InListener);
	/** Makes the listener look again. */
	void Notify();

	/** All sprites wanted, the most urgent first. Those no longer wanted are dropped, finished or not. */
	void SetWanted(std::vector<FWantedSprite> InWanted);

	/** The next finished sprite. */
	std::optional<FMadeSprite> Take();

	/** Sprites made so far. */
	int64 GetNumMade() const;

	/** Ends the threads, each after its current sprite; nothing more is made. */
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
	/** All sprites wanted, finished or not. */
	FSet Wanted;
	FSet AtHand;
	/** In the order in which they were made. */
	std::deque<FMadeSprite> Ready;
	int64 ReadyBytes = 0;
	int64 NumMade = 0;

	/** Declared last, so that they end first. */
	std::vector<std::jthread> Threads;
};

} // namespace Flitmark
