#include "TestMedia.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTest>

namespace Flitmark
{

void RunFFmpeg(const QStringList& InArguments)
{
	QProcess FFmpeg;
	FFmpeg.start("ffmpeg", QStringList{"-nostdin", "-loglevel", "error", "-y"} + InArguments);
	QVERIFY(FFmpeg.waitForFinished(60'000));
	QCOMPARE(FFmpeg.exitCode(), 0);
}

void MakeVideo(const QString& InPath, const QString& InFilter)
{
	RunFFmpeg({"-f", "lavfi", "-i", "color=0x203050:s=640x360:r=25:d=60," + InFilter, "-c:v", "libx264", "-preset",
			   "ultrafast", "-g", "25", "-pix_fmt", "yuv420p", InPath});
}

void Write(const QString& InPath, const QByteArray& InText)
{
	QFile File(InPath);
	QVERIFY(File.open(QIODevice::WriteOnly));
	File.write(InText);
}

QByteArray MakeComment(double InSeconds, const char* InText, int InMode, const char* InColor)
{
	return "{\"danmaku_spawn_time\": " + QByteArray::number(qint64(InSeconds * 1e7)) + ", \"danmaku_content\": \"" +
		   InText + "\", \"danmaku_mode\": " + QByteArray::number(InMode) +
		   ", \"danmaku_font_size\": 48, \"danmaku_font_color\": \"" + InColor + "\"}";
}

} // namespace Flitmark
