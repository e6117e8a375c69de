#include "DanmakuSave.h"
#include "Files/SaveSlots.h"
#include "FolderFixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace Flitmark
{

namespace
{

/** Saves ever larger font sizes until it is killed, and reports each one saved. */
[[noreturn]] void SaveForever(const fs::path& InFolder, int InReports)
{
	FSaveSlots Slots(InFolder);
	ISaveGameSystem::Install(&Slots);
	for (int32 Size = UDanmakuSave::LoadFontSize() + 1;; ++Size)
	{
		UDanmakuSave::SaveFontSize(Size);
		if (::write(InReports, &Size, sizeof(Size)) != sizeof(Size))
		{
			::_exit(1);
		}
	}
}

class FSaveKill : public FFolderFixture
{
};

} // namespace

/** A process that is killed while saving leaves the record of its last save or of the one in progress, never less. */
TEST_F(FSaveKill, KilledSaversLoseNothing)
{
	FSaveSlots Slots(Folder);
	ISaveGameSystem::Install(&Slots);
	UDanmakuSave::SaveSpeedScale(2.5f);
	constexpr int Kills = 25;
	for (int Kill = 0; Kill < Kills; ++Kill)
	{
		int Pipe[2];
		ASSERT_EQ(::pipe(Pipe), 0);
		const pid_t Child = ::fork();
		ASSERT_GE(Child, 0);
		if (Child == 0)
		{
			SaveForever(Folder, Pipe[1]);
		}
		::close(Pipe[1]);
		int32 Reported = 0;
		for (int Report = 0; Report <= Kill % 4; ++Report)
		{
			EXPECT_EQ(::read(Pipe[0], &Reported, sizeof(Reported)), static_cast<ssize_t>(sizeof(Reported)));
		}
		::kill(Child, SIGKILL);
		::waitpid(Child, nullptr, 0);
		while (::read(Pipe[0], &Reported, sizeof(Reported)) == sizeof(Reported))
		{
			// What it reported before it died.
		}
		::close(Pipe[0]);
		const int32 Size = UDanmakuSave::LoadFontSize();
		EXPECT_TRUE(Size == Reported || Size == Reported + 1) << Size << " after a report of " << Reported;
		EXPECT_EQ(UDanmakuSave::LoadSpeedScale(), 2.5f);
	}
	ISaveGameSystem::Install(nullptr);
}

} // namespace Flitmark
