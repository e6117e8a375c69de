#pragma once

#include "Stage/CommentDocument.h"

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

/** What came of loading. */
struct FLoadOutcome
{
	/** Null where none of the files gave comments. */
	std::shared_ptr<FLoadedComments> Comments;

	/** Which file could not be read, and why; both empty where that is no news. */
	QString FailedPath;
	QString Reason;
};

/** Reads comment files on a thread of its own. What is asked for last counts, earlier work is given up. */
class FCommentLoader final : public QObject
{
	Q_OBJECT

public:
	FCommentLoader();
	/** Gives up what is under way; waits until its thread has noticed. */
	~FCommentLoader() override;

	/** A file that the viewer has chosen. */
	void Load(const QString& InPath);
	/** The first of these that has comments; those that are something else are passed over without a word. */
	void LoadFirst(const QStringList& InPaths);
	void Cancel();

	bool IsBusy() const { return Current != nullptr; }

Q_SIGNALS:
	/** On the thread of this object, once for each load that was not given up. */
	void Finished(const Flitmark::FLoadOutcome& InOutcome);

private:
	using FCancel = std::shared_ptr<std::atomic<bool>>;

	void Start(const QStringList& InPaths, bool bInChosen);
	void Finish(const FCancel& InCancel, const FLoadOutcome& InOutcome);

	QThreadPool Pool;
	/** Set to true to give up; null where nothing is under way. */
	FCancel Current;
};

} // namespace Flitmark
