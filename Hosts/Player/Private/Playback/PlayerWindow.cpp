#include "Playback/PlayerWindow.h"

#include "Scene/CommentLayer.h"
#include "Playback/FrameDrive.h"
#include "Scene/Overlay.h"
#include "Playback/Player.h"
#include "Viewer/PlayerSettings.h"
#include "Viewer/Preferences.h"
#include "Playback/ScreenSaver.h"
#include "Scene/VideoItem.h"
#include "Viewer/ViewerBridge.h"
#include "Viewer/ViewSettings.h"

#include <QQuickWindow>
#include <QScreen>
#include <QStandardPaths>

#include <filesystem>

void qml_register_types_Flitmark();

namespace Flitmark
{

namespace
{

QString SettingsFile(const QString& InFolder)
{
	const QString Folder = InFolder.isEmpty()
							   ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/flitmark"
							   : InFolder;
	return Folder + "/player.ini";
}

} // namespace

FPlayerWindow::FPlayerWindow(const FPlayerOptions& InOptions)
	: Settings(SettingsFile(InOptions.SettingsFolder), QSettings::IniFormat)
{
}

FPlayerWindow::~FPlayerWindow()
{
	Drive.reset();
	if (Window != nullptr)
	{
		if (auto* Layer = Window->findChild<FCommentLayer*>("Comments"))
		{
			Layer->SetOverlay(nullptr);
		}
	}
	if (Window != nullptr)
	{
		Settings.setValue("windowSize", UsualSize);
		if (Window->visibility() != QWindow::FullScreen)
		{
			Settings.setValue("maximised", Window->visibility() == QWindow::Maximized);
		}
	}
	// The window's controls use everything else, so the window goes first.
	Engine.reset();
}

std::unique_ptr<FPlayerWindow> FPlayerWindow::Create(const FPlayerOptions& InOptions, std::string& OutError)
{
	std::unique_ptr<FPlayerWindow> Made(new FPlayerWindow(InOptions));
	return Made->MakeParts(InOptions, OutError) && Made->MakeWindow(InOptions, OutError) ? std::move(Made) : nullptr;
}

bool FPlayerWindow::MakeParts(const FPlayerOptions& InOptions, std::string& OutError)
{
	Choices = std::make_unique<FPlayerSettings>(Settings);
	Overlay = FOverlay::Create(OutError);
	if (!Overlay)
	{
		return false;
	}
	View = std::make_unique<FViewSettings>(*Overlay, Settings);
	Bridge = std::make_unique<FViewerBridge>(*Overlay);
	Player = FPlayer::Create(InOptions, *Overlay, Settings, OutError);
	if (!Player)
	{
		return false;
	}
	const std::filesystem::path Folder = InOptions.SaveFolder.isEmpty()
											 ? FSaveSlots::GetUserFolder()
											 : std::filesystem::path(InOptions.SaveFolder.toStdString());
	Preferences = std::make_unique<FPreferences>(*Overlay, *Bridge, Folder);
	QObject::connect(Preferences.get(), &FPreferences::Failed, Player.get(), &FPlayer::Complain);
	Preferences->Load();
	QObject::connect(View.get(), &FViewSettings::Changed, Player.get(), &FPlayer::FrameNeeded);
	QObject::connect(Player->GetComments(), &FCommentSession::Loaded, View.get(), [this] { View->SetOffset(0.0); });
	return true;
}

bool FPlayerWindow::MakeWindow(const FPlayerOptions& InOptions, std::string& OutError)
{
	qml_register_types_Flitmark();
	Engine = std::make_unique<QQmlApplicationEngine>();
	QStringList Faults;
	QObject::connect(Engine.get(), &QQmlEngine::warnings, Player.get(),
					 [&Faults](const QList<QQmlError>& InWarnings)
					 {
						 for (const QQmlError& Warning : InWarnings)
						 {
							 Faults.append(Warning.toString());
						 }
					 });
	Engine->load(QUrl("qrc:/Flitmark/Main.qml"));
	Window = Engine->rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(Engine->rootObjects().first());
	QObject::disconnect(Engine.get(), &QQmlEngine::warnings, nullptr, nullptr);
	if (Window == nullptr)
	{
		OutError = "can't build the window: " + Faults.join("; ").toStdString();
		return false;
	}
	Connect();
	Show(InOptions.bFullScreen);
	if (!InOptions.Video.isEmpty())
	{
		Player->OpenVideo(InOptions.Video, InOptions.Comments, InOptions.Start);
	}
	else if (!InOptions.Comments.isEmpty())
	{
		Player->GetComments()->Open(InOptions.Comments);
	}
	return true;
}

void FPlayerWindow::Show(bool bInFullScreen)
{
	const QSize Wanted = Settings.value("windowSize", Window->size()).toSize();
	UsualSize = Wanted.boundedTo(Window->screen()->availableSize()).expandedTo(Window->minimumSize());
	Window->resize(UsualSize);
	const auto Follow = [this]
	{
		if (Window->visibility() == QWindow::Windowed)
		{
			UsualSize = Window->size();
		}
	};
	QObject::connect(Window, &QWindow::widthChanged, Player.get(), Follow);
	QObject::connect(Window, &QWindow::heightChanged, Player.get(), Follow);
	if (bInFullScreen)
	{
		Window->showFullScreen();
	}
	else if (Settings.value("maximised", false).toBool())
	{
		Window->showMaximized();
	}
	else
	{
		Window->show();
	}
}

void FPlayerWindow::Connect()
{
	auto* const Video = Window->findChild<FVideoItem*>("Video");
	auto* const Layer = Window->findChild<FCommentLayer*>("Comments");
	QObject::connect(Video, &FVideoItem::Ready, Player.get(), [this] { Player->GetMpv().StartRendering(); });
	QObject::connect(Video, &FVideoItem::Failed, Player.get(),
					 [this](const QString& InReason)
					 { Player->Complain(FPlayer::tr("Can't show the video: %1.").arg(InReason)); });
	Video->SetHandle(Player->GetMpv().GetHandle());
	Layer->SetOverlay(Overlay.get());
	ScreenSaver = std::make_unique<FScreenSaver>();
	QObject::connect(Player.get(), &FPlayer::StateChanged, ScreenSaver.get(),
					 [this] { ScreenSaver->SetHeldOff(Player->IsPlaying() && !Player->GetVideoSize().isEmpty()); });
	Drive = std::make_unique<FFrameDrive>(*Window, *Layer, *Player, *Overlay, *Bridge);
}

} // namespace Flitmark
