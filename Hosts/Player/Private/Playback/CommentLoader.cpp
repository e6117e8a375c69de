#include "Playback/CommentLoader.h"

#include "Playback/CommentReading.h"
#include "Playback/MediaPaths.h"

#include <utility>

namespace Flitmark
{

namespace
{

FLoadOutcome LoadFiles(const QStringList& InPaths, bool bInChosen, const std::atomic<bool>& InCancel)
{
	FLoadOutcome Outcome;
	for (const QString& Path : InPaths)
	{
		if (InCancel)
		{
			break;
		}
		if (!bInChosen && !IsCommentFile(Path))
		{
			continue;
		}
		auto Comments = std::make_shared<FLoadedComments>();
		QString Reason;
		if (!ReadComments(Path, InCancel, *Comments, Reason))
		{
			Outcome.FailedPath = Path;
			Outcome.Reason = Reason;
			continue;
		}
		if (bInChosen || !Comments->Document.GetEntries().empty())
		{
			return {std::move(Comments), {}, {}};
		}
	}
	return Outcome;
}

} // namespace

FCommentLoader::FCommentLoader()
{
	// Two, so that a load can start before a canceled one has ended.
	Pool.setMaxThreadCount(2);
}

FCommentLoader::~FCommentLoader()
{
	Cancel();
	Pool.waitForDone();
}

void FCommentLoader::Load(const QString& InPath)
{
	Start({InPath}, true);
}

void FCommentLoader::LoadFirst(const QStringList& InPaths)
{
	Start(InPaths, false);
}

void FCommentLoader::Cancel()
{
	if (Current)
	{
		*std::exchange(Current, nullptr) = true;
	}
}

void FCommentLoader::Start(const QStringList& InPaths, bool bInChosen)
{
	Cancel();
	Current = std::make_shared<std::atomic<bool>>(false);
	Pool.start(
		[this, InPaths, bInChosen, Mine = Current]
		{
			const FLoadOutcome Outcome = LoadFiles(InPaths, bInChosen, *Mine);
			QMetaObject::invokeMethod(
				this, [this, Mine, Outcome] { Finish(Mine, Outcome); }, Qt::QueuedConnection);
		});
}

void FCommentLoader::Finish(const FCancel& InCancel, const FLoadOutcome& InOutcome)
{
	if (InCancel == Current)
	{
		Current.reset();
		Q_EMIT Finished(InOutcome);
	}
}

} // namespace Flitmark
