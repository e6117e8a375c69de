#include "DanmakuSave.h"
#include "Stage/SaveSlots.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace Flitmark
{

namespace
{

/** Saves ever larger font sizes until it is killed. */
[[noreturn]] void SaveForever(const std::filesystem::path& Folder)
{
	FSaveSlots Slots(Folder);
	ISaveGameSystem::Install(&Slots);
	for (int32 Size = UDanmakuSave::LoadFontSize() + 1;; ++Size)
	{
		UDanmakuSave::SaveFontSize(Size);
	}
}

} // namespace

/** A process that is killed while it saves leaves the record of its last save or of the one before, never less. */
TEST(FSaveKill, KilledSaversLoseNothing)
{
	std::string Pattern = (std::filesystem::temp_directory_path() / "flitmark-save-XXXXXX").string();
	ASSERT_NE(::mkdtemp(Pattern.data()), nullptr);
	const std::filesystem::path Folder(Pattern);
	FSaveSlots Slots(Folder);
	ISaveGameSystem::Install(&Slots);
	UDanmakuSave::SaveSpeedScale(2.5f);
	int32 LastSize = UDanmakuSave::LoadFontSize();
	constexpr int Kills = 25;
	for (int Kill = 0; Kill < Kills; ++Kill)
	{
		const pid_t Child = ::fork();
		ASSERT_GE(Child, 0);
		if (Child == 0)
		{
			SaveForever(Folder);
		}
		std::this_thread::sleep_for(std::chrono::microseconds(2000 + 1777 * Kill % 9000));
		::kill(Child, SIGKILL);
		::waitpid(Child, nullptr, 0);
		const int32 Size = UDanmakuSave::LoadFontSize();
		EXPECT_GE(Size, LastSize);
		EXPECT_EQ(UDanmakuSave::LoadSpeedScale(), 2.5f);
		LastSize = Size;
	}
	EXPECT_GT(LastSize, 24) << "no child came to save anything: the test tested nothing";
	ISaveGameSystem::Install(nullptr);
	std::filesystem::remove_all(Folder);
}

} // namespace Flitmark
