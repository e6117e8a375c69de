#include "Playback/CommentReading.h"

#include "Comments/CommentsInput.h"
#include "Playback/FileMessages.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace Flitmark
{

namespace
{

constexpr const char* Context = "Flitmark::CommentReading";

/** Messages are "FILE: ..." or "FILE:LINE: ..."; which file is told already. */
QString WithoutPath(const std::string& InMessage, const std::string& InPath)
{
	std::string Rest = InMessage;
	if (Rest.starts_with(InPath + ":"))
	{
		Rest.erase(0, InPath.size() + 1);
	}
	const QString Told = QString::fromStdString(Rest).trimmed();
	static const QRegularExpression Line("^(\\d+): ");
	const QRegularExpressionMatch Place = Line.match(Told);
	return Place.hasMatch() ? QCoreApplication::translate(Context, "line %1: %2")
								  .arg(Place.captured(1), TranslateFileMessage(Told.mid(Place.capturedLength())))
							: TranslateFileMessage(Told);
}

QString DescribeFault(const FDocumentFault& InFault)
{
	const QString Reason = TranslateFileMessage(QString::fromStdString(InFault.Reason));
	return InFault.Line > 0 ? QCoreApplication::translate(Context, "line %1, column %2: %3.")
								  .arg(InFault.Line)
								  .arg(InFault.Column)
								  .arg(Reason)
							: Reason + '.';
}

} // namespace

bool ReadComments(const QString& InPath, const std::atomic<bool>& InCancel, FLoadedComments& OutComments,
				  QString& OutReason)
{
	const std::string Path = InPath.toStdString();
	std::string Error;
	std::optional<FDocumentFault> Fault;
	std::optional<FCommentsFile> File = LoadComments(Path, {}, Error, &Fault);
	if (InCancel)
	{
		return false;
	}
	if (!File)
	{
		OutReason = Fault ? DescribeFault(*Fault) : WithoutPath(Error, Path) + '.';
		return false;
	}
	for (const std::string& Note : File->MakeNotes())
	{
		OutComments.Notes.append(WithoutPath(Note, Path));
	}
	OutComments.Path = InPath;
	OutComments.Text = std::move(File->Text);
	OutComments.Document = std::move(File->Document);
	return true;
}

} // namespace Flitmark
