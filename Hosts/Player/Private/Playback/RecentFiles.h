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

	/** The comments' file last used with it; empty for none. */
	QString Comments;

	/** Where it was left, in seconds; 0 at the start and at the end. */
	double Position = 0.0;
};

/** The videos played last, the newest first; each change is kept in the settings at once. */
class FRecentFiles final : public QAbstractListModel
{
	Q_OBJECT
	QML_ANONYMOUS

public:
	static constexpr int MaxFiles = 10;

	/** InOutSettings: outlives the list. */
	explicit FRecentFiles(QSettings& InOutSettings);

	/** To the top. */
	void Add(const FRecentFile& InFile);
	/** Nothing happens where the video is not in the list. */
	void SetComments(const QString& InVideo, const QString& InComments);
	void SetPosition(const QString& InVideo, double InSeconds);
	/** Null where the video is not in the list; valid until the next change. */
	const FRecentFile* Find(const QString& InVideo) const;

	/** Null where the list is empty. */
	const FRecentFile* GetLatest() const { return Files.isEmpty() ? nullptr : &Files.first(); }

	Q_INVOKABLE void Remove(int InRow);
	Q_INVOKABLE void Clear();
	/** Looks again which of them are still there. */
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
