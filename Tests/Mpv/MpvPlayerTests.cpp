#include "Mpv/MpvPlayer.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <numbers>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Flitmark
{

namespace
{

/** A web server with one page; serves it for as long as it lives. */
class FWebPage
{
public:
	explicit FWebPage(std::string InPage)
		: Page(std::move(InPage))
		, Listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
	{
		Address.sin_family = AF_INET;
		Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
		socklen_t Size = sizeof(Address);
		auto* const Bare = reinterpret_cast<sockaddr*>(&Address);
		EXPECT_EQ(bind(Listener, Bare, Size), 0);
		EXPECT_EQ(listen(Listener, 8), 0);
		EXPECT_EQ(getsockname(Listener, Bare, &Size), 0);
		Thread = std::thread([this] { Serve(); });
	}
	~FWebPage()
	{
		shutdown(Listener, SHUT_RDWR);
		Thread.join();
		close(Listener);
	}
	FWebPage(const FWebPage&) = delete;
	FWebPage& operator=(const FWebPage&) = delete;

	std::string GetUrl(const std::string& InName) const
	{
		return "http://127.0.0.1:" + std::to_string(ntohs(Address.sin_port)) + "/" + InName;
	}

private:
	void Serve() const
	{
		const std::string Answer =
			"HTTP/1.0 200 OK\r\nContent-Type: application/vnd.apple.mpegurl\r\nContent-Length: " +
			std::to_string(Page.size()) + "\r\n\r\n" + Page;
		for (int Client = accept(Listener, nullptr, nullptr); Client >= 0; Client = accept(Listener, nullptr, nullptr))
		{
			std::array<char, 4096> Request;
			if (recv(Client, Request.data(), Request.size(), 0) > 0)
			{
				send(Client, Answer.data(), Answer.size(), MSG_NOSIGNAL);
			}
			close(Client);
		}
	}

	const std::string Page;
	const int Listener;
	sockaddr_in Address{};
	std::thread Thread;
};

/** A folder for the sounds to be played. */
class FMpvPlayerTest : public testing::Test, public IMpvObserver
{
protected:
	FMpvPlayerTest()
	{
		std::filesystem::create_directories(Folder);
		std::string Error;
		FMpvOptions Options;
		Options.AudioOutput = "null";
		Player = FMpvPlayer::Create(
			Options, *this,
			[this]
			{
				{
					const std::lock_guard Lock(Mutex);
					bAwake = true;
				}
				Wake.notify_one();
			},
			Error);
		EXPECT_TRUE(Player) << Error;
		Player->StartRendering();
	}

	~FMpvPlayerTest() override
	{
		Player.reset();
		std::filesystem::remove_all(Folder);
	}

	/** Processes events until the condition holds, for at most 20 s. */
	template <class F>
	bool WaitUntil(F&& InCondition)
	{
		const auto End = std::chrono::steady_clock::now() + std::chrono::seconds(20);
		while (!InCondition())
		{
			std::unique_lock Lock(Mutex);
			if (!Wake.wait_until(Lock, End, [this] { return bAwake; }))
			{
				return false;
			}
			bAwake = false;
			Lock.unlock();
			Player->ProcessEvents();
		}
		return true;
	}

	std::string Write(const char* Name, const std::string& Bytes) const
	{
		const std::filesystem::path Path = Folder / Name;
		std::ofstream(Path, std::ios::binary) << Bytes;
		return Path.string();
	}

	/** A tone as an 8-bit WAV, with its length in seconds. */
	std::string WriteTone(const char* Name, uint32_t Seconds) const
	{
		constexpr uint32_t Rate = 8000;
		std::string Data;
		for (uint32_t Index = 0; Index < Seconds * Rate; ++Index)
		{
			Data += static_cast<char>(
				static_cast<uint8_t>(128.0 + 20.0 * std::sin(Index * 440.0 * 2.0 * std::numbers::pi / Rate)));
		}
		std::string Bytes = "RIFF";
		const auto Put = [&Bytes](uint32_t Value, int Size)
		{
			for (int Index = 0; Index < Size; ++Index)
			{
				Bytes += static_cast<char>(Value >> 8 * Index & 0xFF);
			}
		};
		Put(36 + static_cast<uint32_t>(Data.size()), 4);
		Bytes += "WAVEfmt ";
		Put(16, 4);
		Put(1, 2);
		Put(1, 2);
		Put(Rate, 4);
		Put(Rate, 4);
		Put(1, 2);
		Put(8, 2);
		Bytes += "data";
		Put(static_cast<uint32_t>(Data.size()), 4);
		return Write(Name, Bytes + Data);
	}

	void OnStateChanged() override {}
	void OnLoaded() override { ++NumLoaded; }
	void OnFailed(const std::string& InReason) override { Failures.push_back(InReason); }
	void OnSeeked() override { ++NumSeeked; }
	void OnSubtitlesAdded(const std::string& InUrl, const std::string& InReason) override
	{
		Subtitles[InUrl] = InReason;
	}

	const std::filesystem::path Folder =
		std::filesystem::temp_directory_path() / ("flitmark-mpv-" + std::to_string(getpid()));
	int NumLoaded = 0;
	int NumSeeked = 0;
	std::vector<std::string> Failures;
	/** Why each file can't be shown. */
	std::map<std::string, std::string> Subtitles;
	std::unique_ptr<FMpvPlayer> Player;

private:
	std::mutex Mutex;
	std::condition_variable Wake;
	bool bAwake = false;
};

TEST_F(FMpvPlayerTest, PlaysAndTellsHow)
{
	Player->SetPaused(true);
	Player->Open(WriteTone("tone.wav", 30));
	ASSERT_TRUE(WaitUntil([this] { return NumLoaded == 1 && Player->GetState().Duration > 0.0; }));
	const FMpvState& State = Player->GetState();
	EXPECT_NEAR(State.Duration, 30.0, 0.1);
	EXPECT_EQ(State.Title, "tone.wav");
	EXPECT_TRUE(State.bPaused);

	Player->Seek(12.5, true);
	EXPECT_TRUE(WaitUntil([&] { return std::abs(State.Position - 12.5) < 0.1; })) << State.Position;
	EXPECT_GE(NumSeeked, 1);

	Player->SetSpeed(2.0);
	Player->SetVolume(35.0);
	Player->SetMuted(true);
	EXPECT_TRUE(WaitUntil([&] { return State.Speed == 2.0 && State.Volume == 35.0 && State.bMuted; }));

	Player->SetPaused(false);
	EXPECT_TRUE(WaitUntil([&] { return State.Position > 12.8; }));

	Player->Seek(29.9, true);
	EXPECT_TRUE(WaitUntil([&] { return State.bEnded; })) << "stays open at its end";
	EXPECT_TRUE(State.bLoaded);
}

TEST_F(FMpvPlayerTest, SaysWhyAFileCannotBePlayedAndGoesOn)
{
	Player->Open((Folder / "missing.mkv").string());
	ASSERT_TRUE(WaitUntil([this] { return Failures.size() == 1; }));
	EXPECT_NE(Failures[0].find("No such file"), std::string::npos) << Failures[0];

	Player->Open(Write("notes.mp4", "this is no film"));
	ASSERT_TRUE(WaitUntil([this] { return Failures.size() == 2; }));
	EXPECT_NE(Failures[1].find("format"), std::string::npos) << Failures[1];
	EXPECT_FALSE(Player->GetState().bLoaded);

	Player->Open(WriteTone("tone.wav", 1));
	EXPECT_TRUE(WaitUntil([this] { return NumLoaded == 1; }));
	EXPECT_EQ(Failures.size(), 2U);
}

TEST_F(FMpvPlayerTest, TellsNothingOfWhatWasReplaced)
{
	const std::string Tone = WriteTone("tone.wav", 5);
	for (int Turn = 0; Turn < 20; ++Turn)
	{
		Player->Open((Folder / "missing.mkv").string());
		Player->Open(Tone);
		ASSERT_TRUE(WaitUntil([&] { return NumLoaded == Turn + 1; }));
		EXPECT_TRUE(Failures.empty()) << Failures.front();
		EXPECT_TRUE(Player->GetState().bLoaded);
	}
}

/** A list is replaced by its entries, except for files on the viewer's machine if the list is on a network. */
TEST_F(FMpvPlayerTest, PlaysListsButNoFilesThatARemoteOneNames)
{
	const std::string Tone = WriteTone("tone.wav", 30);
	Player->SetPaused(true);
	for (const std::string& List :
		 {"#EXTM3U\nfile://" + Tone + "\n", "[playlist]\nFile1=" + Tone + "\n",
		  "#EXTM3U\n#EXT-X-TARGETDURATION:30\n#EXTINF:30,\nfile://" + Tone + "\n#EXT-X-ENDLIST\n"})
	{
		SCOPED_TRACE(List);
		NumLoaded = 0;
		Failures.clear();
		const std::string Name = List.starts_with('[') ? "list.pls" : "list.m3u8";
		const FWebPage Page(List);
		Player->Open(Page.GetUrl(Name));
		EXPECT_TRUE(WaitUntil([this] { return Failures.size() == 1; }));
		EXPECT_EQ(NumLoaded, 0);
		Player->Open(Write(Name.c_str(), List));
		EXPECT_TRUE(WaitUntil([this] { return NumLoaded == 1 && Player->GetState().Duration > 29.0; }));
		EXPECT_TRUE(Player->GetState().bLoaded);
		EXPECT_EQ(Failures.size(), 1U);
	}
}

TEST_F(FMpvPlayerTest, TellsSubtitlesApartFromTheRest)
{
	Player->SetPaused(true);
	Player->Open(WriteTone("tone.wav", 30));
	ASSERT_TRUE(WaitUntil([this] { return NumLoaded == 1; }));
	Player->AddSubtitles(Write("good.srt", "1\n00:00:01,000 --> 00:00:02,000\nline\n"));
	Player->AddSubtitles(Write("bad.srt", "nothing of the kind"));
	ASSERT_TRUE(WaitUntil([this] { return Subtitles.size() == 2; }));
	EXPECT_TRUE(Subtitles[(Folder / "good.srt").string()].empty());
	EXPECT_FALSE(Subtitles[(Folder / "bad.srt").string()].empty());

	// Their faults are not reported for the next file.
	Player->Open((Folder / "missing.mkv").string());
	ASSERT_TRUE(WaitUntil([this] { return Failures.size() == 1; }));
	EXPECT_NE(Failures[0].find("No such file"), std::string::npos) << Failures[0];
}

TEST_F(FMpvPlayerTest, EndsCleanlyWhileItLoads)
{
	Player->Open(WriteTone("tone.wav", 5));
	Player.reset();
}

} // namespace

} // namespace Flitmark
