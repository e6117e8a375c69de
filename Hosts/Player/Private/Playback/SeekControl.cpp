#include "Playback/SeekControl.h"

#include <utility>

namespace Flitmark
{

FSeekControl::FSeekControl(int InPatience)
{
	Timer.setSingleShot(true);
	Timer.setInterval(InPatience);
	connect(&Timer, &QTimer::timeout, this, &FSeekControl::Finish);
}

void FSeekControl::Seek(double InPosition, bool bInExact)
{
	if (Current)
	{
		Next = {InPosition, bInExact};
	}
	else
	{
		Current = {InPosition, bInExact};
		Timer.start();
		Q_EMIT Started(InPosition, bInExact);
	}
	Q_EMIT TargetChanged();
}

void FSeekControl::Finish()
{
	Timer.stop();
	Current.reset();
	if (const std::optional<FSeek> Following = std::exchange(Next, std::nullopt))
	{
		Seek(Following->Position, Following->bExact);
	}
	else
	{
		Q_EMIT TargetChanged();
	}
}

void FSeekControl::Cancel()
{
	Timer.stop();
	Current.reset();
	Next.reset();
	Q_EMIT TargetChanged();
}

std::optional<double> FSeekControl::GetTarget() const
{
	const std::optional<FSeek>& Last = Next ? Next : Current;
	return Last ? std::optional(Last->Position) : std::nullopt;
}

} // namespace Flitmark
