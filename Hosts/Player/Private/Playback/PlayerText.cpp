#include "Playback/PlayerText.h"

#include "Playback/FileMessages.h"

#include <QCoreApplication>

namespace Flitmark
{

namespace
{

/** The context of these messages in the translations. */
struct FPlaybackText
{
	Q_DECLARE_TR_FUNCTIONS(Flitmark::PlayerText)
};

} // namespace

QString FormatSpeed(double InSpeed)
{
	return QString::number(InSpeed, 'g', 3) + QChar(0xD7);
}

QString DescribePlaybackFault(const QString& InReason, bool bInAddress)
{
	if (InReason.contains("recognize"))
	{
		return FPlaybackText::tr("the format is unknown, or the file is damaged.");
	}
	if (InReason.startsWith("no audio or video data played"))
	{
		return FPlaybackText::tr("it has no video or audio that can be decoded.");
	}
	const QString Sentence = TranslateFileMessage(InReason) + '.';
	return bInAddress ? Sentence + ' ' + FPlaybackText::tr("Check the address and the connection.") : Sentence;
}

} // namespace Flitmark
