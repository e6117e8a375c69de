#include "Playback/CommentSession.h"

#include "Insight/CommentDensity.h"
#include "Misc/Timespan.h"
#include "Playback/MediaPaths.h"
#include "Scene/Overlay.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Flitmark
{

namespace
{

/** Points of the curve of density, and how far each is smoothed into its neighbors. */
constexpr std::size_t NumBins = 300;
constexpr double Smoothing = 2.5;

} // namespace

FCommentSession::FCommentSession(FOverlay& InOverlay)
	: Overlay(InOverlay)
{
	connect(&Loader, &FCommentLoader::Finished, this, &FCommentSession::Finish);
}

void FCommentSession::Open(const QString& InPath)
{
	const QString Chosen = ToPathOrAddress(InPath);
	const QString Fault =
		IsAddress(Chosen) ? tr("comments have to be in a file. Download them first.") : FindFileFault(Chosen);
	if (!Fault.isEmpty())
	{
		Q_EMIT Failed(tr("Can't read %1: %2").arg(NameOf(Chosen), Fault));
		return;
	}
	Loader.Load(Chosen);
	Q_EMIT Changed();
}

void FCommentSession::OpenFirst(const QStringList& InPaths)
{
	if (!InPaths.isEmpty())
	{
		Loader.LoadFirst(InPaths);
		Q_EMIT Changed();
	}
}

void FCommentSession::Close()
{
	Loader.Cancel();
	Path.clear();
	SpawnTicks.clear();
	Overlay.Clear();
	UpdateDensity();
	Q_EMIT Changed();
}

void FCommentSession::SetDuration(double InSeconds)
{
	if (std::exchange(Duration, InSeconds) != InSeconds)
	{
		UpdateDensity();
	}
}

QString FCommentSession::GetName() const
{
	return Path.isEmpty() ? QString() : NameOf(Path);
}

QString FCommentSession::GetCountText() const
{
	return GetCount() == 1 ? tr("1 comment") : tr("%L1 comments").arg(GetCount());
}

void FCommentSession::Finish(const FLoadOutcome& InOutcome)
{
	if (!InOutcome.Reason.isEmpty())
	{
		Q_EMIT Failed(tr("Can't read %1: %2").arg(NameOf(InOutcome.FailedPath), InOutcome.Reason));
	}
	if (InOutcome.Comments)
	{
		Show(*InOutcome.Comments);
	}
	Q_EMIT Changed();
}

void FCommentSession::Show(FLoadedComments& InOutComments)
{
	Path = InOutComments.Path;
	SpawnTicks.clear();
	for (const FCommentEntry& Entry : InOutComments.Document.GetEntries())
	{
		if (Entry.IsReached())
		{
			SpawnTicks.push_back(Entry.SpawnTicks);
		}
	}
	Overlay.Load(std::move(InOutComments.Text), std::move(InOutComments.Document));
	UpdateDensity();
	Q_EMIT Loaded(InOutComments.Notes);
}

void FCommentSession::UpdateDensity()
{
	const auto DurationTicks = static_cast<int64>(Duration * static_cast<double>(ETimespan::TicksPerSecond));
	const std::vector<float> Bins = ComputeDensity(SpawnTicks, DurationTicks, NumBins, Smoothing);
	const float Highest = Bins.empty() ? 0.0f : *std::max_element(Bins.begin(), Bins.end());
	Density.clear();
	if (Highest > 0.0f)
	{
		const double Width = 1.0 / static_cast<double>(Bins.size());
		Density.append(QPointF(0.0, 1.0));
		// By its root, so that quiet times show beside the busiest second.
		for (std::size_t Index = 0; Index < Bins.size(); ++Index)
		{
			Density.append(
				QPointF((static_cast<double>(Index) + 0.5) * Width, 1.0 - std::sqrt(double{Bins[Index] / Highest})));
		}
		Density.append(QPointF(1.0, 1.0));
	}
	Q_EMIT DensityChanged();
}

} // namespace Flitmark
