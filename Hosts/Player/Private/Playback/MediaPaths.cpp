#include "Playback/MediaPaths.h"

#include "Formats/CommentFormat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Flitmark
{

namespace
{

/** Ends of names that comments come with, the likeliest first. */
constexpr const char* CommentEnds[] = {"json", "xml", "pb", "protobuf", "bin", "jsonl"};

constexpr const char* Context = "Flitmark::MediaPaths";

/** Smaller is likelier; negative where the file is none of the video's. */
int RankBeside(const QString& InName, const QString& InVideoBase, const QStringList& InLanguages)
{
	const QString End = InName.section('.', -1).toLower();
	const auto Found = std::find(std::begin(CommentEnds), std::end(CommentEnds), End);
	if (Found == std::end(CommentEnds))
	{
		return -1;
	}
	constexpr int Step = std::size(CommentEnds);
	const int EndRank = static_cast<int>(Found - std::begin(CommentEnds));
	const QString Base = InName.chopped(End.size() + 1);
	if (Base == InVideoBase)
	{
		return EndRank;
	}
	const QString Word = Base.mid(InVideoBase.size() + 1);
	if (Word.isEmpty() || Word.contains('.'))
	{
		return -1;
	}
	const qsizetype Language = InLanguages.indexOf(Word);
	return EndRank + Step * (1 + static_cast<int>(Language >= 0 ? Language : InLanguages.size()));
}

} // namespace

bool IsAddress(const QString& InText)
{
	const qsizetype Scheme = InText.indexOf("://");
	return Scheme > 0 && std::all_of(InText.begin(), InText.begin() + Scheme,
									 [](QChar InLetter)
									 {
										 return (InLetter.unicode() < 0x80 && InLetter.isLetterOrNumber()) ||
												InLetter == '+' || InLetter == '-' || InLetter == '.';
									 });
}

QString ToPathOrAddress(const QUrl& InUrl)
{
	return InUrl.isLocalFile() ? QDir::cleanPath(InUrl.toLocalFile()) : InUrl.toString(QUrl::FullyEncoded);
}

QString ToPathOrAddress(const QString& InText)
{
	if (InText.isEmpty())
	{
		return {};
	}
	if (InText.startsWith("file://"))
	{
		return ToPathOrAddress(QUrl(InText));
	}
	return IsAddress(InText) ? InText : QDir::cleanPath(QFileInfo(InText).absoluteFilePath());
}

QString NameOf(const QString& InPathOrAddress)
{
	if (!IsAddress(InPathOrAddress))
	{
		return QFileInfo(InPathOrAddress).fileName();
	}
	const QUrl Url(InPathOrAddress);
	const QString Name = Url.fileName(QUrl::FullyDecoded);
	return !Name.isEmpty() ? Name : Url.host().isEmpty() ? InPathOrAddress : Url.host();
}

QString FindFileFault(const QString& InPathOrAddress)
{
	if (IsAddress(InPathOrAddress))
	{
		return {};
	}
	const QFileInfo Info(InPathOrAddress);
	if (!Info.exists())
	{
		return QCoreApplication::translate(Context, "there is no such file. Has it been moved or renamed?");
	}
	if (Info.isDir())
	{
		return QCoreApplication::translate(Context, "it is a folder. Choose a file in it.");
	}
	if (!Info.isReadable())
	{
		return QCoreApplication::translate(Context, "you are not allowed to read it. Change the file's permissions.");
	}
	if (Info.isFile() && Info.size() == 0)
	{
		return QCoreApplication::translate(Context, "the file is empty. Has it been copied in full?");
	}
	return {};
}

bool IsCommentFile(const QString& InPath)
{
	return !IsAddress(InPath) && DetectFile(InPath.toStdString()) != nullptr;
}

QStringList FindCommentsBeside(const QString& InVideo, const QStringList& InLanguages)
{
	if (IsAddress(InVideo))
	{
		return {};
	}
	const QFileInfo Video(InVideo);
	const QString Base = Video.completeBaseName();
	QList<std::pair<int, QString>> Found;
	for (const QString& Name : Video.dir().entryList(QDir::Files | QDir::Readable, QDir::Name))
	{
		if (!Name.startsWith(Base + '.') || Name == Video.fileName())
		{
			continue;
		}
		if (const int Rank = RankBeside(Name, Base, InLanguages); Rank >= 0)
		{
			Found.append({Rank, Video.dir().filePath(Name)});
		}
	}
	std::stable_sort(Found.begin(), Found.end(), [](const auto& A, const auto& B) { return A.first < B.first; });
	QStringList Paths;
	for (const auto& [Rank, Path] : Found)
	{
		Paths.append(Path);
	}
	return Paths;
}

} // namespace Flitmark
