#include "Playback/RecentFiles.h"

#include "Playback/MediaPaths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Flitmark
{

namespace
{

/** The folder, with the home folder as "~"; an address as it is. */
QString DescribePlace(const QString& InVideo)
{
	if (IsAddress(InVideo))
	{
		return InVideo;
	}
	const QString Folder = QFileInfo(InVideo).path();
	const QString Home = QDir::homePath();
	const bool bAtHome = Folder == Home || Folder.startsWith(Home + '/');
	return bAtHome ? "~" + Folder.mid(Home.size()) : Folder;
}

} // namespace

FRecentFiles::FRecentFiles(QSettings& InOutSettings)
	: Settings(InOutSettings)
{
	Load();
}

void FRecentFiles::Load()
{
	const int Num = std::min(Settings.beginReadArray("recent"), MaxFiles);
	for (int Index = 0; Index < Num; ++Index)
	{
		Settings.setArrayIndex(Index);
		const FRecentFile File{Settings.value("video").toString(), Settings.value("title").toString(),
							   Settings.value("comments").toString(), Settings.value("position").toDouble()};
		if (!File.Video.isEmpty() && FindRow(File.Video) < 0)
		{
			Files.append(File);
		}
	}
	Settings.endArray();
}

void FRecentFiles::Save()
{
	Settings.remove("recent");
	Settings.beginWriteArray("recent", static_cast<int>(Files.size()));
	for (int Index = 0; Index < Files.size(); ++Index)
	{
		Settings.setArrayIndex(Index);
		Settings.setValue("video", Files[Index].Video);
		Settings.setValue("title", Files[Index].Title);
		Settings.setValue("comments", Files[Index].Comments);
		Settings.setValue("position", Files[Index].Position);
	}
	Settings.endArray();
}

qsizetype FRecentFiles::FindRow(const QString& InVideo) const
{
	const auto Found =
		std::find_if(Files.begin(), Files.end(), [&](const FRecentFile& InFile) { return InFile.Video == InVideo; });
	return Found == Files.end() ? -1 : Found - Files.begin();
}

const FRecentFile* FRecentFiles::Find(const QString& InVideo) const
{
	const qsizetype Row = FindRow(InVideo);
	return Row < 0 ? nullptr : &Files[Row];
}

void FRecentFiles::Add(const FRecentFile& InFile)
{
	beginResetModel();
	if (const qsizetype Row = FindRow(InFile.Video); Row >= 0)
	{
		Files.removeAt(Row);
	}
	Files.prepend(InFile);
	while (Files.size() > MaxFiles)
	{
		Files.removeLast();
	}
	endResetModel();
	Save();
}

void FRecentFiles::SetComments(const QString& InVideo, const QString& InComments)
{
	if (const qsizetype Row = FindRow(InVideo); Row >= 0)
	{
		Files[Row].Comments = InComments;
		Q_EMIT dataChanged(index(static_cast<int>(Row)), index(static_cast<int>(Row)));
		Save();
	}
}

void FRecentFiles::SetPosition(const QString& InVideo, double InSeconds)
{
	if (const qsizetype Row = FindRow(InVideo); Row >= 0)
	{
		Files[Row].Position = InSeconds;
		Save();
	}
}

void FRecentFiles::Remove(int InRow)
{
	if (InRow < 0 || InRow >= Files.size())
	{
		return;
	}
	beginRemoveRows({}, InRow, InRow);
	Files.removeAt(InRow);
	endRemoveRows();
	Save();
}

void FRecentFiles::Clear()
{
	beginResetModel();
	Files.clear();
	endResetModel();
	Save();
}

void FRecentFiles::Refresh()
{
	if (!Files.isEmpty())
	{
		Q_EMIT dataChanged(index(0), index(static_cast<int>(Files.size()) - 1), {MissingRole});
	}
}

int FRecentFiles::rowCount(const QModelIndex& InParent) const
{
	return InParent.isValid() ? 0 : static_cast<int>(Files.size());
}

QVariant FRecentFiles::data(const QModelIndex& InIndex, int InRole) const
{
	if (InIndex.row() < 0 || InIndex.row() >= Files.size())
	{
		return {};
	}
	const FRecentFile& File = Files[InIndex.row()];
	switch (InRole)
	{
	case VideoRole:
		return File.Video;
	case TitleRole:
		return File.Title.isEmpty() ? NameOf(File.Video) : File.Title;
	case PlaceRole:
		return DescribePlace(File.Video);
	case CommentsRole:
		return File.Comments.isEmpty() ? QString() : NameOf(File.Comments);
	case MissingRole:
		return !IsAddress(File.Video) && !QFileInfo::exists(File.Video);
	default:
		return {};
	}
}

QHash<int, QByteArray> FRecentFiles::roleNames() const
{
	return {{VideoRole, "video"},
			{TitleRole, "videoTitle"},
			{PlaceRole, "place"},
			{CommentsRole, "comments"},
			{MissingRole, "missing"}};
}

} // namespace Flitmark
