#include "Playback/MediaTrial.h"

#include <utility>

namespace Flitmark
{

void FMediaTrial::Start(const QString& InVideo)
{
	Cancel();
	FMpvOptions Options;
	Options.bHardwareDecoding = false;
	Options.bOnlyTries = true;
	std::string Error;
	Mpv = FMpvPlayer::Create(
		Options, *this, [this] { QMetaObject::invokeMethod(this, &FMediaTrial::Process, Qt::QueuedConnection); },
		Error);
	if (!Mpv)
	{
		Q_EMIT Failed(QString::fromStdString(Error));
		return;
	}
	Mpv->Open(InVideo.toStdString());
}

void FMediaTrial::Cancel()
{
	Mpv.reset();
	Outcome.reset();
}

void FMediaTrial::Process()
{
	if (!Mpv)
	{
		return;
	}
	Mpv->ProcessEvents();
	if (const std::optional<std::string> Told = std::exchange(Outcome, std::nullopt))
	{
		Mpv.reset();
		if (Told->empty())
		{
			Q_EMIT Succeeded();
		}
		else
		{
			Q_EMIT Failed(QString::fromStdString(*Told));
		}
	}
}

void FMediaTrial::OnStateChanged()
{
	if (Mpv->GetState().Width > 0 || Mpv->GetState().SampleRate > 0)
	{
		Outcome = std::string();
	}
}

} // namespace Flitmark
