#pragma once

#include "Playback/CommentLoader.h"

#include <QPolygonF>
#include <qqmlintegration.h>

#include <vector>

namespace Flitmark
{

class FOverlay;

/** The comments that fly over the video: read, given to the overlay, and summed up for the window. */
class FCommentSession final : public QObject
{
	Q_OBJECT
	QML_ANONYMOUS

	Q_PROPERTY(bool loading READ IsLoading NOTIFY Changed)
	/** The file's; empty for none. */
	Q_PROPERTY(QString name READ GetName NOTIFY Changed)
	Q_PROPERTY(QString countText READ GetCountText NOTIFY Changed)
	/** How many comments come when: an outline in a square of side 1, which stands on y = 1. Empty where none do. */
	Q_PROPERTY(QPolygonF density READ GetDensity NOTIFY DensityChanged)
	Q_PROPERTY(bool hasDensity READ HasDensity NOTIFY DensityChanged)

public:
	/** InOverlay outlives the session. */
	explicit FCommentSession(FOverlay& InOverlay);

	/** A file that the viewer has chosen. The comments there are stay until it has been read. */
	Q_INVOKABLE void Open(const QString& InPath);
	/** The first of these files that has comments, without a word about the others. */
	void OpenFirst(const QStringList& InPaths);
	void Close();
	/** The video's, in seconds, for the density; 0 where it is not known. */
	void SetDuration(double InSeconds);

	bool IsLoading() const { return Loader.IsBusy(); }
	/** No comments, and none to come. */
	bool IsEmpty() const { return Path.isEmpty() && !IsLoading(); }
	const QString& GetPath() const { return Path; }
	QString GetName() const;
	int GetCount() const { return static_cast<int>(SpawnTicks.size()); }
	QString GetCountText() const;
	const QPolygonF& GetDensity() const { return Density; }
	bool HasDensity() const { return !Density.isEmpty(); }

Q_SIGNALS:
	void Changed();
	void DensityChanged();
	/** The overlay has a file's comments now. InNotes: what the viewer should know about it. */
	void Loaded(const QStringList& InNotes);
	/** InMessage: why a file was not read. */
	void Failed(const QString& InMessage);

private:
	void Finish(const FLoadOutcome& InOutcome);
	void Show(FLoadedComments& InOutComments);
	void UpdateDensity();

	FOverlay& Overlay;
	FCommentLoader Loader;
	QString Path;
	/** Of all comments that are ever due. */
	std::vector<int64> SpawnTicks;
	double Duration = 0.0;
	QPolygonF Density;
};

} // namespace Flitmark
