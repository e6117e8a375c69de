#include "Playback/MessageList.h"

namespace Flitmark
{

void FMessageList::Add(const QString& InText)
{
	if (const qsizetype Row = Texts.indexOf(InText); Row >= 0)
	{
		Dismiss(static_cast<int>(Row));
	}
	while (Texts.size() >= MaxMessages)
	{
		Dismiss(0);
	}
	const int Row = static_cast<int>(Texts.size());
	beginInsertRows({}, Row, Row);
	Texts.append(InText);
	endInsertRows();
}

void FMessageList::Clear()
{
	while (!Texts.isEmpty())
	{
		Dismiss(0);
	}
}

void FMessageList::Dismiss(int InRow)
{
	if (InRow < 0 || InRow >= Texts.size())
	{
		return;
	}
	beginRemoveRows({}, InRow, InRow);
	Texts.removeAt(InRow);
	endRemoveRows();
}

int FMessageList::rowCount(const QModelIndex& InParent) const
{
	return InParent.isValid() ? 0 : static_cast<int>(Texts.size());
}

QVariant FMessageList::data(const QModelIndex& InIndex, int InRole) const
{
	if (InRole != Qt::DisplayRole || InIndex.row() < 0 || InIndex.row() >= Texts.size())
	{
		return {};
	}
	return Texts[InIndex.row()];
}

QHash<int, QByteArray> FMessageList::roleNames() const
{
	return {{Qt::DisplayRole, "message"}};
}

} // namespace Flitmark
