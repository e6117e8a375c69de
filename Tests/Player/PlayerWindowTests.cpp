#include "PlayerWindowTests.h"

#include "Scene/Overlay.h"
#include "Playback/Player.h"
#include "TestMedia.h"
#include "WindowTestMain.h"

#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace Flitmark
{

namespace
{

constexpr QRgb Ground = qRgb(0x20, 0x30, 0x50);
constexpr QRgb Green = qRgb(0x00, 0xFF, 0x00);
constexpr QRgb Red = qRgb(0xFF, 0x00, 0x00);

/** A different color in every corner, and an L, which no mirroring leaves unchanged. */
const char* const FourCorners = "drawbox=0:0:160:90:red:fill,drawbox=480:0:160:90:green:fill,"
								"drawbox=0:270:160:90:blue:fill,drawbox=480:270:160:90:yellow:fill,"
								"drawbox=260:60:40:240:white:fill,drawbox=260:260:140:40:white:fill";

/** Mean difference between two pictures of the same size, 0 to 255. */
double MeanDifference(const QImage& InA, const QImage& InB)
{
	double Sum = 0.0;
	for (int Y = 0; Y < InA.height(); ++Y)
	{
		for (int X = 0; X < InA.width(); ++X)
		{
			const QRgb A = InA.pixel(X, Y);
			const QRgb B = InB.pixel(X, Y);
			Sum += std::abs(qRed(A) - qRed(B)) + std::abs(qGreen(A) - qGreen(B)) + std::abs(qBlue(A) - qBlue(B));
		}
	}
	return Sum / (3.0 * InA.width() * InA.height());
}

/** Fixed green ones from second 2, a scrolling red one from second 21. */
QByteArray MakeComments()
{
	return "{\"datas\": [" + MakeComment(2.5, "GREEN", 1, "#00FF00") + "," + MakeComment(2.5, "GREENER", 1, "#00FF00") +
		   "," + MakeComment(21.2, "RED AND SCROLLING", 0, "#FF0000") + "]}";
}

/** A document that takes a while to read and draw. */
QByteArray MakeManyComments()
{
	QByteArray Text = "{\"datas\": [";
	for (int Index = 0; Index < 60'000; ++Index)
	{
		const QByteArray Content = "comment " + QByteArray::number(Index);
		Text += (Index > 0 ? "," : "") + MakeComment(Index / 1000, Content.constData(), Index % 3, "#FFFFFF");
	}
	return Text + "]}";
}

} // namespace

void PlayerWindowTest::initTestCase()
{
	MakeVideo(Media.filePath("film.mp4"));
	MakeVideo(Media.filePath("corners.mp4"), FourCorners);
	MakeVideo(Media.filePath("slow.mp4"), "fps=5");
	Write(Media.filePath("film.json"), MakeComments());
	QVERIFY(QFile::copy(Media.filePath("film.mp4"), Media.filePath("bare.mp4")));
	Write(Media.filePath("list.xml"), "<i><d p=\"30.5,5,25,255,0,0,0,1\">from a list</d></i>");
	Write(Media.filePath("broken.mp4"), "this is no film");
	Write(Media.filePath("many.json"), MakeManyComments());
}

void PlayerWindowTest::init()
{
	Home = std::make_unique<QTemporaryDir>();
}

void PlayerWindowTest::cleanup()
{
	Player.reset();
	Window = nullptr;
}

void PlayerWindowTest::ShowsTheVideoTheRightWayUp_data()
{
	QTest::addColumn<int>("Rotation");
	for (const int Rotation : {0, 90, 180, 270})
	{
		QTest::addRow("%d degrees", Rotation) << Rotation;
	}
}

void PlayerWindowTest::ShowsTheVideoTheRightWayUp()
{
	QFETCH(int, Rotation);
	RunFFmpeg({"-i", Media.filePath("corners.mp4"), "-c", "copy", "-metadata:s:v:0",
			   "rotate=" + QString::number(Rotation), Media.filePath("rotated.mp4")});
	RunFFmpeg({"-i", Media.filePath("rotated.mp4"), "-frames:v", "1", Media.filePath("rotated.png")});
	const QImage Frame(Media.filePath("rotated.png"));
	QCOMPARE(Frame.size(), Rotation % 180 == 0 ? QSize(640, 360) : QSize(360, 640));
	// Nothing covers the picture while it plays undisturbed.
	Open("rotated.mp4");
	QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().GetPosition() > 1.0, Patience);
	QTRY_VERIFY_WITH_TIMEOUT(!Find("Transport")->isVisible() && !Find("OnScreenMessage")->isVisible(), Patience);
	const QRect Rect = RectOf("Comments");
	const QImage Shown = Grab().copy(Rect);
	QVERIFY(Rect.width() >= 360 && Rect.height() >= 360);
	QVERIFY(std::abs(Rect.width() * Frame.height() - Rect.height() * Frame.width()) < 1000);
	const auto DifferenceTo = [&Shown](const QImage& InImage)
	{
		return MeanDifference(Shown, InImage.scaled(Shown.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
	};

	const double Difference = DifferenceTo(Frame);
	QVERIFY2(Difference < 4.0, qPrintable(QString::number(Difference)));
	QVERIFY(DifferenceTo(Frame.mirrored(false, true)) > 20.0);
	QVERIFY(DifferenceTo(Frame.mirrored(true, false)) > 20.0);
	QVERIFY(DifferenceTo(Frame.mirrored(true, true)) > 20.0);
}

void PlayerWindowTest::ShowsCommentsOverTheVideo()
{
	Open("film.mp4");
	QCOMPARE(Player->GetPlayer().GetComments()->GetCount(), 3);
	StopAt(3.3);
	QTest::qWait(1000);
	QVERIFY(CountPixels(Green) > 500);
	QCOMPARE(CountPixels(Red), 0);
	QVERIFY(CountPixels(Ground) > 100'000);
	QVERIFY(IsOnCanvas(u"GREEN") && IsOnCanvas(u"GREENER"));

	// The picture is upright, and unchanged where there is no comment.
	const QRect Picture = RectOf("Comments");
	const QImage Image = Grab();
	QCOMPARE(Image.pixel(Picture.left() + 20, Picture.top() + Picture.height() / 2), Image.pixel(Picture.center()));
}

void PlayerWindowTest::HoldsStillWhilePaused()
{
	Open("film.mp4");
	StopAt(22.0);
	const int Seen = CountPixels(Red);
	QVERIFY(Seen > 300);
	QTRY_VERIFY(!Find("OnScreenMessage")->isVisible());
	const QImage Before = Grab();
	QTest::qWait(700);
	QVERIFY(Before == Grab());
	Player->GetPlayer().SetPlaying(true);
	QTest::qWait(700);
	QVERIFY(Before != Grab());
}

void PlayerWindowTest::SendsACommentThatComesAgainAfterSeekingBack()
{
	Open("bare.mp4");
	PlayTo(10.2);
	Click("CommentField");
	Type("hello there");
	QVERIFY(!IsOnCanvas(u"hello there"));
	QTest::keyClick(Window, Qt::Key_Return);
	QTRY_VERIFY_WITH_TIMEOUT(IsOnCanvas(u"hello there"), Patience);
	QCOMPARE(Find("CommentField")->property("text").toString(), QString());
	StopAt(25.5);
	const double Sent = Player->GetPlayer().GetPosition();
	QVERIFY(!IsOnCanvas(u"hello there"));
	PlayTo(9.5);
	QVERIFY(!IsOnCanvas(u"hello there"));
	QTRY_VERIFY_WITH_TIMEOUT(IsOnCanvas(u"hello there"), Patience);
	QVERIFY(Player->GetPlayer().GetPosition() < Sent);
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(qRgb(255, 255, 255)) > 30, Patience);
}

void PlayerWindowTest::SwitchesTheCommentsOffAndOn()
{
	Open("film.mp4");
	StopAt(3.3);
	QVERIFY(CountPixels(Green) > 500);
	Click("OpenSwitch");
	QTRY_COMPARE_WITH_TIMEOUT(CountPixels(Green), 0, Patience);
	QVERIFY(!Find("CommentField")->isEnabled());
	Click("OpenSwitch");
	QVERIFY(Find("CommentField")->isEnabled());
	StopAt(3.3);
	QVERIFY(CountPixels(Green) > 500);
}

void PlayerWindowTest::ShowsAfterAJumpWhatPlayingWouldShow()
{
	Open("film.mp4");
	FPlayer& Film = Player->GetPlayer();
	Film.SetPlaying(false);
	Film.SeekTo(22.5);
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(Red) > 300, Patience);
	Film.SeekTo(4.0);
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(Green) > 500, Patience);
	QVERIFY(IsOnCanvas(u"GREEN") && IsOnCanvas(u"GREENER") && !IsOnCanvas(u"RED AND SCROLLING"));

	Film.StepFrame(false);
	QTRY_VERIFY_WITH_TIMEOUT(!Film.IsWaiting() && Film.GetPosition() < 3.99, Patience);
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(Green) > 500, Patience);
	Click("OpenSwitch");
	QTRY_COMPARE_WITH_TIMEOUT(CountPixels(Green), 0, Patience);
	Click("OpenSwitch");
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(Green) > 500, Patience);
}

void PlayerWindowTest::StartsInTheMiddleWithItsComments()
{
	FPlayerOptions Options = MakeOptions("film.mp4", {});
	Options.Start = 23.0;
	std::string Error;
	Player = FPlayerWindow::Create(Options, Error);
	QVERIFY2(Player != nullptr, Error.c_str());
	Window = &Player->GetWindow();
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(Red) > 300, Patience);
}

void PlayerWindowTest::DrawsNoMoreThanMoves()
{
	Open("slow.mp4", "film.json");
	FPlayer& Film = Player->GetPlayer();
	int NumFrames = 0;
	// The counting ends with this test.
	const QObject Counting;
	connect(Window, &QQuickWindow::frameSwapped, &Counting, [&NumFrames] { ++NumFrames; });
	// Counts frames over three seconds in which nothing covers the video.
	const auto CountFrom = [&](double InPosition)
	{
		PlayTo(InPosition);
		QTRY_VERIFY_WITH_TIMEOUT(!Find("Transport")->isVisible() && !Find("OnScreenMessage")->isVisible(), Patience);
		const double Begin = Film.GetPosition();
		NumFrames = 0;
		QTRY_VERIFY_WITH_TIMEOUT(Film.GetPosition() >= Begin + 3.0, Patience);
	};
	constexpr int NumPictures = 3 * 5;
	CountFrom(35.0);
	QVERIFY2(NumFrames < 2 * NumPictures, qPrintable(QString::number(NumFrames)));
	Click("OpenSwitch");
	QTest::mouseMove(Window, CenterOf("Comments"));
	CountFrom(22.0);
	QVERIFY2(NumFrames < 2 * NumPictures, qPrintable(QString::number(NumFrames)));

	Film.SetPlaying(false);
	QTRY_VERIFY_WITH_TIMEOUT(!Find("OnScreenMessage")->isVisible(), Patience);
	bool bRests = false;
	for (int Turn = 0; Turn < 20 && !bRests; ++Turn)
	{
		NumFrames = 0;
		QTest::qWait(1000);
		bRests = NumFrames == 0;
	}
	QVERIFY2(bRests, qPrintable(QString::number(NumFrames)));

	// And it wakes up.
	Click("OpenSwitch");
	Film.SeekTo(40.0);
	QTRY_VERIFY_WITH_TIMEOUT(!IsOnCanvas(u"RED AND SCROLLING"), Patience);
	QTest::qWait(3000);
	Film.SeekTo(22.5);
	QTRY_VERIFY_WITH_TIMEOUT(IsOnCanvas(u"RED AND SCROLLING"), Patience);
	QTRY_VERIFY_WITH_TIMEOUT(!Film.IsWaiting(), Patience);
}

void PlayerWindowTest::SeeksByBarAndKeys()
{
	Open("film.mp4");
	StopAt(3.3);
	QTest::mouseMove(Window, CenterOf("SeekBar"));
	Click("SeekBar");
	QTRY_VERIFY_WITH_TIMEOUT(std::abs(Player->GetPlayer().GetPosition() - 30.0) < 1.5, Patience);
	QTRY_VERIFY_WITH_TIMEOUT(!Player->GetPlayer().IsWaiting(), Patience);
	QTRY_VERIFY_WITH_TIMEOUT(!IsOnCanvas(u"GREEN"), Patience);
	const double From = Player->GetPlayer().GetPosition();
	QTest::mouseMove(Window, CenterOf("Comments"));
	QTest::keyClick(Window, Qt::Key_Right);
	QTRY_VERIFY_WITH_TIMEOUT(std::abs(Player->GetPlayer().GetPosition() - From - 5.0) < 0.5, Patience);
	QTest::keyClick(Window, Qt::Key_Home);
	QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().GetPosition() < 0.5, Patience);
	QVERIFY(!Player->GetPlayer().IsPlaying());
	QTest::keyClick(Window, Qt::Key_Space);
	QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().IsPlaying(), Patience);
}

void PlayerWindowTest::KeepsCommentsOnThePictureWhenResized()
{
	Open("film.mp4");
	StopAt(3.3);
	const int Before = CountPixels(Green);
	const QRect Wide = RectOf("Comments");
	Window->resize(760, 700);
	QTRY_VERIFY_WITH_TIMEOUT(RectOf("Comments").width() <= 760, Patience);
	QTRY_COMPARE_WITH_TIMEOUT(Player->GetOverlay().GetMeter().GetSprites().NumWaiting, 0, Patience);
	QTest::qWait(800);
	const QRect Narrow = RectOf("Comments");
	QVERIFY(Narrow.width() < Wide.width());
	QVERIFY(std::abs(Narrow.width() * 360 - Narrow.height() * 640) < 1000);
	QVERIFY(Narrow.top() > 20);
	// Letters shrink with the picture, but stay legible.
	QVERIFY(CountPixels(Green) > Before / 8 && CountPixels(Green) < Before);
}

void PlayerWindowTest::ShowsThePanelWhileThePointerIsThere()
{
	Open("film.mp4");
	QTest::mouseMove(Window, CenterOf("Comments"));
	QVERIFY(!Find("StylePanel")->isVisible());
	QTest::mouseMove(Window, CenterOf("SettingsButton"));
	QTRY_VERIFY(Find("StylePanel")->isVisible());
	QTest::mouseMove(Window, CenterOf("StylePanel"));
	QTest::qWait(1500);
	QVERIFY(Find("StylePanel")->isVisible());
	QTest::mouseMove(Window, CenterOf("Comments") - QPoint(0, 100));
	QTest::qWait(400);
	QVERIFY(Find("StylePanel")->isVisible());
	QTRY_VERIFY(!Find("StylePanel")->isVisible());
}

void PlayerWindowTest::TakesWhatIsDropped()
{
	Open({});
	QVERIFY(Find("StartPage")->isVisible());
	Drop(Media.filePath("bare.mp4"));
	QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().IsLoaded(), Patience);
	QVERIFY(!Find("StartPage")->isVisible());
	QCOMPARE(Player->GetPlayer().GetComments()->GetCount(), 0);
	Drop(Media.filePath("list.xml"));
	QTRY_COMPARE_WITH_TIMEOUT(Player->GetPlayer().GetComments()->GetCount(), 1, Patience);
	PlayTo(31.0);
	QTRY_VERIFY_WITH_TIMEOUT(IsOnCanvas(u"from a list"), Patience);
}

void PlayerWindowTest::TellsWhatCannotBePlayedAndGoesOn()
{
	Open("film.mp4");
	PlayTo(2.0);
	Drop(Media.filePath("broken.mp4"));
	QTRY_VERIFY_WITH_TIMEOUT(TellsOf("broken.mp4"), Patience);
	Player->GetPlayer().GetComments()->Open(Media.filePath("missing.json"));
	QTRY_VERIFY_WITH_TIMEOUT(TellsOf("missing.json"), Patience);
	QVERIFY(Find("Messages")->isVisible());
	Player->GetPlayer().OpenVideo(Media.filePath("film.mp4"));
	QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().IsLoaded() && Player->GetPlayer().IsPlaying(), Patience);
	QTRY_COMPARE_WITH_TIMEOUT(Player->GetPlayer().GetComments()->GetCount(), 3, Patience);
}

void PlayerWindowTest::GoesIntoFullScreenAndBack()
{
	Open("film.mp4");
	const QSize Before = Window->size();
	QTest::keyClick(Window, Qt::Key_F);
	QTRY_COMPARE_WITH_TIMEOUT(Window->visibility(), QWindow::FullScreen, Patience);
	QTRY_COMPARE_WITH_TIMEOUT(Window->size(), QSize(1920, 1080), Patience);
	QTest::mouseMove(Window, QPoint(960, 400));
	QTRY_VERIFY_WITH_TIMEOUT(!Find("Transport")->isVisible() && !Find("CommentBar")->isVisible(), Patience);
	QTest::mouseMove(Window, QPoint(900, 500));
	QTRY_VERIFY_WITH_TIMEOUT(Find("Transport")->isVisible() && Find("CommentBar")->isVisible(), Patience);
	QTest::keyClick(Window, Qt::Key_Escape);
	QTRY_COMPARE_WITH_TIMEOUT(Window->size(), Before, Patience);
}

void PlayerWindowTest::ShowsItsPages()
{
	Open("film.mp4");
	QTest::keyClick(Window, Qt::Key_I, Qt::ControlModifier);
	QTRY_VERIFY(Find("StatisticsCard")->isVisible());
	QTest::keyClick(Window, Qt::Key_I, Qt::ControlModifier);
	QTRY_VERIFY(!Find("StatisticsCard")->isVisible());
	QTest::keyClick(Window, Qt::Key_F1);
	QObject* const Keys = Window->findChild<QObject*>("KeyboardPage");
	QTRY_VERIFY(Keys->property("opened").toBool());
	QTest::keyClick(Window, Qt::Key_Escape);
	QTRY_VERIFY(!Keys->property("visible").toBool());
}

void PlayerWindowTest::RemembersWhatTheViewerPrefers()
{
	Open("film.mp4");
	Click("OpenSwitch");
	QTRY_VERIFY(!Find("CommentField")->isEnabled());
	QTest::keyClick(Window, Qt::Key_M);
	QTRY_VERIFY(Player->GetPlayer().IsMuted());
	Player.reset();
	Open("film.mp4");
	QVERIFY(!Find("CommentField")->isEnabled());
	QVERIFY(Player->GetPlayer().IsMuted());
}

void PlayerWindowTest::ClosesAtAnyMoment()
{
	for (const int Milliseconds : {0, 1, 20, 80, 150, 300, 600, 1200})
	{
		std::string Error;
		Player = FPlayerWindow::Create(MakeOptions("film.mp4", "many.json"), Error);
		QVERIFY2(Player != nullptr, Error.c_str());
		QTest::qWait(Milliseconds);
		Player->GetWindow().close();
		Player.reset();
	}
}

} // namespace Flitmark

int main(int ArgumentCount, char** Arguments)
{
	return Flitmark::RunWindowTest<Flitmark::PlayerWindowTest>(ArgumentCount, Arguments);
}
