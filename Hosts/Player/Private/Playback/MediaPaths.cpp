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

/** Extensions of comment files, the likeliest first. */
constexpr const char* CommentExtensions[] = {"json", "xml", "pb", "protobuf", "bin", "jsonl"};

/** The context of these messages in the translations. */
struct FPathText
{
	Q_DECLARE_TR_FUNCTIONS(Flitmark::MediaPaths)
};

/** Smaller is likelier; negative if the file doesn't belong to the video. */
int RankBeside(const QString& InName, const QString& InVideoBase, const QStringList& InLanguages)
{
	const QString End = InName.section('.', -1).toLower();
	const auto Found = std::find(std::begin(CommentExtensions), std::end(CommentExtensions), End);
	if (Found == std::end(CommentExtensions))
	{
		return -1;
	}
	constexpr int Step = std::size(CommentExtensions);
	const int EndRank = static_cast<int>(Found - std::begin(CommentExtensions));
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
		return FPathText::tr("no such file. Was it moved or renamed?");
	}
	if (Info.isDir())
	{
		return FPathText::tr("it's a folder. Choose a file in it.");
	}
	if (!Info.isReadable())
	{
		return FPathText::tr("you don't have permission to read it. Change the file's permissions.");
	}
	if (Info.isFile() && Info.size() == 0)
	{
		return FPathText::tr("the file is empty. Was it copied completely?");
	}
	return {};
}

bool IsCommentFile(const QString& InPath)
{
	return !IsAddress(InPath) && DetectFile(InPath.toStdString()) != nullptr;
}

bool IsSubtitleFile(const QString& InPathOrAddress)
{
	static const QStringList Endings{"srt", "ass", "ssa", "vtt"};
	return Endings.contains(QFileInfo(NameOf(InPathOrAddress)).suffix().toLower());
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
