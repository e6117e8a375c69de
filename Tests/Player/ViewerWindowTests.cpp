#include "Viewer/PlayerSettings.h"
#include "Viewer/Preferences.h"
#include "Viewer/ViewSettings.h"
#include "ViewerTestKit.h"
#include "WindowTestMain.h"

#include <QAccessible>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QPointingDevice>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

void qml_register_types_Flitmark();

namespace Flitmark
{

/** Bar, panel and settings page as a viewer uses them: with keys, pointer and input method. */
class ViewerWindowTest final : public QObject
{
	Q_OBJECT

private Q_SLOTS:
	void initTestCase();
	void init();
	void cleanup();

	void TypesCountsAndSends();
	void ComposesWithoutCountingOrSending();
	void CutsAComposedTextWhenItIsCommitted();
	void CutsAPasteAndUndoesIt();
	void KeepsTheCursorWhereItIsTyped();
	void IsDisabledWhileClosed();
	void ShowsThePanelUnderThePointer();
	void OpensThePanelByKeys();
	void OpensThePanelByTouch_data();
	void OpensThePanelByTouch();
	void PutsTheKeyboardIntoTheFieldForAnEmptyComment();
	void RewritesATypedColor();
	void ChangesPreferencesOnThePage();
	void ReachesTheWholePageInASmallWindow();
	void TellsAssistiveTechnologyWhatIsChecked();

private:
	QQuickItem* Find(const char* Name);
	QPoint CenterOf(QQuickItem* Item);
	/** As a screen reader hears it. */
	bool IsHeardChecked(const char* Name);
	void Click(const char* Name);
	void Type(const QString& Text);
	void Compose(const QString& Preedit, const QString& Commit = {});
	QString GetText() { return Find("CommentField")->property("text").toString(); }
	QString GetCounter() { return Find("Counter")->property("text").toString(); }

	std::unique_ptr<QTemporaryDir> Folder;
	std::unique_ptr<FViewerStage> Stage;
	std::unique_ptr<QSettings> Settings;
	std::unique_ptr<FPlayerSettings> Choices;
	std::unique_ptr<FPreferences> Preferences;
	std::unique_ptr<FViewSettings> View;
	std::unique_ptr<QQmlEngine> Engine;
	std::unique_ptr<QObject> Root;
	QQuickWindow* Window = nullptr;
	QTimer Frames;
	QElapsedTimer LastFrame;
};

namespace
{

constexpr const char* Scene = R"(
import QtQuick
import QtQuick.Controls.Basic
import Flitmark

ApplicationWindow {
	width: 1000
	height: 600
	visible: true

	Item { id: elsewhere; objectName: "Elsewhere"; focus: true }
	CommentBar { objectName: "Bar"; onDone: elsewhere.forceActiveFocus(); anchors { left: parent.left; right: parent.right; bottom: parent.bottom } }
	SettingsPage { objectName: "Page" }
}
)";

/** Also finds a repeater's items, which have a visual parent only. */
QQuickItem* FindBelow(const QQuickItem& Item, const QString& Name)
{
	for (QQuickItem* Child : Item.childItems())
	{
		QQuickItem* const Found = Child->objectName() == Name ? Child : FindBelow(*Child, Name);
		if (Found != nullptr)
		{
			return Found;
		}
	}
	return nullptr;
}

} // namespace

void ViewerWindowTest::initTestCase()
{
	qml_register_types_Flitmark();
	connect(&Frames, &QTimer::timeout, this, [this] { Stage->Run(static_cast<double>(LastFrame.restart()) / 1000); });
}

void ViewerWindowTest::init()
{
	Folder = std::make_unique<QTemporaryDir>();
	Settings = std::make_unique<QSettings>(Folder->filePath("player.ini"), QSettings::IniFormat);
	Choices = std::make_unique<FPlayerSettings>(*Settings);
	Stage = std::make_unique<FViewerStage>();
	Preferences = std::make_unique<FPreferences>(*Stage->Overlay, *Stage->Bridge, Folder->path().toStdString());
	Preferences->Load();
	View = std::make_unique<FViewSettings>(*Stage->Overlay, *Settings);
	Engine = std::make_unique<QQmlEngine>();
	Engine->addImportPath("qrc:/");
	QQmlComponent Component(Engine.get());
	Component.setData(Scene, QUrl("qrc:/Flitmark/Test.qml"));
	Root.reset(Component.create());
	QVERIFY2(Root != nullptr, qPrintable(Component.errorString()));
	Window = qobject_cast<QQuickWindow*>(Root.get());
	QVERIFY(Activate(*Window));
	QTest::mouseMove(Window, QPoint(500, 100));
	LastFrame.start();
	Frames.start(10);
}

void ViewerWindowTest::cleanup()
{
	Frames.stop();
	Root.reset();
	Engine.reset();
	Preferences.reset();
	View.reset();
	Stage.reset();
	Choices.reset();
	Settings.reset();
}

QQuickItem* ViewerWindowTest::Find(const char* Name)
{
	QQuickItem* const Found = FindBelow(*Window->contentItem(), Name);
	if (Found == nullptr)
	{
		qFatal("no item %s", Name);
	}
	return Found;
}

QPoint ViewerWindowTest::CenterOf(QQuickItem* Item)
{
	return Item->mapToScene(QPointF(Item->width() / 2, Item->height() / 2)).toPoint();
}

void ViewerWindowTest::Click(const char* Name)
{
	QTest::mouseClick(Window, Qt::LeftButton, {}, CenterOf(Find(Name)));
}

void ViewerWindowTest::Type(const QString& Text)
{
	for (const QChar Each : Text)
	{
		QTest::keyClick(Window, Each.toLatin1());
	}
}

void ViewerWindowTest::Compose(const QString& Preedit, const QString& Commit)
{
	QInputMethodEvent Event(Preedit, {});
	Event.setCommitString(Commit);
	QCoreApplication::sendEvent(QGuiApplication::focusObject(), &Event);
}

void ViewerWindowTest::TypesCountsAndSends()
{
	Click("CommentField");
	QVERIFY(Stage->Bar().GetField()->IsFocused());
	Type("hello");
	QCOMPARE(Stage->Bar().GetField()->GetText(), "hello");
	QCOMPARE(GetCounter(), "5/100");
	QTest::keyClick(Window, Qt::Key_Return);
	QCOMPARE(GetText(), "");
	QCOMPARE(GetCounter(), "0/100");
	QCOMPARE(Stage->CountComments(), 1);
	QVERIFY(Find("Elsewhere")->hasActiveFocus());

	Choices->SetStayInField(true);
	Click("CommentField");
	Type("again");
	Click("SendButton");
	QCOMPARE(GetText(), "");
	QCOMPARE(Stage->CountComments(), 2);
	QVERIFY(Find("CommentField")->hasActiveFocus());

	Type("left");
	Find("Elsewhere")->forceActiveFocus();
	QVERIFY(!Stage->Bar().GetField()->IsFocused());
	QCOMPARE(GetText(), "left");
	QCOMPARE(Stage->CountComments(), 2);
}

void ViewerWindowTest::ComposesWithoutCountingOrSending()
{
	Click("CommentField");
	Compose("nihao");
	QCOMPARE(Stage->Bar().GetField()->GetText(), "");
	QCOMPARE(GetCounter(), "0/100");
	QTest::keyClick(Window, Qt::Key_Return);
	QCOMPARE(Stage->CountComments(), 0);
	Compose("", QString::fromUtf8("你好"));
	QCOMPARE(GetCounter(), "2/100");
	QCOMPARE(GetText(), QString::fromUtf8("你好"));
	QTest::keyClick(Window, Qt::Key_Return);
	QCOMPARE(Stage->CountComments(), 1);
}

void ViewerWindowTest::CutsAComposedTextWhenItIsCommitted()
{
	Click("CommentField");
	Stage->Bar().GetField()->Type(QString(98, 'x'));
	const QString Kana = QString::fromUtf8("こんにちは");
	Compose(Kana);
	QCOMPARE(Find("CommentField")->property("preeditText").toString(), Kana);
	// Part of it is committed while the rest is still being composed.
	Compose(Kana.mid(3), Kana.left(3));
	QCOMPARE(GetCounter(), "100/100");
	QCOMPARE(Find("CommentField")->property("preeditText").toString(), Kana.mid(3));
	Compose("", Kana.mid(3));
	QCOMPARE(GetText(), QString(98, 'x') + Kana.left(2));
	QCOMPARE(GetText(), Stage->Bar().GetField()->GetText());
}

void ViewerWindowTest::CutsAPasteAndUndoesIt()
{
	Click("CommentField");
	Type("ab");
	QGuiApplication::clipboard()->setText(QString(130, 'y'));
	QTest::keySequence(Window, QKeySequence::Paste);
	const QString Full = "ab" + QString(98, 'y');
	QCOMPARE(GetText(), Full);
	QCOMPARE(Stage->Bar().GetField()->GetText(), Full);
	QTest::keySequence(Window, QKeySequence::Undo);
	QCOMPARE(GetText(), "ab");
	QCOMPARE(GetCounter(), "2/100");
	QTest::keySequence(Window, QKeySequence::Redo);
	QCOMPARE(GetText(), Full);
	QCOMPARE(GetCounter(), "100/100");
}

void ViewerWindowTest::KeepsTheCursorWhereItIsTyped()
{
	Click("CommentField");
	Stage->Bar().GetField()->Type(QString(100, 'x'));
	QTest::keyClick(Window, Qt::Key_Home);
	Type("abc");
	QCOMPARE(GetText(), "abc" + QString(97, 'x'));
	QCOMPARE(Find("CommentField")->property("cursorPosition").toInt(), 3);
}

void ViewerWindowTest::IsDisabledWhileClosed()
{
	Click("CommentField");
	Type("half");
	Click("OpenSwitch");
	QVERIFY(!Find("CommentField")->isEnabled());
	QVERIFY(!Find("SendButton")->isEnabled());
	QVERIFY(!Find("SettingsButton")->isVisible());
	QVERIFY(!Find("Counter")->isVisible());
	QCOMPARE(GetText(), Stage->Bar().GetField()->GetText());
	QVERIFY(!Stage->Bar().GetField()->IsFocused());
	Type("nothing");
	Click("SendButton");
	QCOMPARE(Stage->CountComments(), 0);
	Click("OpenSwitch");
	QVERIFY(Find("CommentField")->isEnabled());
	QCOMPARE(GetText(), "");
}

void ViewerWindowTest::ShowsThePanelUnderThePointer()
{
	QQuickItem* Panel = Find("StylePanel");
	QVERIFY(!Panel->isVisible());
	QTest::mouseMove(Window, CenterOf(Find("SettingsButton")));
	QTRY_VERIFY(Stage->Panel().IsDisplayed());
	QTRY_COMPARE(Panel->opacity(), 1.0);
	// To the panel and back again.
	for (QQuickItem* Place : {Panel, Find("SettingsButton"), Panel})
	{
		QTest::mouseMove(Window, CenterOf(Place));
		QTest::qWait(1000);
		QVERIFY(Stage->Panel().IsDisplayed());
	}
	QTest::mouseMove(Window, QPoint(900, 100));
	QTest::qWait(400);
	QVERIFY(Stage->Panel().IsDisplayed());
	QTRY_VERIFY(!Stage->Panel().IsDisplayed());
	QTRY_VERIFY(!Panel->isVisible());
}

void ViewerWindowTest::OpensThePanelByKeys()
{
	QQuickItem* Button = Find("SettingsButton");
	Button->forceActiveFocus(Qt::TabFocusReason);
	QTest::keyClick(Window, Qt::Key_Space);
	QVERIFY(Stage->Panel().IsDisplayed());
	// Scroll, Top: the space bar selects.
	QTest::keyClick(Window, Qt::Key_Tab);
	QTest::keyClick(Window, Qt::Key_Space);
	QVERIFY(Stage->Box(Stage->Panel().GetModes(), 1).IsChecked());
	QTest::qWait(1000);
	QVERIFY(Stage->Panel().IsDisplayed());
	QTest::keyClick(Window, Qt::Key_Escape);
	QVERIFY(!Stage->Panel().IsDisplayed());
	QVERIFY(Button->hasActiveFocus());

	QTest::keyClick(Window, Qt::Key_Return);
	QVERIFY(Stage->Panel().IsDisplayed());
	for (int Turn = 0; Turn < 20 && !Find("CommentField")->hasActiveFocus(); ++Turn)
	{
		QTest::keyClick(Window, Qt::Key_Tab);
	}
	QVERIFY(Find("CommentField")->hasActiveFocus());
	QTRY_VERIFY(!Stage->Panel().IsDisplayed());
}

void ViewerWindowTest::OpensThePanelByTouch_data()
{
	QTest::addColumn<QString>("Pointer");
	QTest::newRow("pointer elsewhere") << "Elsewhere";
	QTest::newRow("pointer on the button") << "SettingsButton";
	QTest::newRow("pointer where the panel comes up") << "StylePanel";
}

void ViewerWindowTest::OpensThePanelByTouch()
{
	QFETCH(QString, Pointer);
	QTest::mouseMove(Window, Pointer == "Elsewhere" ? QPoint(500, 100) : CenterOf(Find(qPrintable(Pointer))));
	const auto Tap = [this](QPoint Place)
	{
		static QPointingDevice* const Screen = QTest::createTouchDevice();
		QTest::touchEvent(Window, Screen).press(0, Place, Window);
		QTest::touchEvent(Window, Screen).release(0, Place, Window);
	};
	Tap(CenterOf(Find("SettingsButton")));
	QTRY_VERIFY(Stage->Panel().IsDisplayed());
	QTRY_COMPARE(Find("StylePanel")->opacity(), 1.0);
	Tap(CenterOf(Find("Bottom")));
	QTRY_VERIFY(Stage->Box(Stage->Panel().GetModes(), 2).IsChecked());
	QTest::qWait(1000);
	QVERIFY(Stage->Panel().IsDisplayed());
	Tap(QPoint(800, 100));
	QTRY_VERIFY(!Stage->Panel().IsDisplayed());

	// A second tap on the button closes it too.
	Tap(CenterOf(Find("SettingsButton")));
	QTRY_VERIFY(Stage->Panel().IsDisplayed());
	Tap(CenterOf(Find("SettingsButton")));
	QTRY_VERIFY(!Stage->Panel().IsDisplayed());
}

void ViewerWindowTest::PutsTheKeyboardIntoTheFieldForAnEmptyComment()
{
	Find("Elsewhere")->forceActiveFocus();
	Click("SendButton");
	QVERIFY(Find("CommentField")->hasActiveFocus());
}

void ViewerWindowTest::RewritesATypedColor()
{
	Stage->Bar().GetSettings()->Hover();
	QQuickItem* Field = Find("ColorField");
	Field->forceActiveFocus(Qt::TabFocusReason);
	QTest::keySequence(Window, QKeySequence::SelectAll);
	Type("00cd0");
	QCOMPARE(Field->property("text").toString(), "#00cd0");
	Type("zz0");
	QCOMPARE(Field->property("text").toString(), "#00CD00");
	QCOMPARE(Field->property("cursorPosition").toInt(), 7);
	QCOMPARE(Find("Swatch")->property("color").value<QColor>(), QColor("#00CD00"));
}

void ViewerWindowTest::ChangesPreferencesOnThePage()
{
	auto* Page = Window->findChild<QObject*>("Page");
	QMetaObject::invokeMethod(Page, "open");
	QTRY_VERIFY(Find("Done")->isVisible());
	QQuickItem* Slider = Find("FontSize")->findChild<QQuickItem*>("Slider");
	Slider->forceActiveFocus(Qt::TabFocusReason);
	QTest::keyClick(Window, Qt::Key_Right);
	QCOMPARE(Preferences->GetFontSize(), 25);
	Slider = Find("SpeedScale")->findChild<QQuickItem*>("Slider");
	Slider->forceActiveFocus(Qt::TabFocusReason);
	QTest::keyClick(Window, Qt::Key_Right);
	QCOMPARE(Preferences->GetSpeedScale(), 1.07);
	const auto Press = [this](const char* Name, Qt::Key Key)
	{
		Find(Name)->findChild<QQuickItem*>("Slider")->forceActiveFocus(Qt::TabFocusReason);
		QTest::keyClick(Window, Key);
	};
	Press("Area", Qt::Key_Left);
	Press("Opacity", Qt::Key_Left);
	Press("FontScale", Qt::Key_Right);
	Press("Offset", Qt::Key_Left);
	QCOMPARE(View->GetArea(), 0.5);
	QCOMPARE(View->GetOpacity(), 0.95);
	QCOMPARE(View->GetFontScale(), 1.07);
	QCOMPARE(View->GetOffset(), -0.5);
	Find("ShowsTop")->forceActiveFocus(Qt::TabFocusReason);
	QTest::keyClick(Window, Qt::Key_Space);
	QVERIFY(!View->ShowsTop() && View->ShowsBottom() && View->ShowsScrolling());
	Find("PageSwitch")->forceActiveFocus(Qt::TabFocusReason);
	QTRY_COMPARE(Find("PageSwitch")->isVisible(), true);
	Click("PageSwitch");
	QVERIFY(!Stage->Bar().GetOpen()->IsChecked());
	Click("Defaults");
	QCOMPARE(Preferences->GetFontSize(), 24);
	QCOMPARE(Preferences->GetSpeedScale(), 1.0);
	QCOMPARE(View->GetArea(), 0.75);
	QCOMPARE(View->GetOpacity(), 1.0);
	QVERIFY(View->ShowsTop());
	QVERIFY(Stage->Bar().GetOpen()->IsChecked());
	QTest::keyClick(Window, Qt::Key_Escape);
	QTRY_VERIFY(!Page->property("visible").toBool());
}

void ViewerWindowTest::ReachesTheWholePageInASmallWindow()
{
	Window->resize(640, 360);
	QTRY_COMPARE(Window->height(), 360);
	QMetaObject::invokeMethod(Window->findChild<QObject*>("Page"), "open");
	QTRY_VERIFY(Window->findChild<QObject*>("Page")->property("opened").toBool());
	const auto RectOf = [](QQuickItem* Item)
	{
		return Item->mapRectToScene(QRectF(0.0, 0.0, Item->width(), Item->height()));
	};
	const QRectF Picture(0.0, 0.0, 640.0, 360.0);
	const QRectF Part = RectOf(Find("SettingsScroll"));
	QVERIFY(Part.height() > 100.0);
	for (const char* Name : {"SettingsScroll", "Defaults", "Done"})
	{
		QVERIFY2(Picture.contains(RectOf(Find(Name))), Name);
	}
	// Round by the Tab key: what has the keyboard can be seen.
	QSet<QQuickItem*> Visited;
	Find("PageSwitch")->forceActiveFocus(Qt::TabFocusReason);
	for (QQuickItem* Item = Window->activeFocusItem(); !Visited.contains(Item); Item = Window->activeFocusItem())
	{
		Visited.insert(Item);
		const bool bButton = Item == Find("Defaults") || Item == Find("Done");
		QVERIFY2((bButton ? Picture : Part).contains(RectOf(Item)), qPrintable(Item->objectName()));
		QTest::keyClick(Window, Qt::Key_Tab);
	}
	QCOMPARE(Visited.size(), 13);
	Find("PageSwitch")->forceActiveFocus(Qt::TabFocusReason);
	QCOMPARE(Find("SettingsScroll")->property("contentY").toDouble(), 0.0);
	QTest::keyClick(Window, Qt::Key_PageDown);
	QVERIFY(Find("SettingsScroll")->property("contentY").toDouble() > 100.0);
}

bool ViewerWindowTest::IsHeardChecked(const char* Name)
{
	const QAccessibleInterface* const Heard = QAccessible::queryAccessibleInterface(Find(Name));
	return Heard != nullptr && Heard->state().checkable && Heard->state().checked;
}

void ViewerWindowTest::TellsAssistiveTechnologyWhatIsChecked()
{
	QVERIFY(IsHeardChecked("OpenSwitch"));
	Click("OpenSwitch");
	QVERIFY(!IsHeardChecked("OpenSwitch"));
	Click("OpenSwitch");
	QVERIFY(IsHeardChecked("OpenSwitch"));

	Stage->Bar().GetSettings()->Hover();
	QVERIFY(IsHeardChecked("Scroll") && !IsHeardChecked("Top"));
	// A second click on what is chosen changes nothing.
	for (int Turn = 0; Turn < 2; ++Turn)
	{
		Click("Top");
		QVERIFY(IsHeardChecked("Top") && !IsHeardChecked("Scroll"));
	}
	QVERIFY(IsHeardChecked("C_FFFFFF") && !IsHeardChecked("C_FE0302"));
	Click("C_FE0302");
	QVERIFY(IsHeardChecked("C_FE0302") && !IsHeardChecked("C_FFFFFF"));
}

} // namespace Flitmark

int main(int ArgumentCount, char** Arguments)
{
	return Flitmark::RunWindowTest<Flitmark::ViewerWindowTest>(ArgumentCount, Arguments);
}

#include "ViewerWindowTests.moc"
