#pragma once

#include "Mpv/MpvState.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

struct mpv_event;
struct mpv_event_end_file;
struct mpv_event_log_message;
struct mpv_event_property;
struct mpv_handle;

namespace Flitmark
{

struct FMpvOptions
{
	/** If there is one. */
	bool bHardwareDecoding = true;

	/** mpv's name of an audio output; empty for the first that works. */
	std::string AudioOutput;

	/** Shows and sounds nothing, and stands at the start: only tells whether something can be played. */
	bool bOnlyTries = false;
};

/** Receives events from within FMpvPlayer::ProcessEvents. */
class IMpvObserver
{
public:
	virtual ~IMpvObserver() = default;

	/** The state has changed. */
	virtual void OnStateChanged() = 0;
	/** The last opened file is playing. */
	virtual void OnLoaded() = 0;
	/** The last opened file cannot be played, or not any further. InReason: without a period. */
	virtual void OnFailed(const std::string& InReason) = 0;
	/** The position has jumped. */
	virtual void OnSeeked() = 0;
	/** The picture at the new position, which the state has, is ready: after opening and after each jump. */
	virtual void OnArrived() {}
	/** A file of subtitles belongs to the video now; InReason: why it does not, without a period; empty if it does. */
	virtual void OnSubtitlesAdded([[maybe_unused]] const std::string& InUrl,
								  [[maybe_unused]] const std::string& InReason)
	{
	}
};

/**
 * libmpv: plays one video at a time and draws it through an FMpvRenderer. Commands return at once; the state shows what
 * came of them. Single-threaded, except for the wake-up.
 */
class FMpvPlayer
{
public:
	/**
	 * Null with OutError set if libmpv cannot start. InObserver outlives the player. InWakeUp is called from other
	 * threads when ProcessEvents is due, and must not call the player.
	 */
	static std::unique_ptr<FMpvPlayer> Create(const FMpvOptions& InOptions, IMpvObserver& InObserver,
											  std::function<void()> InWakeUp, std::string& OutError);
	~FMpvPlayer();

	/**
	 * Opens anything libmpv plays: a path or a URL. Plays from the start, unless paused; waits until there is a
	 * renderer, without which libmpv would play only the audio.
	 */
	void Open(const std::string& InUrl);
	/** A renderer was created for this player. */
	void StartRendering();
	void Close();

	/** Shows a file's subtitles with the loaded video, until it ends; see OnSubtitlesAdded. */
	void AddSubtitles(const std::string& InUrl);

	/** Percent of the surface's height that stay free below the subtitles. */
	void SetSubtitleLift(double InPercent);

	void SetPaused(bool bInPaused);
	/** Seconds from the start; bInExact: to the exact frame, else to a keyframe nearby. */
	void Seek(double InPosition, bool bInExact);
	/** Shows the next or previous frame and pauses. */
	void StepFrame(bool bInForward);
	void SetSpeed(double InSpeed);
	void SetVolume(double InPercent);
	void SetMuted(bool bInMuted);

	const FMpvState& GetState() const { return State; }

	/** Processes pending events; call it after each wake-up. */
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
	void TakeArrival(const mpv_event& InEvent);
	bool IsCurrent(int64_t InEntry) const { return InEntry >= Entry && InEntry <= LastEntry; }
	void TakeSubtitles(std::size_t InIndex, int InError);
	void TakeLoaded();
	void TakeEnd(const mpv_event_end_file& InEnd);
	void TakeLog(const mpv_event_log_message& InMessage);
	void Command(std::initializer_list<const char*> InArguments);

	IMpvObserver& Observer;
	std::function<void()> WakeUp;
	std::shared_ptr<mpv_handle> Handle;
	FMpvState State;
	/** mpv's first complaint about the opened file; it says more than the error that follows from it. */
	std::string Complaint;
	/** mpv's error, until it is reported. */
	std::string Failure;
	bool bRenders = false;
	/**
	 * Number of loads, and mpv's entry IDs of the last one (0 until mpv reports it; the first and the last of a list's
	 * entries) and of the one it starts.
	 */
	uint64_t NumLoads = 0;
	int64_t Entry = 0;
	int64_t LastEntry = 0;
	int64_t StartedEntry = 0;
	/** Files of subtitles asked for so far; the reply to each has its index. */
	std::vector<std::string> Subtitles;
	bool bStateChanged = false;
};

} // namespace Flitmark
