#include "Playback/PlayerText.h"

#include <QCoreApplication>
#include <QStringList>

#include <cmath>

namespace Flitmark
{

namespace
{

/** The context of these messages in the translations. */
struct FPlaybackText
{
	Q_DECLARE_TR_FUNCTIONS(Flitmark::PlayerText)
};

/** No position of a video or a long stream gets there. */
constexpr double MaxSeconds = 1e9;

/** Digits, in the last part also with a fraction. */
std::optional<double> ParsePart(const QString& InText, bool bInLast)
{
	for (const QChar Letter : InText)
	{
		if ((Letter < '0' || Letter > '9') && !(bInLast && Letter == '.'))
		{
			return std::nullopt;
		}
	}
	bool bRead = false;
	const double Value = InText.toDouble(&bRead);
	return bRead && Value < MaxSeconds ? std::optional(Value) : std::nullopt;
}

} // namespace

QString FormatTime(double InSeconds)
{
	const bool bUsable = std::isfinite(InSeconds) && InSeconds > 0.0 && InSeconds < MaxSeconds;
	const qint64 Whole = bUsable ? static_cast<qint64>(InSeconds) : 0;
	const qint64 Hours = Whole / 3600;
	const qint64 Minutes = Whole / 60 % 60;
	const QString Seconds = QString::number(Whole % 60).rightJustified(2, '0');
	if (Hours == 0)
	{
		return QString::number(Minutes) + ':' + Seconds;
	}
	return QString::number(Hours) + ':' + QString::number(Minutes).rightJustified(2, '0') + ':' + Seconds;
}

std::optional<double> ParseTime(const QString& InText)
{
	const QStringList Parts = InText.split(':');
	if (Parts.size() > 3)
	{
		return std::nullopt;
	}
	double Sum = 0.0;
	for (qsizetype Index = 0; Index < Parts.size(); ++Index)
	{
		const std::optional<double> Part = ParsePart(Parts[Index], Index + 1 == Parts.size());
		if (!Part || (Index > 0 && *Part >= 60.0))
		{
			return std::nullopt;
		}
		Sum = Sum * 60.0 + *Part;
	}
	return Sum < MaxSeconds ? std::optional(Sum) : std::nullopt;
}

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
	const QString Sentence = InReason + '.';
	return bInAddress ? Sentence + ' ' + FPlaybackText::tr("Check the address and the connection.") : Sentence;
}

} // namespace Flitmark
