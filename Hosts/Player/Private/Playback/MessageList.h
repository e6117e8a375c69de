#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <qqmlintegration.h>

namespace Flitmark
{

/** What went wrong and was not yet put away by the viewer, the newest last; the oldest makes room for a fourth. */
class FMessageList : public QAbstractListModel
{
	Q_OBJECT
	QML_ANONYMOUS

public:
	static constexpr int MaxMessages = 3;

	using QAbstractListModel::QAbstractListModel;

	/** The same text again only comes to the end. */
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
