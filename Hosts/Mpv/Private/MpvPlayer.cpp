#include "Mpv/MpvPlayer.h"

#include <mpv/client.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

namespace Flitmark
{

namespace
{

/** An observed property and the state member it sets. */
struct FObserved
{
	const char* Name;
	mpv_format Format;
	void (*Take)(FMpvState& State, const void* Value);
};

template <bool FMpvState::*Member>
void TakeFlag(FMpvState& State, const void* Value)
{
	State.*Member = Value != nullptr && *static_cast<const int*>(Value) != 0;
}

template <double FMpvState::*Member>
void TakeDouble(FMpvState& State, const void* Value)
{
	State.*Member = Value != nullptr ? *static_cast<const double*>(Value) : 0.0;
}

template <int FMpvState::*Member>
void TakeInt(FMpvState& State, const void* Value)
{
	State.*Member = Value != nullptr ? static_cast<int>(*static_cast<const int64_t*>(Value)) : 0;
}

template <std::string FMpvState::*Member>
void TakeText(FMpvState& State, const void* Value)
{
	State.*Member = Value != nullptr ? *static_cast<const char* const*>(Value) : "";
}

constexpr FObserved Observed[] = {
	{"pause", MPV_FORMAT_FLAG, TakeFlag<&FMpvState::bPaused>},
	{"paused-for-cache", MPV_FORMAT_FLAG, TakeFlag<&FMpvState::bBuffering>},
	{"seeking", MPV_FORMAT_FLAG, TakeFlag<&FMpvState::bSeeking>},
	{"eof-reached", MPV_FORMAT_FLAG, TakeFlag<&FMpvState::bEnded>},
	{"seekable", MPV_FORMAT_FLAG, TakeFlag<&FMpvState::bSeekable>},
	{"time-pos", MPV_FORMAT_DOUBLE, TakeDouble<&FMpvState::Position>},
	{"duration", MPV_FORMAT_DOUBLE, TakeDouble<&FMpvState::Duration>},
	{"demuxer-cache-time", MPV_FORMAT_DOUBLE, TakeDouble<&FMpvState::BufferedTo>},
	{"speed", MPV_FORMAT_DOUBLE, TakeDouble<&FMpvState::Speed>},
	{"volume", MPV_FORMAT_DOUBLE, TakeDouble<&FMpvState::Volume>},
	{"mute", MPV_FORMAT_FLAG, TakeFlag<&FMpvState::bMuted>},
	{"video-out-params/dw", MPV_FORMAT_INT64, TakeInt<&FMpvState::Width>},
	{"video-out-params/dh", MPV_FORMAT_INT64, TakeInt<&FMpvState::Height>},
	{"video-out-params/rotate", MPV_FORMAT_INT64, TakeInt<&FMpvState::Rotation>},
	{"audio-params/samplerate", MPV_FORMAT_INT64, TakeInt<&FMpvState::SampleRate>},
	{"media-title", MPV_FORMAT_STRING, TakeText<&FMpvState::Title>},
	{"hwdec-current", MPV_FORMAT_STRING, TakeText<&FMpvState::HardwareDecoder>},
};

/** An option and its value; everything in mpv that prints, asks, or draws on its own is off. */
constexpr std::pair<const char*, const char*> FixedOptions[] = {
	{"vo", "libmpv"},
	{"config", "no"},
	{"terminal", "no"},
	{"osc", "no"},
	{"osd-level", "0"},
	{"input-default-bindings", "no"},
	{"input-vo-keyboard", "no"},
	{"idle", "yes"},
	{"keep-open", "yes"},
	// Seeking back from the end resumes playing.
	{"keep-open-pause", "no"},
	{"ytdl", "no"},
	{"load-scripts", "no"},
	{"audio-client-name", "Flitmark"},
	{"sub-auto", "no"},
};

/** The same for a player that only tries. */
constexpr std::pair<const char*, const char*> TrialOptions[] = {
	{"vo", "null"},
	{"ao", "null"},
	{"pause", "yes"},
	// What has nothing in it ends with an error.
	{"keep-open", "no"},
};

/** Replies to loads count up from 1, those about subtitles from here. */
constexpr uint64_t FirstSubtitlesReply = uint64_t{1} << 32;

} // namespace

FMpvPlayer::FMpvPlayer(IMpvObserver& InObserver, std::function<void()> InWakeUp)
	: Observer(InObserver)
	, WakeUp(std::move(InWakeUp))
{
}

std::unique_ptr<FMpvPlayer> FMpvPlayer::Create(const FMpvOptions& InOptions, IMpvObserver& InObserver,
											   std::function<void()> InWakeUp, std::string& OutError)
{
	std::unique_ptr<FMpvPlayer> Player(new FMpvPlayer(InObserver, std::move(InWakeUp)));
	return Player->Start(InOptions, OutError) ? std::move(Player) : nullptr;
}

FMpvPlayer::~FMpvPlayer()
{
	if (Handle)
	{
		mpv_set_wakeup_callback(Handle.get(), nullptr, nullptr);
		Close();
	}
}

bool FMpvPlayer::Start(const FMpvOptions& InOptions, std::string& OutError)
{
	// libmpv refuses to start in locales with a decimal comma.
	std::setlocale(LC_NUMERIC, "C");
	Handle.reset(mpv_create(), mpv_terminate_destroy);
	if (!Handle)
	{
		OutError = "libmpv cannot be started: there is not enough memory for it";
		return false;
	}
	for (const auto& [Name, Value] : FixedOptions)
	{
		mpv_set_option_string(Handle.get(), Name, Value);
	}
	if (InOptions.bOnlyTries)
	{
		for (const auto& [Name, Value] : TrialOptions)
		{
			mpv_set_option_string(Handle.get(), Name, Value);
		}
		bRenders = true;
	}
	mpv_set_option_string(Handle.get(), "hwdec", InOptions.bHardwareDecoding ? "auto-safe" : "no");
	if (!InOptions.AudioOutput.empty())
	{
		mpv_set_option_string(Handle.get(), "ao", InOptions.AudioOutput.c_str());
	}
	if (const int Error = mpv_initialize(Handle.get()); Error < 0)
	{
		OutError = std::string("libmpv cannot be started: ") + mpv_error_string(Error);
		Handle.reset();
		return false;
	}
	Observe();
	return true;
}

void FMpvPlayer::Observe()
{
	mpv_request_log_messages(Handle.get(), "error");
	for (std::size_t Index = 0; Index < std::size(Observed); ++Index)
	{
		mpv_observe_property(Handle.get(), Index, Observed[Index].Name, Observed[Index].Format);
	}
	mpv_set_wakeup_callback(
		Handle.get(), [](void* InPlayer) { static_cast<FMpvPlayer*>(InPlayer)->WakeUp(); }, this);
}

void FMpvPlayer::Command(std::initializer_list<const char*> InArguments)
{
	std::vector<const char*> Arguments(InArguments);
	Arguments.push_back(nullptr);
	mpv_command_async(Handle.get(), 0, Arguments.data());
}

void FMpvPlayer::Open(const std::string& InUrl)
{
	Complaint.clear();
	State.Url = InUrl;
	State.bLoaded = false;
	State.bEnded = false;
	if (bRenders)
	{
		Load();
	}
}

void FMpvPlayer::Load()
{
	std::string Name = "loadfile";
	std::string How = "replace";
	mpv_node Arguments[3]{};
	std::size_t Index = 0;
	for (std::string* const Text : {&Name, &State.Url, &How})
	{
		Arguments[Index].format = MPV_FORMAT_STRING;
		Arguments[Index++].u.string = Text->data();
	}
	mpv_node_list List{3, Arguments, nullptr};
	mpv_node Node{};
	Node.format = MPV_FORMAT_NODE_ARRAY;
	Node.u.list = &List;
	Entry = LastEntry = 0;
	mpv_command_node_async(Handle.get(), ++NumLoads, &Node);
}

void FMpvPlayer::TakeReply(const mpv_event& InEvent)
{
	if (InEvent.reply_userdata >= FirstSubtitlesReply)
	{
		TakeSubtitles(static_cast<std::size_t>(InEvent.reply_userdata - FirstSubtitlesReply), InEvent.error);
		return;
	}
	const mpv_node& Result = static_cast<const mpv_event_command*>(InEvent.data)->result;
	if (InEvent.reply_userdata != NumLoads || Result.format != MPV_FORMAT_NODE_MAP)
	{
		return;
	}
	for (int Index = 0; Index < Result.u.list->num; ++Index)
	{
		if (std::string_view(Result.u.list->keys[Index]) == "playlist_entry_id")
		{
			Entry = LastEntry = Result.u.list->values[Index].u.int64;
		}
	}
}

void FMpvPlayer::AddSubtitles(const std::string& InUrl)
{
	const char* const Arguments[] = {"sub-add", InUrl.c_str(), "select", nullptr};
	mpv_command_async(Handle.get(), FirstSubtitlesReply + Subtitles.size(), const_cast<const char**>(Arguments));
	Subtitles.push_back(InUrl);
}

void FMpvPlayer::SetSubtitleLift(double InPercent)
{
	double Position = 100.0 - InPercent;
	mpv_set_property_async(Handle.get(), 0, "sub-pos", MPV_FORMAT_DOUBLE, &Position);
}

void FMpvPlayer::TakeSubtitles(std::size_t InIndex, int InError)
{
	// What mpv complained of meanwhile is not about the video.
	Complaint.clear();
	Observer.OnSubtitlesAdded(Subtitles[InIndex], InError < 0 ? mpv_error_string(InError) : "");
}

void FMpvPlayer::StartRendering()
{
	if (!std::exchange(bRenders, true) && !State.Url.empty())
	{
		Load();
	}
}

void FMpvPlayer::Close()
{
	State.Url.clear();
	Command({"stop"});
}

void FMpvPlayer::SetPaused(bool bInPaused)
{
	int Value = bInPaused ? 1 : 0;
	mpv_set_property_async(Handle.get(), 0, "pause", MPV_FORMAT_FLAG, &Value);
}

void FMpvPlayer::Seek(double InPosition, bool bInExact)
{
	std::array<char, 32> Position{};
	std::snprintf(Position.data(), Position.size(), "%.6f", InPosition);
	Command({"seek", Position.data(), bInExact ? "absolute+exact" : "absolute+keyframes"});
}

void FMpvPlayer::StepFrame(bool bInForward)
{
	Command({bInForward ? "frame-step" : "frame-back-step"});
}

void FMpvPlayer::SetSpeed(double InSpeed)
{
	mpv_set_property_async(Handle.get(), 0, "speed", MPV_FORMAT_DOUBLE, &InSpeed);
}

void FMpvPlayer::SetVolume(double InPercent)
{
	mpv_set_property_async(Handle.get(), 0, "volume", MPV_FORMAT_DOUBLE, &InPercent);
}

void FMpvPlayer::SetMuted(bool bInMuted)
{
	int Value = bInMuted ? 1 : 0;
	mpv_set_property_async(Handle.get(), 0, "mute", MPV_FORMAT_FLAG, &Value);
}

void FMpvPlayer::ProcessEvents()
{
	for (;;)
	{
		const mpv_event* Event = mpv_wait_event(Handle.get(), 0.0);
		switch (Event->event_id)
		{
		case MPV_EVENT_PROPERTY_CHANGE:
			TakeProperty(*static_cast<const mpv_event_property*>(Event->data), Event->reply_userdata);
			continue;
		case MPV_EVENT_LOG_MESSAGE:
			TakeLog(*static_cast<const mpv_event_log_message*>(Event->data));
			continue;
		case MPV_EVENT_COMMAND_REPLY:
			TakeReply(*Event);
			continue;
		case MPV_EVENT_START_FILE:
			StartedEntry = static_cast<const mpv_event_start_file*>(Event->data)->playlist_entry_id;
			continue;
		case MPV_EVENT_FILE_LOADED:
			TakeLoaded();
			continue;
		case MPV_EVENT_END_FILE:
			TakeEnd(*static_cast<const mpv_event_end_file*>(Event->data));
			continue;
		case MPV_EVENT_SEEK:
			Observer.OnSeeked();
			continue;
		case MPV_EVENT_PLAYBACK_RESTART:
			// The last reported position may be from before.
			mpv_get_property_async(Handle.get(), 0, "time-pos", MPV_FORMAT_DOUBLE);
			continue;
		case MPV_EVENT_GET_PROPERTY_REPLY:
			TakeArrival(*Event);
			continue;
		case MPV_EVENT_NONE:
		case MPV_EVENT_SHUTDOWN:
			break;
		default:
			continue;
		}
		break;
	}
	// Log messages arrive after all other events, even after end-of-file.
	if (const std::string Error = std::exchange(Failure, {}); !Error.empty())
	{
		Observer.OnFailed(Complaint.empty() ? Error : Complaint);
	}
	if (std::exchange(bStateChanged, false))
	{
		Observer.OnStateChanged();
	}
}

void FMpvPlayer::TakeProperty(const mpv_event_property& InProperty, std::size_t InIndex)
{
	Observed[InIndex].Take(State, InProperty.format == MPV_FORMAT_NONE ? nullptr : InProperty.data);
	bStateChanged = true;
}

void FMpvPlayer::TakeArrival(const mpv_event& InEvent)
{
	if (InEvent.error >= 0)
	{
		TakeDouble<&FMpvState::Position>(State, static_cast<const mpv_event_property*>(InEvent.data)->data);
		bStateChanged = true;
	}
	Observer.OnArrived();
}

void FMpvPlayer::TakeLog(const mpv_event_log_message& InMessage)
{
	// The first message is closest to the cause; the others follow from it.
	if (Complaint.empty())
	{
		Complaint = InMessage.text;
		while (!Complaint.empty() && (Complaint.back() == '\n' || Complaint.back() == '.'))
		{
			Complaint.pop_back();
		}
	}
}

void FMpvPlayer::TakeLoaded()
{
	if (IsCurrent(StartedEntry))
	{
		State.bLoaded = true;
		bStateChanged = true;
		Observer.OnLoaded();
	}
}

void FMpvPlayer::TakeEnd(const mpv_event_end_file& InEnd)
{
	// The end of the previous file says nothing about the current one.
	if (!IsCurrent(InEnd.playlist_entry_id))
	{
		return;
	}
	// What was opened is a list, whose entries take its place.
	if (InEnd.reason == MPV_END_FILE_REASON_REDIRECT)
	{
		Entry = InEnd.playlist_insert_id;
		LastEntry = Entry + InEnd.playlist_insert_num_entries - 1;
		return;
	}
	State.bLoaded = false;
	bStateChanged = true;
	if (InEnd.reason == MPV_END_FILE_REASON_ERROR)
	{
		Failure = mpv_error_string(InEnd.error);
	}
}

} // namespace Flitmark
