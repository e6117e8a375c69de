#include "PlayerInWindow.h"

#include "Components/TextBlock.h"
#include "Scene/Overlay.h"
#include "Playback/Player.h"
#include "Stage/Stage.h"
#include "WindowTestMain.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <algorithm>

namespace Flitmark
{

FPlayerOptions FPlayerInWindow::MakeOptions(const QString& InVideo, const QString& InComments) const
{
	FPlayerOptions Options;
	Options.Video = InVideo.isEmpty() ? QString() : Media.filePath(InVideo);
	Options.Comments = InComments.isEmpty() ? QString() : Media.filePath(InComments);
	Options.AudioOutput = "null";
	Options.SettingsFolder = Home->path();
	Options.SaveFolder = Home->filePath("saves");
	return Options;
}

void FPlayerInWindow::Open(const QString& InVideo, const QString& InComments)
{
	std::string Error;
	Player = FPlayerWindow::Create(MakeOptions(InVideo, InComments), Error);
	QVERIFY2(Player != nullptr, Error.c_str());
	Window = &Player->GetWindow();
	QVERIFY(Activate(*Window));
	if (!InVideo.isEmpty())
	{
		QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().IsLoaded(), Patience);
	}
	QTRY_VERIFY_WITH_TIMEOUT(!Player->GetPlayer().GetComments()->IsLoading(), Patience);
}

void FPlayerInWindow::PlayTo(double InPosition)
{
	Player->GetPlayer().SeekTo(InPosition - 1.0);
	Player->GetPlayer().SetPlaying(true);
	QTRY_VERIFY_WITH_TIMEOUT(!Player->GetPlayer().IsWaiting() && Player->GetPlayer().GetPosition() >= InPosition,
							 Patience);
}

void FPlayerInWindow::StopAt(double InPosition)
{
	PlayTo(InPosition);
	Player->GetPlayer().SetPlaying(false);
	QTRY_COMPARE_WITH_TIMEOUT(Player->GetOverlay().GetMeter().GetSprites().NumWaiting, 0, Patience);
	QTest::qWait(300);
}

void FPlayerInWindow::Drop(const QString& InPath)
{
	QMimeData Data;
	Data.setUrls({QUrl::fromLocalFile(InPath)});
	const QPoint Where(Window->width() / 2, Window->height() / 3);
	QDragEnterEvent Enter(Where, Qt::CopyAction, &Data, Qt::LeftButton, Qt::NoModifier);
	QCoreApplication::sendEvent(Window, &Enter);
	QVERIFY(Enter.isAccepted());
	QDropEvent Event(Where, Qt::CopyAction, &Data, Qt::LeftButton, Qt::NoModifier);
	QCoreApplication::sendEvent(Window, &Event);
	QVERIFY(Event.isAccepted());
}

void FPlayerInWindow::Type(const QString& InText)
{
	for (const QChar Each : InText)
	{
		QTest::keyClick(Window, Each.toLatin1());
	}
}

void FPlayerInWindow::Click(const char* InName)
{
	QTest::mouseClick(Window, Qt::LeftButton, {}, CenterOf(InName));
}

QQuickItem* FPlayerInWindow::Find(const char* InName) const
{
	QQuickItem* const Item = Window->findChild<QQuickItem*>(InName);
	if (Item == nullptr)
	{
		qFatal("no item %s", InName);
	}
	return Item;
}

QRect FPlayerInWindow::RectOf(const char* InName) const
{
	const QQuickItem* const Item = Find(InName);
	return Item->mapRectToScene(QRectF(0.0, 0.0, Item->width(), Item->height())).toRect();
}

QPoint FPlayerInWindow::CenterOf(const char* InName) const
{
	return RectOf(InName).center();
}

QImage FPlayerInWindow::Grab() const
{
	return Window->grabWindow().convertToFormat(QImage::Format_RGB32);
}

int FPlayerInWindow::CountPixels(QRgb InColor) const
{
	const QImage Image = Grab().copy(RectOf("Comments"));
	int Count = 0;
	for (int Y = 0; Y < Image.height(); ++Y)
	{
		for (int X = 0; X < Image.width(); ++X)
		{
			const QRgb Pixel = Image.pixel(X, Y);
			Count += std::abs(qRed(Pixel) - qRed(InColor)) + std::abs(qGreen(Pixel) - qGreen(InColor)) +
						 std::abs(qBlue(Pixel) - qBlue(InColor)) <
					 30;
		}
	}
	return Count;
}

bool FPlayerInWindow::IsOnCanvas(const char16_t* InText) const
{
	std::vector<FPaintComment> Comments;
	Player->GetOverlay().GetStage().CollectPaint(Comments);
	return std::ranges::any_of(Comments, [InText](const FPaintComment& InComment)
							   { return InComment.Text->GetText().ToString().Equals(InText); });
}

bool FPlayerInWindow::TellsOf(const QString& InWord) const
{
	const FMessageList& Messages = *Player->GetPlayer().GetMessages();
	for (int Row = 0; Row < Messages.rowCount(); ++Row)
	{
		if (Messages.data(Messages.index(Row), Qt::DisplayRole).toString().contains(InWord) ||
			Messages.data(Messages.index(Row), Qt::UserRole + 1).toString().contains(InWord))
		{
			return true;
		}
	}
	return false;
}

} // namespace Flitmark
