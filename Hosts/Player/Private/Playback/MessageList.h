#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <qqmlintegration.h>

namespace Flitmark
{

/** Errors that the viewer hasn't dismissed, the newest last; a fourth pushes out the oldest. */
class FMessageList : public QAbstractListModel
{
	Q_OBJECT
	QML_ANONYMOUS

public:
	static constexpr int MaxMessages = 3;

	using QAbstractListModel::QAbstractListModel;

	/** A text that is already there moves to the end. */
	void Add(const QString& InText);
	void Clear();
	Q_INVOKABLE void Dismiss(int InRow);

	int rowCount(const QModelIndex& InParent = {}) const override;
	QVariant data(const QModelIndex& InIndex, int InRole) const override;
	QHash<int, QByteArray> roleNames() const override;

private:
	QStringList Texts;
};

} // namespace Flitmark
