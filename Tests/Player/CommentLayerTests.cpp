#include "Scene/CommentLayer.h"
#include "OverlayTestKit.h"
#include "WindowTestMain.h"

#include <QQuickWindow>
#include <QScreen>
#include <QtTest>

#include <cmath>
#include <random>

namespace Flitmark
{

namespace
{

constexpr QRgb Ground = qRgb(40, 90, 160);
/** Per channel: blending on a graphics card may round either way. */
constexpr int Tolerance = 3;

/** Blends a sprite over a plain background, with its corner on a device pixel. */
void Blend(QImage& InOutImage, const FSprite& InSprite, int InX, int InY)
{
	for (int Y = 0; Y < InSprite.Height; ++Y)
	{
		for (int X = 0; X < InSprite.Width; ++X)
		{
			const QPoint At(InX + X, InY + Y);
			if (!InOutImage.rect().contains(At))
			{
				continue;
			}
			const uint8* Source =
				InSprite.Pixels.data() +
				(static_cast<std::size_t>(Y) * static_cast<std::size_t>(InSprite.Width) + static_cast<std::size_t>(X)) *
					4;
			const QRgb Below = InOutImage.pixel(At);
			const auto Over = [Source](int InChannel, int InBelow)
			{
				return Source[InChannel] + InBelow * (255 - Source[3]) / 255;
			};
			InOutImage.setPixel(At, qRgb(Over(0, qRed(Below)), Over(1, qGreen(Below)), Over(2, qBlue(Below))));
		}
	}
}

/** Pixels that differ by more than the tolerance. */
int CountDifferences(const QImage& InOne, const QImage& InOther)
{
	int Count = 0;
	for (int Y = 0; Y < InOne.height(); ++Y)
	{
		for (int X = 0; X < InOne.width(); ++X)
		{
			const QRgb One = InOne.pixel(X, Y);
			const QRgb Other = InOther.pixel(X, Y);
			Count += std::abs(qRed(One) - qRed(Other)) > Tolerance ||
					 std::abs(qGreen(One) - qGreen(Other)) > Tolerance ||
					 std::abs(qBlue(One) - qBlue(Other)) > Tolerance;
		}
	}
	return Count;
}

/** A window with the layer in it, away from the corner. */
struct FLayerWindow
{
	FLayerWindow()
	{
		Window.setColor(QColor::fromRgb(Ground));
		Window.resize(800, 640);
		Layer = std::make_unique<FCommentLayer>(Window.contentItem());
		Layer->setPosition(QPointF(13.0, 7.0));
		Layer->setSize(QSizeF(700.0, 600.0));
	}

	QQuickWindow Window;
	std::unique_ptr<FCommentLayer> Layer;
};

} // namespace

class FCommentLayerTest : public QObject
{
	Q_OBJECT

private Q_SLOTS:
	void init();
	void cleanup();
	void StandingCommentsAreDrawnToThePixel_data();
	void StandingCommentsAreDrawnToThePixel();
	void MovingCommentsStandBetweenPixels();
	void NothingIsDrawnBesideTheItem();
	void CommentsGoAtOnce();
	void ASizeIsDrawnSharpOnceItLasts();
	void ComesBackAfterTheSceneGraphWent();
	void MovesToAnotherWindow();
	void EndsAtAnyMoment();

private:
	QImage Grab();
	/** What the window should show for the current scene; fixed comments only. */
	QImage Expect();
	bool ShowsWhatIsExpected() { return CountDifferences(Grab(), Expect()) == 0; }

	std::unique_ptr<FOverlay> Overlay;
	std::unique_ptr<FLayerWindow> Shown;
};

void FCommentLayerTest::init()
{
	std::string Error;
	Overlay = FOverlay::Create(Error);
	QVERIFY2(Overlay, Error.c_str());
	Shown = std::make_unique<FLayerWindow>();
	Shown->Layer->SetOverlay(Overlay.get());
	Shown->Window.show();
	QVERIFY(QTest::qWaitForWindowExposed(&Shown->Window));
}

void FCommentLayerTest::cleanup()
{
	if (Shown && Shown->Layer)
	{
		Shown->Layer->SetOverlay(nullptr);
	}
	Shown.reset();
	Overlay.reset();
}

QImage FCommentLayerTest::Grab()
{
	Shown->Layer->update();
	return Shown->Window.grabWindow().convertToFormat(QImage::Format_RGB32);
}

QImage FCommentLayerTest::Expect()
{
	const double Ratio = Overlay->GetDevicePixelRatio();
	const double Scale = Overlay->GetView().Scale.Y;
	QImage Image(Shown->Window.size() * Ratio, QImage::Format_RGB32);
	Image.fill(Ground);
	std::string Error;
	const std::unique_ptr<FTextEngine> Engine = FTextEngine::Create({}, Error);
	const QPointF Origin = Shown->Layer->mapToScene(QPointF()) * Ratio;
	for (const FSceneComment& Comment : Overlay->GetScene().GetComments())
	{
		const FSprite Sprite = Comment.Style->Style.Rasterize(*Engine, {Scale, Scale});
		Blend(Image, Sprite, static_cast<int>(std::round(Origin.x() + Comment.Position.X * Scale)) + Sprite.Left,
			  static_cast<int>(std::round(Origin.y() + Comment.Position.Y * Scale)) + Sprite.Top);
	}
	return Image;
}

void FCommentLayerTest::StandingCommentsAreDrawnToThePixel_data()
{
	QTest::addColumn<QString>("Text");
	QTest::addColumn<QString>("Color");
	QTest::addColumn<int>("FontSize");
	QTest::newRow("plain") << "Standing still"
						   << "#FFFFFF" << 24;
	QTest::newRow("half transparent") << "A veil"
									  << "#FF408080" << 40;
	QTest::newRow("dark") << "Ink"
						  << "#000000" << 31;
	QTest::newRow("large") << "Huge"
						   << "#20E040" << 120;
	QTest::newRow("wider than a texture") << QString("wide ").repeated(100) << "#FFFFFF" << 60;
}

void FCommentLayerTest::StandingCommentsAreDrawnToThePixel()
{
	QFETCH(QString, Text);
	QFETCH(QString, Color);
	QFETCH(int, FontSize);
	LoadComments(*Overlay, {{Text.toStdString(), 1, 0.0, Color.toStdString(), FontSize},
							{Text.toStdString(), 2, 0.0, Color.toStdString(), FontSize}});
	Overlay->RunFrame(0.01);
	QCOMPARE(Overlay->GetScene().GetComments().size(), std::size_t{2});
	// A wide one may extend beyond the item, which clips it, although the window has room for it.
	Shown->Layer->setClip(false);
	QTRY_COMPARE(CountDifferences(Grab(), Expect()), 0);
	QCOMPARE(Overlay->GetMeter().GetSprites().NumMade, 1);
	QVERIFY(!Overlay->GetMeter().GetSprites().bUndrawn);
}

void FCommentLayerTest::MovingCommentsStandBetweenPixels()
{
	LoadComments(*Overlay, {{"|", 0, 0.0, "#FFFFFF", 40}});
	Overlay->RunFrame(0.01);
	Overlay->RunFrame(0.5);
	QTRY_VERIFY(CountDifferences(Grab(), Expect()) < 1000 && Overlay->GetMeter().GetSprites().NumMade == 1);
	const double Scale = Overlay->GetView().Scale.Y;
	double Offset = 0.0;
	for (int Frame = 0; Frame < 8; ++Frame)
	{
		Overlay->RunFrame(0.0017);
		const QImage Image = Grab();
		// The center of what differs from the background.
		double Sum = 0.0;
		double Weighted = 0.0;
		for (int Y = 0; Y < Image.height(); ++Y)
		{
			for (int X = 0; X < Image.width(); ++X)
			{
				const double Weight = std::abs(qRed(Image.pixel(X, Y)) - qRed(Ground));
				Sum += Weight;
				Weighted += Weight * X;
			}
		}
		QVERIFY(Sum > 0.0);
		const double Center = Weighted / Sum;
		const double Place = Overlay->GetScene().GetComments().front().Position.X * Scale;
		Offset = Frame == 0 ? Center - Place : Offset;
		QVERIFY2(std::abs(Center - Place - Offset) < 0.15, qPrintable(QString::number(Center - Place - Offset)));
	}
}

void FCommentLayerTest::NothingIsDrawnBesideTheItem()
{
	LoadComments(*Overlay, {{"scrolls in", 0, 0.0, "#FFFFFF", 60}, {std::string(200, 'w'), 1}});
	Overlay->RunFrame(0.01);
	Overlay->RunFrame(0.3);
	QTRY_VERIFY(!Grab().isNull() && Overlay->GetMeter().GetSprites().NumMade == 2);
	const double Ratio = Overlay->GetDevicePixelRatio();
	const QRect Item(QPoint(qRound(13 * Ratio), qRound(7 * Ratio)), QSize(700, 600) * Ratio);
	const QImage Image = Grab();
	int Inside = 0;
	for (int Y = 0; Y < Image.height(); ++Y)
	{
		for (int X = 0; X < Image.width(); ++X)
		{
			if (Image.pixel(X, Y) != Ground)
			{
				QVERIFY(Item.adjusted(-1, -1, 1, 1).contains(X, Y));
				++Inside;
			}
		}
	}
	QVERIFY(Inside > 1000);
}

void FCommentLayerTest::CommentsGoAtOnce()
{
	LoadComments(*Overlay, {{"here"}, {"there", 2}});
	Overlay->RunFrame(0.01);
	QTRY_VERIFY(ShowsWhatIsExpected());
	Overlay->Clear();
	QImage Empty = Grab();
	QVERIFY(ShowsWhatIsExpected());
	// Back at once: the sprites are still there.
	LoadComments(*Overlay, {{"here"}});
	Overlay->RunFrame(0.01);
	QVERIFY(ShowsWhatIsExpected());
	QCOMPARE(Overlay->GetMeter().GetSprites().NumMade, 2);
	Shown->Layer->SetOverlay(nullptr);
	QCOMPARE(CountDifferences(Grab(), Empty), 0);
}

void FCommentLayerTest::ASizeIsDrawnSharpOnceItLasts()
{
	LoadComments(*Overlay, {{"grows with the picture"}});
	Overlay->RunFrame(0.01);
	QTRY_VERIFY(ShowsWhatIsExpected());
	for (int Step = 1; Step <= 20; ++Step)
	{
		Shown->Layer->setHeight(600.0 + 5.0 * Step);
		Shown->Window.resize(800, 640 + 5 * Step);
		Overlay->RunFrame(0.001);
		QVERIFY(CountDifferences(Grab(), QImage(Expect().size(), QImage::Format_RGB32)) > 0);
		QCOMPARE(Overlay->GetMeter().GetSprites().NumMade, 1);
	}
	QTRY_VERIFY(ShowsWhatIsExpected());
	QCOMPARE(Overlay->GetMeter().GetSprites().NumMade, 2);
}

void FCommentLayerTest::ComesBackAfterTheSceneGraphWent()
{
	LoadComments(*Overlay, {{"still here"}});
	Overlay->RunFrame(0.01);
	QTRY_VERIFY(ShowsWhatIsExpected());
	QSignalSpy Gone(&Shown->Window, &QQuickWindow::sceneGraphInvalidated);
	Shown->Window.setPersistentSceneGraph(false);
	Shown->Window.setPersistentGraphics(false);
	Shown->Window.hide();
	Shown->Window.destroy();
	QTRY_VERIFY(Gone.count() > 0);
	Overlay->RunFrame(0.01);
	Shown->Window.show();
	QVERIFY(QTest::qWaitForWindowExposed(&Shown->Window));
	QTRY_VERIFY(ShowsWhatIsExpected());
}

void FCommentLayerTest::MovesToAnotherWindow()
{
	LoadComments(*Overlay, {{"moves house"}});
	Overlay->RunFrame(0.01);
	QTRY_VERIFY(ShowsWhatIsExpected());
	auto Other = std::make_unique<FLayerWindow>();
	Other->Window.show();
	QVERIFY(QTest::qWaitForWindowExposed(&Other->Window));
	Other->Layer = std::move(Shown->Layer);
	Other->Layer->setParentItem(Other->Window.contentItem());
	Other->Layer->setParent(Other->Window.contentItem());
	Shown->Window.update();
	std::swap(Shown, Other);
	QTRY_VERIFY(ShowsWhatIsExpected());
	Other.reset();
	QTRY_VERIFY(ShowsWhatIsExpected());
}

void FCommentLayerTest::EndsAtAnyMoment()
{
	std::minstd_rand Random(11);
	for (int Round = 0; Round < 12; ++Round)
	{
		std::vector<FTestComment> Comments;
		for (int Index = 0; Index < 200; ++Index)
		{
			Comments.push_back({"comment " + std::to_string(Random()), Index % 3, 0.0, "#FFFFFF", 20 + Index % 40});
		}
		LoadComments(*Overlay, Comments);
		for (int Frame = 0; Frame < Round; ++Frame)
		{
			Overlay->RunFrame(0.016);
			Shown->Layer->update();
			QTest::qWait(static_cast<int>(Random() % 10));
		}
		Overlay->RunFrame(0.016);
		if (Round % 3 == 0)
		{
			Shown->Layer.reset();
		}
		else if (Round % 3 == 1)
		{
			Shown->Layer->SetOverlay(nullptr);
			Overlay.reset();
		}
		cleanup();
		init();
	}
}

} // namespace Flitmark

int main(int ArgumentCount, char** Arguments)
{
	return Flitmark::RunWindowTest<Flitmark::FCommentLayerTest>(ArgumentCount, Arguments);
}

#include "CommentLayerTests.moc"
