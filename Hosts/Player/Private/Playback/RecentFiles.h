#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QSettings>
#include <QString>
#include <qqmlintegration.h>

namespace Flitmark
{

/** A video that was played, and what it was played with. */
struct FRecentFile
{
	/** A path or an address. */
	QString Video;
	QString Title;

	/** The comment file last used with it; empty for none. */
	QString Comments;

	/** Where it was left, in seconds; 0 at the start and at the end. */
	double Position = 0.0;
};

/** The videos played last, newest first; each change is written to the settings at once. */
class FRecentFiles final : public QAbstractListModel
{
	Q_OBJECT
	QML_ANONYMOUS

public:
	static constexpr int MaxFiles = 10;

	/** InOutSettings outlives the list. */
	explicit FRecentFiles(QSettings& InOutSettings);

	/** Adds it at the top, or moves it there. */
	void Add(const FRecentFile& InFile);
	/** Does nothing if the video is not in the list. */
	void SetComments(const QString& InVideo, const QString& InComments);
	void SetPosition(const QString& InVideo, double InSeconds);
	/** Null if the video is not in the list; valid until the next change. */
	const FRecentFile* Find(const QString& InVideo) const;

	/** Null if the list is empty. */
	const FRecentFile* GetLatest() const { return Files.isEmpty() ? nullptr : &Files.first(); }

	Q_INVOKABLE void Remove(int InRow);
	Q_INVOKABLE void Clear();
	/** Checks again which of them still exist. */
	Q_INVOKABLE void Refresh();

	int rowCount(const QModelIndex& InParent = {}) const override;
	QVariant data(const QModelIndex& InIndex, int InRole) const override;
	QHash<int, QByteArray> roleNames() const override;

private:
	enum ERole
	{
		VideoRole = Qt::UserRole,
		TitleRole,
		PlaceRole,
		CommentsRole,
		MissingRole
	};

	void Load();
	void Save();
	qsizetype FindRow(const QString& InVideo) const;

	QSettings& Settings;
	QList<FRecentFile> Files;
};

} // namespace Flitmark
