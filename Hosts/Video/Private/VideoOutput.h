#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"
#include "Files/TemporaryFile.h"
#include "VideoInput.h"

#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** Which part of the input to copy. */
struct FOutputCut
{
	/** Timestamp of the input's video stream that becomes 0. */
	int64 Zero = 0;

	/** Whether to drop packets of copied streams that start before Zero. */
	bool bCutBefore = false;

	/** Duration of the output in seconds, for its chapters; infinite if unknown. */
	std::optional<double> Seconds;
};

/** The file being made: an encoded video stream, and copies of the input's other streams. */
class FVideoOutput
{
public:
	/** Null with OutError set if the extension is not a container's, or the container cannot hold the codec. */
	static std::unique_ptr<FVideoOutput> Open(const std::string& InPath, const AVCodec& InCodec, std::string& OutError);

	/** Discards an unfinished file. */
	~FVideoOutput();

	bool WantsGlobalHeader() const { return (Muxer->oformat->flags & AVFMT_GLOBALHEADER) != 0; }

	/**
	 * Decides which of the input's streams are copied and makes the input skip the others.
	 * OutMessages: parts of the input that the container cannot hold.
	 */
	void ChooseCopies(FVideoInput& InInput, std::vector<std::string>& OutMessages);

	/** Writes the headers. InFirst: a frame as encoded, which may carry HDR metadata. */
	bool Start(const FVideoInput& InInput, const AVCodecContext& InEncoder, const AVFrame& InFirst,
			   const FOutputCut& InCut, std::string& OutError);

	/** Writes the headers of a file that holds nothing but the encoder's video. */
	bool Start(const AVCodecContext& InEncoder, std::string& OutError);

	/** A packet from the encoder, in the time base of the input's video, or else the encoder's. */
	bool WriteVideo(AVPacket& InPacket, std::string& OutError);

	/** A packet of a copied stream, as read from the input. */
	bool WriteCopy(AVPacket& InPacket, std::string& OutError);

	/** Finishes the file and gives it its name. */
	bool Finish(std::string& OutError);

private:
	explicit FVideoOutput(std::unique_ptr<FTemporaryFile> InFile, std::string InPath);

	std::string RotationObstacle(const FVideoInput& InInput) const;
	void AddCopy(const AVStream& InSource);
	void AddVideo(const AVStream& InSource, const AVCodecContext& InEncoder, const AVFrame& InFirst);
	void CopyChapters(const AVFormatContext& InSource);
	void KeepTimes(int64 InFirst);
	bool WriteHeader(std::string& OutError);

	/** The time of a copied stream that becomes 0, in the source's time base. */
	int64 ZeroOf(const AVStream& InTarget, AVRational InBase) const;
	bool Write(AVPacket& InPacket, AVRational InBase, AVStream& InTarget, std::string& OutError);
	std::string WriteError(int InCode) const;

	std::unique_ptr<FTemporaryFile> File;
	std::string Path;
	AVFormatContext* Muxer = nullptr;
	AVStream* Video = nullptr;
	FOutputCut Cut;
	AVRational VideoBase{1, 1};
	bool bWarmUpApart = false;

	/** Per input stream: whether it is copied, then to which output stream. */
	std::vector<bool> Chosen;
	std::vector<AVStream*> Copies;
	std::vector<AVRational> Bases;

	/** The latest decoding time per output stream. */
	std::vector<int64> LastDts;
};

} // namespace Flitmark
