#include "OverlaySink.h"

#include "EncoderChoice.h"
#include "Files/TemporaryFile.h"
#include "NumberedName.h"
#include "VideoOutput.h"

#include <filesystem>
#include <utility>

namespace Flitmark
{

namespace
{

class FVideoSink final : public IOverlaySink
{
public:
	FVideoSink(const AVCodec& InCodec, std::unique_ptr<FVideoOutput> InOutput)
		: IOverlaySink(InCodec)
		, Output(std::move(InOutput))
	{
	}

	bool WantsGlobalHeader() const override { return Output->WantsGlobalHeader(); }
	bool Start(const AVCodecContext& InEncoder, std::string& OutError) override
	{
		return Output->Start(InEncoder, OutError);
	}
	bool Write(AVPacket& InPacket, std::string& OutError) override { return Output->WriteVideo(InPacket, OutError); }
	bool Finish(std::string& OutError) override { return Output->Finish(OutError); }

private:
	std::unique_ptr<FVideoOutput> Output;
};

/** Waiting for the disk at each of thousands of pictures would take longer than drawing them. */
class FQuickFileCalls final : public FFileCalls
{
public:
	int Flush(int) override { return 0; }
};

class FPictureSink final : public IOverlaySink
{
public:
	FPictureSink(const AVCodec& InCodec, FNumberedName InName)
		: IOverlaySink(InCodec)
		, Name(std::move(InName))
	{
	}

	bool WantsGlobalHeader() const override { return false; }
	bool Start(const AVCodecContext&, std::string&) override { return true; }
	bool Write(AVPacket& InPacket, std::string& OutError) override
	{
		const std::string_view Bytes(reinterpret_cast<const char*>(InPacket.data), static_cast<size_t>(InPacket.size));
		return WriteWholeFile(Name.Name(++Count), Bytes, OutError, Calls);
	}
	bool Finish(std::string&) override { return true; }
	std::string Remark() const override
	{
		const std::string Next = Name.Name(Count + 1);
		std::error_code Ignored;
		return std::filesystem::exists(Next, Ignored)
				   ? Next + ": is a picture of an earlier run; remove it and those after it"
				   : std::string();
	}

private:
	FNumberedName Name;
	FQuickFileCalls Calls;
	int64 Count = 0;
};

std::unique_ptr<IOverlaySink> OpenPictures(const FOverlayVideoOptions& InOptions, std::string& OutError)
{
	const auto Name = FNumberedName::Parse(InOptions.Output);
	const AVCodec* const Png = avcodec_find_encoder(AV_CODEC_ID_PNG);
	if (!Name)
	{
		OutError = InOptions.Output + ": a name for numbered pictures has one %d, as in out-%05d.png";
	}
	else if (Png == nullptr || (!InOptions.Codec.empty() && InOptions.Codec != "png"))
	{
		OutError = InOptions.Output + ": pictures are encoded by png, not by " + InOptions.Codec;
	}
	else
	{
		OutError = OutputObstacle(InOptions.Like, Name->Name(1));
	}
	return OutError.empty() ? std::make_unique<FPictureSink>(*Png, *Name) : nullptr;
}

} // namespace

std::unique_ptr<IOverlaySink> IOverlaySink::Open(const FOverlayVideoOptions& InOptions, std::string& OutError)
{
	const std::string Extension = std::filesystem::path(InOptions.Output).extension().string();
	if (Extension == ".png" || Extension == ".PNG")
	{
		return OpenPictures(InOptions, OutError);
	}
	const AVCodec* const Codec = ChooseEncoder(InOptions.Codec, InOptions.Output, true, OutError);
	if (Codec == nullptr)
	{
		return nullptr;
	}
	OutError = OutputObstacle(InOptions.Like, InOptions.Output);
	if (const std::string Obstacle = AlphaObstacle(*Codec, InOptions.Output); OutError.empty() && !Obstacle.empty())
	{
		OutError = InOptions.Output + ": " + Obstacle;
	}
	auto Output = OutError.empty() ? FVideoOutput::Open(InOptions.Output, *Codec, OutError) : nullptr;
	return Output ? std::make_unique<FVideoSink>(*Codec, std::move(Output)) : nullptr;
}

} // namespace Flitmark
