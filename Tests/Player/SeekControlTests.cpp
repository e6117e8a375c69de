#include "Playback/SeekControl.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Flitmark
{

namespace
{

using FSeeks = std::vector<std::pair<double, bool>>;

TEST(SeekControlTest, OneAtATimeAndTheLatestNext)
{
	FSeekControl Control;
	FSeeks Seeks;
	QObject::connect(&Control, &FSeekControl::Started,
					 [&](double InPosition, bool bInExact) { Seeks.emplace_back(InPosition, bInExact); });
	EXPECT_EQ(Control.GetTarget(), std::nullopt);
	Control.Seek(1.0, false);
	Control.Seek(2.0, false);
	Control.Seek(3.0, true);
	EXPECT_EQ(Seeks, FSeeks({{1.0, false}}));
	EXPECT_EQ(Control.GetTarget(), 3.0);
	Control.Finish();
	EXPECT_EQ(Seeks, FSeeks({{1.0, false}, {3.0, true}}));
	EXPECT_EQ(Control.GetTarget(), 3.0);
	Control.Finish();
	Control.Finish();
	EXPECT_EQ(Seeks.size(), 2u);
	EXPECT_EQ(Control.GetTarget(), std::nullopt);

	Control.Seek(4.0, true);
	Control.Seek(5.0, true);
	Control.Cancel();
	EXPECT_EQ(Control.GetTarget(), std::nullopt);
	Control.Finish();
	EXPECT_EQ(Seeks.size(), 3u);
}

TEST(SeekControlTest, ALostSeekMakesWay)
{
	static int NumArguments = 1;
	static char Name[] = "test";
	static char* Arguments[] = {Name, nullptr};
	std::unique_ptr<QCoreApplication> Application;
	if (QCoreApplication::instance() == nullptr)
	{
		Application = std::make_unique<QCoreApplication>(NumArguments, Arguments);
	}
	FSeekControl Control(10);
	int NumStarted = 0;
	QObject::connect(&Control, &FSeekControl::Started, [&] { ++NumStarted; });
	Control.Seek(1.0, true);
	Control.Seek(2.0, true);
	QElapsedTimer Timer;
	Timer.start();
	while (Control.GetTarget() && Timer.elapsed() < 20'000)
	{
		QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
	}
	EXPECT_EQ(Control.GetTarget(), std::nullopt);
	EXPECT_EQ(NumStarted, 2);
}

} // namespace

} // namespace Flitmark
