#pragma once

#include "Mpv/MpvState.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

struct mpv_event;
struct mpv_event_end_file;
struct mpv_event_log_message;
struct mpv_event_property;
struct mpv_handle;

namespace Flitmark
{

struct FMpvOptions
{
	/** Where there is any. */
	bool bHardwareDecoding = true;

	/** mpv's name of an audio output; empty: the first that works. */
	std::string AudioOutput;
};

/** Is told what happens, from within FMpvPlayer::ProcessEvents. */
class IMpvObserver
{
public:
	virtual ~IMpvObserver() = default;

	/** Something of the state is different. */
	virtual void OnStateChanged() = 0;
	/** What was opened last plays now. */
	virtual void OnLoaded() = 0;
	/** What was opened last cannot be played, or not on. InReason: without an end stop. */
	virtual void OnFailed(const std::string& InReason) = 0;
	/** The position has jumped. */
	virtual void OnSeeked() = 0;
	/** The picture of the new position is there, after opening and after each jump. */
	virtual void OnArrived() {}
};

/**
 * libmpv: plays one video at a time and draws it through an FMpvRenderer. Commands return at once, what comes of them is
 * told by the state. One thread, except for the wake-up.
 */
class FMpvPlayer
{
public:
	/**
	 * Null with OutError set where libmpv cannot start. InObserver outlives the player. InWakeUp is called from other
	 * threads when ProcessEvents is due, and must not call the player.
	 */
	static std::unique_ptr<FMpvPlayer> Create(const FMpvOptions& InOptions, IMpvObserver& InObserver,
											  std::function<void()> InWakeUp, std::string& OutError);
	~FMpvPlayer();

	/**
	 * Whatever libmpv plays: a file's path or an address. Plays from the start, unless paused; waits until there is a
	 * renderer, without which libmpv would play the sound alone.
	 */
	void Open(const std::string& InUrl);
	/** A renderer was made for this player. */
	void StartRendering();
	void Close();

	void SetPaused(bool bInPaused);
	/** Seconds from the start; bInExact: to the very frame, else to where decoding is quick. */
	void Seek(double InPosition, bool bInExact);
	/** Shows the next or the last frame, and pauses. */
	void StepFrame(bool bInForward);
	void SetSpeed(double InSpeed);
	void SetVolume(double InPercent);
	void SetMuted(bool bInMuted);

	const FMpvState& GetState() const { return State; }

	/** Takes in what has happened; to be called after each wake-up. */
	void ProcessEvents();

	/** For FMpvRenderer, which keeps it alive. */
	const std::shared_ptr<mpv_handle>& GetHandle() const { return Handle; }

private:
	explicit FMpvPlayer(IMpvObserver& InObserver, std::function<void()> InWakeUp);
	bool Start(const FMpvOptions& InOptions, std::string& OutError);
	void Observe();
	void TakeProperty(const mpv_event_property& InProperty, std::size_t InIndex);
	void Load();
	void TakeReply(const mpv_event& InEvent);
	void TakeLoaded();
	void TakeEnd(const mpv_event_end_file& InEnd);
	void TakeLog(const mpv_event_log_message& InMessage);
	void Command(std::initializer_list<const char*> InArguments);

	IMpvObserver& Observer;
	std::function<void()> WakeUp;
	std::shared_ptr<mpv_handle> Handle;
	FMpvState State;
	/** What mpv found wrong first with what was opened: it tells more than the error that comes of it. */
	std::string Complaint;
	/** mpv's error, until it is told. */
	std::string Failure;
	bool bRenders = false;
	/** How often something was loaded, and mpv's numbers of what was loaded last (0 until mpv tells) and of what it starts. */
	uint64_t NumLoads = 0;
	int64_t Entry = 0;
	int64_t StartedEntry = 0;
	bool bStateChanged = false;
};

} // namespace Flitmark
