#pragma once

#include "Formats/CommentDocument.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace Flitmark
{

/** A file's comments, ready for the overlay. */
struct FLoadedComments
{
	QString Path;

	FString Text;
	FCommentDocument Document;

	/** What the viewer should know about the file, one thing a line. */
	QStringList Notes;
};

/** The result of a load. */
struct FLoadOutcome
{
	/** Null if none of the files had comments. */
	std::shared_ptr<FLoadedComments> Comments;

	/** Which file could not be read, and why; both empty if nobody needs to know. */
	QString FailedPath;
	QString Reason;
};

/** Reads comment files on a worker thread. A new load cancels the one before. */
class FCommentLoader final : public QObject
{
	Q_OBJECT

public:
	FCommentLoader();
	/** Cancels the load under way, and waits for its thread. */
	~FCommentLoader() override;

	/** A file that the viewer has chosen. */
	void Load(const QString& InPath);
	/** The first of these that has comments; files of another kind are skipped silently. */
	void LoadFirst(const QStringList& InPaths);
	void Cancel();

	bool IsBusy() const { return Current != nullptr; }

Q_SIGNALS:
	/** On the thread of this object, once for each load that was not canceled. */
	void Finished(const Flitmark::FLoadOutcome& InOutcome);

private:
	using FCancel = std::shared_ptr<std::atomic<bool>>;

	void Start(const QStringList& InPaths, bool bInChosen);
	void Finish(const FCancel& InCancel, const FLoadOutcome& InOutcome);

	QThreadPool Pool;
	/** Set to true to cancel; null when idle. */
	FCancel Current;
};

} // namespace Flitmark
