#include "PlayerInWindow.h"

#include "Playback/Player.h"
#include "TestMedia.h"
#include "WindowTestMain.h"

#include <QAccessible>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <cmath>

namespace Flitmark
{

/** What a viewer does in an evening besides watching: other files, writing, full screen. */
class PlayerUseTest final : public QObject, private FPlayerInWindow
{
	Q_OBJECT

private Q_SLOTS:
	void initTestCase();
	void init() { Home = std::make_unique<QTemporaryDir>(); }
	void cleanup()
	{
		Player.reset();
		Window = nullptr;
	}

	void PlaysOnWhenSomethingElseCannotBePlayed();
	void ReplacesTheVideoByOneThatPlays();
	void ShowsDroppedSubtitles();
	void LeavesTheFieldByAClickThatDoesNothingElse();
	void HidesTheControlsAfterSending();
	void KeepsBottomCommentsAboveTheControls();
	void ShowsChangedSettingsWhilePaused();
	void TellsWhereItIs();

private:
	/** Row of the lowest pixel that is green, though shaded by controls; -1 for none. */
	int FindLowestGreen() const;
};

void PlayerUseTest::initTestCase()
{
	MakeVideo(Media.filePath("film.mp4"));
	MakeVideo(Media.filePath("other.mp4"));
	Write(Media.filePath("film.json"), "{\"datas\": [" + MakeComment(2.5, "mine", 1, "#FFFFFF") + "]}");
	Write(Media.filePath("below.json"), "{\"datas\": [" + MakeComment(2.5, "BELOW", 2, "#00FF00") + "]}");
	QByteArrayList Many;
	for (int Index = 0; Index < 60; ++Index)
	{
		Many.append(MakeComment(2.5, "ABOVE", 1, "#00FF00"));
	}
	Write(Media.filePath("above.json"), "{\"datas\": [" + Many.join(',') + "]}");
	Write(Media.filePath("broken.mp4"), "this is no film");
	Write(Media.filePath("notes.txt"), "film.mp4 is nice\nother.mp4 is not\n");
	// Says what it has, and then has nothing of it.
	RunFFmpeg({"-i", Media.filePath("film.mp4"), "-c", "copy", "-movflags", "+faststart", Media.filePath("cut.mp4")});
	QFile Cut(Media.filePath("cut.mp4"));
	QVERIFY(Cut.open(QIODevice::ReadWrite));
	QVERIFY(Cut.resize(Cut.readAll().indexOf("mdat") + 4));
	Write(Media.filePath("lines.srt"),
		  "1\n00:00:00,500 --> 00:00:59,000\n{\\an8}<font color=\"#00ff00\">GREEN LINE</font>\n");
	Write(Media.filePath("broken.srt"), "this is no list of lines");
}

void PlayerUseTest::PlaysOnWhenSomethingElseCannotBePlayed()
{
	Open("film.mp4");
	PlayTo(2.0);
	FPlayer& Film = Player->GetPlayer();
	for (const char* Name : {"broken.mp4", "notes.txt", "cut.mp4", "broken.srt"})
	{
		const double Before = Film.GetPosition();
		Drop(Media.filePath(Name));
		QTRY_VERIFY_WITH_TIMEOUT(TellsOf(Name), Patience);
		QCOMPARE(Film.GetTitle(), "film.mp4");
		QVERIFY(Film.IsLoaded() && Film.IsPlaying());
		QCOMPARE(Film.GetComments()->GetCount(), 1);
		QTRY_VERIFY_WITH_TIMEOUT(Film.GetPosition() > Before + 0.3, Patience);
	}
}

void PlayerUseTest::ReplacesTheVideoByOneThatPlays()
{
	Open("film.mp4");
	FPlayer& Film = Player->GetPlayer();
	// The last one asked for counts, whatever came in between.
	Drop(Media.filePath("broken.mp4"));
	Drop(Media.filePath("other.mp4"));
	QTRY_COMPARE_WITH_TIMEOUT(Film.GetTitle(), "other.mp4", Patience);
	QTRY_VERIFY_WITH_TIMEOUT(Film.IsLoaded() && Film.GetPosition() > 0.3, Patience);
	QCOMPARE(Film.GetComments()->GetCount(), 0);
	QVERIFY(!TellsOf("broken.mp4"));
}

void PlayerUseTest::ShowsDroppedSubtitles()
{
	constexpr QRgb Green = qRgb(0x00, 0xFF, 0x00);
	Open({});
	Drop(Media.filePath("lines.srt"));
	QTRY_VERIFY(TellsOf("lines.srt"));
	Drop(Media.filePath("other.mp4"));
	QTRY_VERIFY_WITH_TIMEOUT(Player->GetPlayer().IsLoaded(), Patience);
	StopAt(2.0);
	QCOMPARE(CountPixels(Green), 0);
	Drop(Media.filePath("lines.srt"));
	QTRY_VERIFY_WITH_TIMEOUT(CountPixels(Green) > 200, Patience);
	QCOMPARE(Player->GetPlayer().GetTitle(), "other.mp4");
	QVERIFY(Player->GetPlayer().GetPosition() > 1.9);
}

void PlayerUseTest::LeavesTheFieldByAClickThatDoesNothingElse()
{
	Open("other.mp4");
	PlayTo(1.0);
	QTest::keyClick(Window, Qt::Key_C);
	QTRY_VERIFY(Find("CommentField")->hasActiveFocus());
	Type("half a");
	Click("Comments");
	QVERIFY(!Find("CommentField")->hasActiveFocus());
	// Had the first click paused, this one would play on.
	Click("Comments");
	QTRY_VERIFY_WITH_TIMEOUT(!Player->GetPlayer().IsPlaying(), Patience);
	QCOMPARE(Find("CommentField")->property("text").toString(), "half a");
}

void PlayerUseTest::HidesTheControlsAfterSending()
{
	Open("other.mp4");
	PlayTo(1.0);
	QTest::keyClick(Window, Qt::Key_F);
	QTRY_COMPARE_WITH_TIMEOUT(Window->size(), QSize(1920, 1080), Patience);
	QTest::mouseMove(Window, QPoint(960, 400));
	QTRY_VERIFY_WITH_TIMEOUT(!Find("CommentBar")->isVisible(), Patience);
	QTest::keyClick(Window, Qt::Key_C);
	QTRY_VERIFY(Find("CommentField")->hasActiveFocus());
	// Where a hand rests that was last used to click into the field.
	QTest::mouseMove(Window, CenterOf("CommentField"));
	Type("hello");
	QTest::keyClick(Window, Qt::Key_Return);
	QTRY_VERIFY_WITH_TIMEOUT(IsOnCanvas(u"hello"), Patience);
	QVERIFY(!Find("CommentField")->hasActiveFocus());
	QTRY_VERIFY_WITH_TIMEOUT(!Find("Transport")->isVisible() && !Find("CommentBar")->isVisible(), Patience);
	QVERIFY(Player->GetPlayer().IsPlaying());
}

int PlayerUseTest::FindLowestGreen() const
{
	const QImage Image = Grab();
	for (int Y = Image.height() - 1; Y >= 0; --Y)
	{
		for (int X = 0; X < Image.width(); ++X)
		{
			const QRgb Pixel = Image.pixel(X, Y);
			if (qGreen(Pixel) > qRed(Pixel) + qBlue(Pixel) + 80)
			{
				return Y;
			}
		}
	}
	return -1;
}

void PlayerUseTest::KeepsBottomCommentsAboveTheControls()
{
	Open("other.mp4", "below.json");
	QTest::mouseMove(Window, CenterOf("Comments"));
	StopAt(3.0);
	const int Top = RectOf("Transport").top();
	QTRY_VERIFY_WITH_TIMEOUT(FindLowestGreen() > Top - 60 && FindLowestGreen() < Top, Patience);
	Player->GetPlayer().SetPlaying(true);
	QTRY_VERIFY_WITH_TIMEOUT(!Find("Transport")->isVisible(), Patience);
	QTRY_VERIFY_WITH_TIMEOUT(FindLowestGreen() > RectOf("Comments").bottom() - 60, Patience);
}

void PlayerUseTest::ShowsChangedSettingsWhilePaused()
{
	Open("other.mp4", "above.json");
	StopAt(3.5);
	const QRect Picture = RectOf("Comments");
	QVERIFY(FindLowestGreen() > Picture.top() + Picture.height() / 2);
	const auto Lower = [this](const char* InName, int InSteps)
	{
		QTest::keyClick(Window, Qt::Key_Comma, Qt::ControlModifier);
		QObject* const Page = Window->findChild<QObject*>("SettingsPage");
		QTRY_VERIFY(Page->property("opened").toBool());
		Find(InName)->findChild<QQuickItem*>("Slider")->forceActiveFocus(Qt::TabFocusReason);
		for (int Step = 0; Step < InSteps; ++Step)
		{
			QTest::keyClick(Window, Qt::Key_Left);
		}
		QTest::keyClick(Window, Qt::Key_Escape);
		QTRY_VERIFY(!Page->property("visible").toBool());
	};
	Lower("Area", 2);
	QTRY_VERIFY_WITH_TIMEOUT(FindLowestGreen() > Picture.top(), Patience);
	QTRY_VERIFY_WITH_TIMEOUT(FindLowestGreen() < Picture.top() + Picture.height() / 4, Patience);
	Lower("Opacity", 20);
	QTRY_COMPARE_WITH_TIMEOUT(FindLowestGreen(), -1, Patience);
	QVERIFY(IsOnCanvas(u"ABOVE"));
}

void PlayerUseTest::TellsWhereItIs()
{
	Open("other.mp4");
	StopAt(20.0);
	QAccessibleInterface* const Bar = QAccessible::queryAccessibleInterface(Find("SeekBar"));
	QVERIFY(Bar != nullptr && Bar->valueInterface() != nullptr);
	const double Position = Player->GetPlayer().GetPosition();
	QCOMPARE(Bar->valueInterface()->currentValue().toDouble(), Position);
	QCOMPARE(Bar->valueInterface()->maximumValue().toDouble(), 60.0);

	// To the disk too, in case the power goes.
	const auto Saved = [this]
	{
		QFile File(Home->filePath("player.ini"));
		const QByteArray Text = File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
		const qsizetype At = Text.indexOf("1\\position=");
		return At < 0 ? 0.0 : Text.mid(At + 11, Text.indexOf('\n', At) - At - 11).toDouble();
	};
	QTRY_VERIFY_WITH_TIMEOUT(std::abs(Saved() - Position) < 10.0, Patience);
}

} // namespace Flitmark

int main(int ArgumentCount, char** Arguments)
{
	return Flitmark::RunWindowTest<Flitmark::PlayerUseTest>(ArgumentCount, Arguments);
}

#include "PlayerUseTests.moc"
