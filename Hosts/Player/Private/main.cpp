#include "Playback/MediaPaths.h"
#include "Playback/Player.h"
#include "Playback/PlayerWindow.h"
#include "Playback/QuitSignals.h"
#include "Values/OptionChecks.h"
#include "Values/TimeText.h"
#include "Values/VisibleText.h"
#include "Viewer/SystemLanguage.h"

#include <CLI/CLI.hpp>

#include <QGuiApplication>
#include <QOpenGLContext>
#include <QQuickStyle>
#include <QQuickWindow>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>

namespace Flitmark
{

namespace
{

constexpr const char* Description = "flitmark-player: play a video with comments flying over it";

constexpr const char* Footer =
	R"(Without COMMENTS, the player looks for a comment file with the video's name next to it: film.xml for film.mkv.
Press F1 in the window for the keyboard shortcuts. Exit status: 0 on success, 1 on failure, 2 on a usage error.

Examples:
  flitmark-player film.mp4 comments.json
  flitmark-player --fullscreen --start 1:30 https://example.org/film.webm)";

constexpr int ExitFailure = 1;
constexpr int ExitWrongUse = 2;

int PrintError(const std::string& InMessage)
{
	std::fprintf(stderr, "flitmark-player: %s\n", MakeVisible(InMessage).c_str());
	return ExitFailure;
}

struct FArguments
{
	std::string Video;
	std::string Comments;
	std::string Start = "0";
	double Volume = -1.0;
	bool bNoHardwareDecoding = false;
};

void AddOptions(CLI::App& InApp, FArguments& InOutArguments, FPlayerOptions& InOutOptions)
{
	InApp.set_version_flag("--version", FLITMARK_VERSION, "Print the version and exit");
	InApp.set_help_flag("-h,--help", "Print this text and exit");
	InApp.add_option("VIDEO", InOutArguments.Video, "Video file or URL; without it the window starts empty");
	InApp.add_option("COMMENTS", InOutArguments.Comments, "Comment file, in any supported format");
	InApp.add_flag("--fullscreen", InOutOptions.bFullScreen, "Start in full screen");
	InApp.add_option("--start", InOutArguments.Start, "Where to begin, such as 90, 1:30 or 0:01:30.5")
		->check(MakeCheck(&ParseTime, "is not a time; try 90, 1:30 or 0:01:30.5"));
	InApp.add_option("--speed", InOutOptions.Speed, "Times normal speed, 0.25 to 4")->check(MakeNumberCheck(0.25, 4.0));
	InApp.add_option("--volume", InOutArguments.Volume, "Percent, 0 to 100 (default: as last time)")
		->check(MakeNumberCheck(0.0, 100.0));
	InApp.add_flag("--no-hwdec", InOutArguments.bNoHardwareDecoding, "Decode on the CPU only");
	InApp.get_formatter()->column_width(24);
	InApp.footer(Footer);
}

/** Empty with OutExitCode set if there is nothing to show. */
std::optional<FPlayerOptions> ReadOptions(int InArgumentCount, char** InArguments, int& OutExitCode)
{
	FPlayerOptions Options;
	FArguments Read;
	CLI::App App(Description, "flitmark-player");
	AddOptions(App, Read, Options);
	try
	{
		App.parse(InArgumentCount, InArguments);
	}
	catch (const CLI::ParseError& Error)
	{
		if (Error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
		{
			OutExitCode = App.exit(Error);
			return std::nullopt;
		}
		PrintError(std::string(Error.what()) + "; see \"flitmark-player --help\"");
		OutExitCode = ExitWrongUse;
		return std::nullopt;
	}
	Options.Video = ToPathOrAddress(QString::fromStdString(Read.Video));
	Options.Comments = ToPathOrAddress(QString::fromStdString(Read.Comments));
	Options.Start = ParseTime(Read.Start).value_or(0.0);
	Options.bHardwareDecoding = !Read.bNoHardwareDecoding;
	if (Read.Volume >= 0.0)
	{
		Options.Volume = Read.Volume;
	}
	return Options;
}

/** Without a window system Qt ends the program, with a message for developers. */
void ReportFatal(QtMsgType InType, const QMessageLogContext&, const QString& InMessage)
{
	if (InType == QtFatalMsg)
	{
		PrintError("can't open a window; is there a screen, and is DISPLAY or WAYLAND_DISPLAY set? (" +
				   InMessage.simplified().toStdString() + ")");
		std::_Exit(ExitFailure);
	}
	if (InType != QtDebugMsg && InType != QtInfoMsg)
	{
		std::fprintf(stderr, "%s\n", MakeVisible(InMessage.toStdString()).c_str());
	}
}

bool HasOpenGl()
{
	QOpenGLContext Context;
	return Context.create();
}

int Run(int InArgumentCount, char** InArguments)
{
	int ExitCode = EXIT_SUCCESS;
	const std::optional<FPlayerOptions> Options = ReadOptions(InArgumentCount, InArguments, ExitCode);
	if (!Options)
	{
		return ExitCode;
	}
	const QtMessageHandler Usual = qInstallMessageHandler(ReportFatal);
	QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
	QQuickStyle::setStyle("Basic");
	// Qt gets none of the arguments.
	int NumQtArguments = 1;
	QGuiApplication Application(NumQtArguments, InArguments);
	qInstallMessageHandler(Usual);
	QGuiApplication::setApplicationName("flitmark-player");
	QGuiApplication::setApplicationDisplayName("Flitmark");
	QGuiApplication::setDesktopFileName("flitmark-player");
	UseSystemLanguage(Application);
	const FQuitSignals Signals;
	if (!HasOpenGl())
	{
		return PrintError("OpenGL is missing; install a driver for it, such as Mesa's");
	}
	std::string Error;
	const std::unique_ptr<FPlayerWindow> Window = FPlayerWindow::Create(*Options, Error);
	return Window ? QGuiApplication::exec() : PrintError(Error);
}

} // namespace

} // namespace Flitmark

int main(int InArgumentCount, char** InArguments)
{
	try
	{
		return Flitmark::Run(InArgumentCount, InArguments);
	}
	catch (const std::exception& Exception)
	{
		return Flitmark::PrintError(Exception.what());
	}
}
