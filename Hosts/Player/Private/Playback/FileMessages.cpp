#include "Playback/FileMessages.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <vector>

namespace Flitmark
{

namespace
{

/** What readers of comments and media say, with what differs in places; the most special first. */
constexpr const char* Patterns[] = {
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "entry %1: %2"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 entry is broken and left out"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 entries are broken and left out"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 comment is damaged, but could be used"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 comments are damaged, but could be used"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 entry is no comment for viewers and not shown: %2"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 entries are no comments for viewers and not shown: %2"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 comment is not served: %2"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 comments are not served: %2"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "shown otherwise than meant: %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 comment is left out, because more than %2 come in the same second"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages",
					  "%1 comments are left out, because more than %2 come in the same second"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 from left to right"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 positioned"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 pieces of positioned drawings"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 that draw by a program"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 paid"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 of unknown kinds"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 from left to right, which scroll"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 positioned, which stand at the top"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 paid, which stand at the top"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 pictures within texts, of which the names are shown"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1 of many lines, which are made smaller to fit"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is a folder, not a file"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is empty"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "cannot be opened: %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "cannot be read: %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "%1: cannot be written: %2"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is larger than 2 GiB, which is more than can be read"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "Permission denied"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "No such file or directory"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "Input/output error"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "No space left on device"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "Read-only file system"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "cannot be unpacked: there is not enough memory"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "its compressed data is damaged: everything after the damage is lost"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "its compressed data ends early: everything after its end is lost"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is in no known format of comments; these are known: %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has nothing but blanks at its beginning"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages",
					  "begins with nothing but zeros: it is damaged, or was never written; get it anew"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is %1, not comments"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is %1; unpack it first"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is JSON, or looks like it, but in no known form of comments"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is JSON, but in no known form of comments; it has %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is JSON with no comments in it: its list \"%1\" is empty"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is JSON that looks like %1; that is not read"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "not JSON: %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "it has no list of comments named \"datas\""),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "its \"datas\" is not a list of comments"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages",
					  "the file ends early: closing brackets are missing, and comments before them may be too"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages",
					  "the file ends early: its last end tag is missing, and perhaps comments before it"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "the file ends in the middle of this entry"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is a bare value, not a comment"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages",
					  "its text contains characters that JSON does not allow; they were repaired"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has no end"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has no readable time at the start of its attribute \"%1\""),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has no readable time in its attribute \"%1\""),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has no readable time"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has no readable \"%1\""),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has an impossible length; the rest of the file cannot be read"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is not a message field; the rest of the file cannot be read"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "has no text"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is damaged, and no text can be read"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "is damaged; everything before the damage was read"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "its end tag is missing; it was read up to the next element"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "Failed to open %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "HTTP error %1"),
	QT_TRANSLATE_NOOP("Flitmark::FileMessages", "loading failed"),
};

struct FPattern
{
	const char* English = nullptr;
	/** Matches a whole message; a group for each place. */
	QRegularExpression Expression;
};

std::vector<FPattern> MakePatterns()
{
	std::vector<FPattern> Made;
	for (const char* const English : Patterns)
	{
		QString Expression = QRegularExpression::escape(QString::fromLatin1(English));
		// Each place but the last ends where the pattern goes on for the first time.
		static const QRegularExpression Place("\\\\%[1-9]");
		Expression.replace(Place, "(.+?)");
		Made.push_back({English, QRegularExpression(QRegularExpression::anchoredPattern(Expression))});
	}
	return Made;
}

QString TranslateList(const QString& InEnglish);

QString TranslateWhole(const QString& InEnglish)
{
	static const std::vector<FPattern> Known = MakePatterns();
	for (const FPattern& Pattern : Known)
	{
		const QRegularExpressionMatch Match = Pattern.Expression.match(InEnglish);
		if (!Match.hasMatch())
		{
			continue;
		}
		QString Told = QCoreApplication::translate("Flitmark::FileMessages", Pattern.English);
		// From the last, so that a captured text may have a place's name in it.
		for (int Index = Match.lastCapturedIndex(); Index > 0; --Index)
		{
			Told.replace(QString("%%1").arg(Index), TranslateList(Match.captured(Index)));
		}
		return Told;
	}
	return InEnglish;
}

/** Also lists such as "3 paid, 1 positioned". */
QString TranslateList(const QString& InEnglish)
{
	static const QRegularExpression Comma(", (?=[0-9])");
	QStringList Told;
	for (const QString& Each : InEnglish.split(Comma))
	{
		Told.append(TranslateWhole(Each));
	}
	return Told.join(", ");
}

} // namespace

QString TranslateFileMessage(const QString& InEnglish)
{
	return TranslateWhole(InEnglish);
}

} // namespace Flitmark
