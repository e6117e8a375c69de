#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace Flitmark
{

namespace
{

struct FEnd
{
	int ExitCode = -1;
	QString Output;
	QString Errors;
};

FEnd RunPlayer(const QStringList& InArguments)
{
	QProcess Process;
	QProcessEnvironment Environment = QProcessEnvironment::systemEnvironment();
	// So that no window appears if an invalid argument is accepted.
	Environment.remove("DISPLAY");
	Environment.remove("WAYLAND_DISPLAY");
	Environment.remove("QT_QPA_PLATFORM");
	Process.setProcessEnvironment(Environment);
	Process.start(FLITMARK_PLAYER, InArguments);
	Process.waitForFinished(60'000);
	FEnd End;
	if (Process.exitStatus() == QProcess::NormalExit && Process.state() == QProcess::NotRunning)
	{
		End.ExitCode = Process.exitCode();
	}
	End.Output = QString::fromUtf8(Process.readAllStandardOutput());
	End.Errors = QString::fromUtf8(Process.readAllStandardError());
	return End;
}

TEST(MainTest, HelpAndVersionGoToStandardOutput)
{
	const FEnd Help = RunPlayer({"--help"});
	EXPECT_EQ(Help.ExitCode, 0);
	for (const char* Part : {"VIDEO", "COMMENTS", "--fullscreen", "--start", "--speed", "--volume", "--no-hwdec"})
	{
		EXPECT_TRUE(Help.Output.contains(Part)) << Part;
	}
	const FEnd Version = RunPlayer({"--version"});
	EXPECT_EQ(Version.ExitCode, 0);
	EXPECT_TRUE(Version.Output.startsWith("flitmark-player ")) << Version.Output.toStdString();
	EXPECT_TRUE(Help.Errors.isEmpty() && Version.Errors.isEmpty());
}

TEST(MainTest, WrongUseIsOneLineAndExitsWith2)
{
	const QStringList Cases[] = {{"--no-such-option"}, {"a.mkv", "b.json", "c"}, {"--start", "soon"},
								 {"--start", "1:75"},  {"--speed", "9"},		 {"--speed", "0"},
								 {"--volume", "-5"},   {"--volume", "loud"},	 {"--start"},
								 {"--speed", "nan"},   {"--volume", "inf"}};
	for (const QStringList& Case : Cases)
	{
		const FEnd End = RunPlayer(Case);
		const std::string Shown = (Case.join(' ') + ": " + End.Errors).toStdString();
		EXPECT_EQ(End.ExitCode, 2) << Shown;
		EXPECT_TRUE(End.Errors.startsWith("flitmark-player: ")) << Shown;
		EXPECT_TRUE(End.Errors.contains("--help")) << Shown;
		EXPECT_EQ(End.Errors.count('\n'), 1) << Shown;
		EXPECT_TRUE(End.Output.isEmpty()) << Shown;
	}
}

TEST(MainTest, WithoutAWindowSystemItSaysSoAndExitsWith1)
{
	const FEnd End = RunPlayer({});
	EXPECT_EQ(End.ExitCode, 1);
	EXPECT_TRUE(End.Errors.contains("flitmark-player: can't open a window")) << End.Errors.toStdString();
}

} // namespace

} // namespace Flitmark
