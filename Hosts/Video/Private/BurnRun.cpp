#include "BurnRun.h"

#include "EncoderChoice.h"
#include "FrameSource.h"

extern "C"
{
#include <libavutil/common.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace Flitmark
{

namespace
{

std::string Seconds(double InSeconds)
{
	char Text[64];
	snprintf(Text, sizeof(Text), "%.3f s", InSeconds);
	return Text;
}

int64 ToWholeTicks(double InSeconds)
{
	return std::llround(InSeconds * static_cast<double>(TicksPerSecond));
}

/** Whether an encoder takes only pictures that lie in a device's memory. */
bool NeedsDevice(const AVCodec& InCodec)
{
	bool bPlain = InCodec.pix_fmts == nullptr;
	for (const AVPixelFormat* Each = InCodec.pix_fmts; !bPlain && *Each != AV_PIX_FMT_NONE; ++Each)
	{
		bPlain = (av_pix_fmt_desc_get(*Each)->flags & AV_PIX_FMT_FLAG_HWACCEL) == 0;
	}
	return !bPlain;
}

const char* NameOf(AVPixelFormat InFormat)
{
	const char* const Name = av_get_pix_fmt_name(InFormat);
	return Name != nullptr ? Name : "an unknown format";
}

} // namespace

FBurnRun::FBurnRun(const FBurnOptions& InOptions, IBurnProgress& InProgress, const std::atomic<bool>& InCancel)
	: Options(InOptions)
	, Progress(InProgress)
	, Cancel(InCancel)
	, Packet(MakePacket())
{
}

bool FBurnRun::Fail(std::string InError)
{
	Error = std::move(InError);
	return false;
}

FVideoFile FBurnRun::File() const
{
	return {Options.Input, Options.bAllowPlaylists};
}

int64 FBurnRun::FromTicks() const
{
	return Options.From ? ToWholeTicks(*Options.From) : 0;
}

int64 FBurnRun::ToTicks() const
{
	return Options.To ? ToWholeTicks(*Options.To) : INT64_MAX;
}

FVideoResult FBurnRun::Burn(IOverlaySource& InOverlay)
{
	bool bDone = Open();
	if (bDone)
	{
		FOverlayClock Clock(InOverlay, Input->Shape());
		bDone = SkipToFrom(Clock) && Pump(Clock) && Finish();
	}
	if (bDone)
	{
		return {};
	}
	// What reading reports once it was told to end is no failure.
	return Error.empty() || Cancel ? FVideoResult{EVideoOutcome::Canceled, {}} : FVideoResult::Fail(Error);
}

bool FBurnRun::Open()
{
	if (!OpenInput())
	{
		return false;
	}
	const bool bAlpha = HasAlpha(Input->Video());
	Codec = ChooseEncoder(Options.Codec, Options.Output, bAlpha, Error);
	if (Codec == nullptr)
	{
		return false;
	}
	if (NeedsDevice(*Codec))
	{
		return Fail(Options.Codec + ": takes pictures in a device's memory only, but comments are painted in the " +
					"program's; choose an encoder without a device, such as libx264");
	}
	Output = FVideoOutput::Open(Options.Output, *Codec, Error);
	if (!Output)
	{
		return false;
	}
	if (const std::string Lost = bAlpha ? AlphaObstacle(*Codec, Options.Output) : std::string(); !Lost.empty())
	{
		Progress.OnMessage("the video's transparency is lost: " + Lost);
	}
	std::vector<std::string> Messages;
	Output->ChooseCopies(*Input, Messages);
	for (const std::string& Message : Messages)
	{
		Progress.OnMessage(Message);
	}
	const double Whole = Input->DurationSeconds();
	const double End = Options.To && (Whole <= 0.0 || *Options.To < Whole) ? *Options.To : Whole;
	State.TotalSeconds = std::max(0.0, End - Options.From.value_or(0.0));
	Painter.emplace(Input->Orientation());
	return true;
}

bool FBurnRun::OpenInput()
{
	Input = OpenVideoAt(File(), FromTicks(), Error, &Cancel);
	Decoder = Input ? FVideoDecoder::Open(*Input, Options.Threads, Error) : nullptr;
	return Decoder != nullptr;
}

bool FBurnRun::SkipToFrom(FOverlayClock& InClock)
{
	if (FromTicks() == 0)
	{
		return true;
	}
	const auto Times = ScanFrameTimes(File(), FromTicks(), Error, &Cancel);
	if (!Times || Cancel)
	{
		return false;
	}
	if (Times->Ticks.empty() || Times->Ticks.back() < FromTicks())
	{
		const double End = static_cast<double>(Times->EndTicks.value_or(0)) / static_cast<double>(TicksPerSecond);
		return Fail(Options.Input + ": is only " + Seconds(End) + " long; there is nothing to burn from " +
					Seconds(*Options.From) + " on");
	}
	for (const int64 Ticks : Times->Ticks)
	{
		if (Ticks >= FromTicks())
		{
			break;
		}
		if (Cancel)
		{
			return false;
		}
		InClock.Advance(Ticks);
	}
	return true;
}

bool FBurnRun::Pump(FOverlayClock& InClock)
{
	FPacketReader Reader(*Input, *Decoder, {FromTicks(), ToTicks()});
	FReadItem Item;
	while (Reader.Next(Item))
	{
		if (Cancel)
		{
			return false;
		}
		const bool bTaken = Item.Frame ? TakeFrame(InClock, std::move(Item.Frame)) : TakePacket(std::move(Item.Packet));
		if (!bTaken)
		{
			return false;
		}
	}
	return !Cancel;
}

int64 FBurnRun::Zero(const AVFrame& InFirst) const
{
	if (Options.From)
	{
		return InFirst.pts;
	}
	// Broadcast streams start anywhere on their own clock; elsewhere times are literal.
	const AVFormatContext& Format = Input->Format();
	const bool bOwnClock = (Format.iformat->flags & AVFMT_TS_DISCONT) != 0 && Format.start_time != AV_NOPTS_VALUE;
	return bOwnClock ? av_rescale_q(Format.start_time, {1, AV_TIME_BASE}, Input->Video().time_base) : 0;
}

bool FBurnRun::StartOutput(AVFrame& InFirst)
{
	const AVStream& Source = Input->Video();
	FEncoderSetup Setup;
	Setup.Codec = Codec;
	Setup.Crf = Options.Crf;
	Setup.Preset = Options.Preset;
	Setup.Threads = Options.Threads;
	Setup.Format = static_cast<AVPixelFormat>(InFirst.format);
	Setup.TimeBase = Source.time_base;
	Setup.FrameRate = FrameRateOf(Source);
	Setup.PixelAspect = av_guess_sample_aspect_ratio(&Input->Format(), Input->Format().streams[Source.index], nullptr);
	Setup.FieldOrder = Source.codecpar->field_order;
	Setup.bGlobalHeader = Output->WantsGlobalHeader();
	Encoder = FVideoEncoder::Open(Setup, InFirst, Error);
	if (!Encoder)
	{
		return false;
	}
	FOutputCut Cut;
	Cut.Zero = Zero(InFirst);
	Cut.bCutBefore = Options.From.has_value();
	if (Options.To)
	{
		Cut.Seconds = *Options.To - Options.From.value_or(0.0);
	}
	return Output->Start(*Input, Encoder->Context(), InFirst, Cut, Error);
}

void FBurnRun::SayConversion(AVPixelFormat InSource, const FFormatPlan& InPlan)
{
	if (WithoutImpliedRange(InSource) != InPlan.Paint || InPlan.Paint != InPlan.Encode)
	{
		Progress.OnMessage(std::string("frames are converted from ") + NameOf(InSource) + " to " +
						   NameOf(InPlan.Encode) + ", which can hold comments and which " + Codec->name + " accepts");
	}
}

bool FBurnRun::TakeFrame(FOverlayClock& InClock, FFramePtr InFrame)
{
	if (!Encoder)
	{
		const AVPixelFormat Format = static_cast<AVPixelFormat>(InFrame->format);
		const FFormatPlan Plan = FFormatPlan::For(*Codec, Format);
		SayConversion(Format, Plan);
		if (InFrame->interlaced_frame != 0 && !FVideoEncoder::KeepsFields(*Codec))
		{
			Progress.OnMessage(Options.Input + ": is interlaced, but " + Codec->name +
							   " marks it as progressive, so that players show combs; libx264 keeps the fields");
		}
		Painter->Start(Plan.Paint, InFrame->width, InFrame->height);
		if (Plan.Encode != Plan.Paint)
		{
			LastConverter.emplace(Plan.Encode, InFrame->width, InFrame->height);
		}
	}
	const int64 Ticks = Input->ToTicks(InFrame->pts);
	LastEndTicks = av_sat_add64(Ticks, av_rescale_q(InFrame->pkt_duration, Input->Video().time_base, TickBase));
	InFrame = Painter->Paint(std::move(InFrame), InClock.Advance(Ticks));
	if (InFrame && LastConverter)
	{
		InFrame = LastConverter->Convert(*InFrame);
	}
	if (!InFrame)
	{
		return Fail(Options.Input + ": a frame at " + Seconds(static_cast<double>(Ticks) / 1e7) +
					" cannot be converted to the encoder's pixel format");
	}
	return Encode(std::move(InFrame));
}

bool FBurnRun::Encode(FFramePtr InFrame)
{
	if (!Encoder && !StartOutput(*InFrame))
	{
		return false;
	}
	// Encoders need increasing times; only damaged files have others.
	if (LastStamp && InFrame->pts <= *LastStamp)
	{
		InFrame->pts = *LastStamp + 1;
		++Misplaced;
	}
	LastStamp = InFrame->pts;
	if (!Encoder->Send(InFrame.get(), Error) || !Drain())
	{
		return false;
	}
	for (; !Waiting.empty(); Waiting.pop_front())
	{
		if (!Output->WriteCopy(*Waiting.front(), Error))
		{
			return false;
		}
	}
	Tell(*InFrame);
	return true;
}

bool FBurnRun::TakePacket(FPacketPtr InPacket)
{
	if (!Encoder)
	{
		Waiting.push_back(std::move(InPacket));
		return true;
	}
	return Output->WriteCopy(*InPacket, Error);
}

bool FBurnRun::Drain()
{
	while (Encoder->Receive(*Packet, Error))
	{
		const bool bWritten = Output->WriteVideo(*Packet, Error);
		av_packet_unref(Packet.get());
		if (!bWritten || Cancel)
		{
			return false;
		}
	}
	return Error.empty();
}

void FBurnRun::Tell(const AVFrame& InFrame)
{
	++State.Frames;
	const int64 Done = Input->ToTicks(av_sat_add64(InFrame.pts, InFrame.pkt_duration)) - FromTicks();
	State.DoneSeconds = std::max(0.0, static_cast<double>(Done) / static_cast<double>(TicksPerSecond));
	Progress.OnFrame(State);
}

bool FBurnRun::Finish()
{
	if (!Encoder)
	{
		return Fail(Options.Input + ": no frame of its video could be decoded" +
					(Options.From || Options.To ? " in the part to burn" : "; the file is empty or damaged"));
	}
	if (!Encoder->Send(nullptr, Error) || !Drain() || Cancel || !Output->Finish(Error))
	{
		return false;
	}
	TellDamage();
	return true;
}

void FBurnRun::TellDamage()
{
	const int64 Broken = Input->BrokenReads() + Decoder->BrokenPackets();
	if (Broken > 0)
	{
		Progress.OnMessage(Options.Input + ": " + std::to_string(Broken) + " damaged packets were skipped");
	}
	if (Misplaced > 0)
	{
		Progress.OnMessage(Options.Input + ": " + std::to_string(Misplaced) +
						   " frames were timed before the frame preceding them and were moved after it");
	}
	TellShortness();
}

void FBurnRun::TellShortness()
{
	const double Ends = static_cast<double>(LastEndTicks) / static_cast<double>(TicksPerSecond);
	constexpr double Slack = 1.0;
	const double Whole = Input->Video().duration != AV_NOPTS_VALUE ? Input->DurationSeconds() : 0.0;
	if (Ends + Slack < std::min(Whole, Options.To.value_or(Whole)))
	{
		Progress.OnMessage(Options.Input + ": its video ends at " + Seconds(Ends) + ", although the file says " +
						   Seconds(Whole) + "; it is damaged or truncated");
	}
	else if (Options.To && Ends + Slack < *Options.To)
	{
		Progress.OnMessage(Options.Input + ": its video ends at " + Seconds(Ends) + ", before the end asked for, " +
						   Seconds(*Options.To));
	}
}

} // namespace Flitmark
