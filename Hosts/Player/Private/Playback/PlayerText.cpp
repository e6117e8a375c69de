#include "Playback/PlayerText.h"

#include <QCoreApplication>

namespace Flitmark
{

QString FormatSpeed(double InSpeed)
{
	return QString::number(InSpeed, 'g', 3) + QChar(0xD7);
}

QString DescribePlaybackFault(const QString& InReason, bool bInAddress)
{
	constexpr const char* Context = "Flitmark::PlayerText";
	if (InReason.contains("recognize"))
	{
		return QCoreApplication::translate(Context, "it is no video or sound that is known here, or it is damaged.");
	}
	if (InReason.startsWith("no audio or video data played"))
	{
		return QCoreApplication::translate(Context, "there is no picture or sound in it that can be decoded.");
	}
	const QString Told = InReason + '.';
	return bInAddress ? Told + ' ' + QCoreApplication::translate(Context, "Check the address and the connection.")
					  : Told;
}

} // namespace Flitmark
