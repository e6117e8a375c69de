#include "FaultyCalls.h"
#include "FolderFixture.h"
#include "Files/ByteSource.h"
#include "Files/ExceptionText.h"
#include "Files/TemporaryFile.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace Flitmark
{

namespace
{

/** On a file system that supports files without a name, and on one that does not. */
class FFileWriter : public FFolderFixture, public testing::WithParamInterface<bool>
{
protected:
	using EFault = FFaultyCalls::EFault;

	FFileWriter() { Calls.bNamesAll = GetParam(); }

	/** What a program killed while writing leaves behind on a file system where every file has a name. */
	fs::path Leave(const std::string& InName) const
	{
		WriteText(Folder / InName, "half a");
		return Folder / InName;
	}

	bool Write(const std::string& InText)
	{
		Error.clear();
		return WriteWholeFile(File.string(), InText, Error, Calls);
	}

	/** How many calls it takes to replace the old text. */
	int32 CountCalls()
	{
		EXPECT_TRUE(Write(Old));
		Calls.Reset();
		EXPECT_TRUE(Write(Old));
		return Calls.NumCalls;
	}

	const fs::path File = Folder / "out.txt";
	const std::string Old = "what was there before";
	const std::string New = "what is written in its place";
	FFaultyCalls Calls;
	std::string Error;
};

TEST_P(FFileWriter, LeavesTheOldFileOrTheNewWhateverFails)
{
	const int32 NumCalls = CountCalls();
	ASSERT_GT(NumCalls, 8) << "written in pieces";
	for (const EFault Fault : {EFault::Once, EFault::ForGood})
	{
		for (int32 Faulty = 0; Faulty < NumCalls; ++Faulty)
		{
			SCOPED_TRACE(Faulty);
			fs::remove_all(Folder);
			fs::create_directories(Folder);
			Calls.Reset();
			ASSERT_TRUE(Write(Old));
			Calls.Reset(Faulty, Fault);
			EXPECT_FALSE(Write(New));
			EXPECT_EQ(Error, File.string() + ": cannot be written: No space left on device");
			const std::string Now = Read(File);
			EXPECT_TRUE(Now == Old || Now == New) << Now;
			EXPECT_LE(ReadFolder().size(), Fault == EFault::Once ? 1u : 2u) << "only a crash leaves something behind";
			Calls.Reset();
			ASSERT_TRUE(Write(Old)) << "goes on when the disk does";
			EXPECT_EQ(Read(File), Old);
		}
	}
}

TEST_P(FFileWriter, StartsWithNothingOrTheWholeFile)
{
	const int32 NumCalls = CountCalls();
	for (int32 Faulty = 0; Faulty < NumCalls; ++Faulty)
	{
		fs::remove_all(Folder);
		fs::create_directories(Folder);
		Calls.Reset(Faulty, EFault::ForGood);
		EXPECT_FALSE(Write(New));
		const std::string Now = Read(File);
		EXPECT_TRUE(Now == "(missing)" || Now == New) << Now;
	}
}

TEST_P(FFileWriter, WritesThroughInterruptions)
{
	Calls.bInterrupts = true;
	EXPECT_TRUE(Write(New));
	EXPECT_EQ(Read(File), New);
}

/** Opening, flushing and closing the folder come last. */
TEST_P(FFileWriter, AcceptsFoldersThatCannotBeFlushed)
{
	const int32 NumCalls = CountCalls();
	struct FCase
	{
		int32 FromEnd;
		int Error;
		bool bAccepted;
	};
	for (const FCase& Case : {FCase{3, EACCES, true}, FCase{3, EMFILE, false}, FCase{2, EINVAL, true},
							  FCase{2, EIO, false}, FCase{1, EIO, false}})
	{
		SCOPED_TRACE(Case.FromEnd);
		Calls.Reset(NumCalls - Case.FromEnd, EFault::Once, Case.Error);
		EXPECT_EQ(Write(Old), Case.bAccepted) << Case.Error;
		EXPECT_EQ(Error.empty(), Case.bAccepted) << Error;
	}
}

TEST_P(FFileWriter, ShowsNothingBeforeTheCommit)
{
	ASSERT_TRUE(Write(Old));
	{
		const auto Abandoned = FTemporaryFile::Create(File.string(), Error, Calls);
		const auto Other = FTemporaryFile::Create(File.string(), Error, Calls);
		ASSERT_TRUE(Abandoned && Other) << Error;
		EXPECT_TRUE(Abandoned->Write("half a ", Error));
		EXPECT_TRUE(Other->Write(New, Error));
		EXPECT_EQ(Read(File), Old);
		EXPECT_EQ(ReadFolder().size(), GetParam() ? 3u : 1u);
		EXPECT_TRUE(Other->Commit(Error));
	}
	EXPECT_EQ(ReadFolder(), (std::map<std::string, std::string>{{"out.txt", New}}));
}

TEST_P(FFileWriter, RemovesWhatDeadProgramsLeftAndNothingElse)
{
	const fs::path Stranger = Folder / "stranger";
	WriteText(Stranger, "somebody's own");
	fs::create_symlink(Stranger, Folder / "out.txt.7-0.part");
	const fs::path Kept[] = {Leave("out.txt.part"), Leave("out.txt.7-0"), Leave("out.txt.old-0.part"),
							 Leave("other.txt.7-0.part")};
	const fs::path Left = Leave("out.txt.4194304-12.part");
	const fs::path Alive = Leave("out.txt.99-1.part");
	const int Owner = ::open(Alive.c_str(), O_RDONLY);
	ASSERT_EQ(::flock(Owner, LOCK_EX), 0);
	EXPECT_TRUE(Write(New));
	EXPECT_FALSE(fs::exists(Left));
	EXPECT_TRUE(fs::exists(Alive)) << "whose owner still writes it";
	EXPECT_EQ(Read(Stranger), "somebody's own");
	for (const fs::path& Each : Kept)
	{
		EXPECT_TRUE(fs::exists(Each)) << Each;
	}
	::close(Owner);
	EXPECT_TRUE(Write(New));
	EXPECT_FALSE(fs::exists(Alive));
}

/** Names that a stranger could have guessed and taken first, in a folder that others can write to. */
TEST_P(FFileWriter, FollowsNoPlantedLink)
{
	const fs::path Stranger = Folder / "stranger";
	WriteText(Stranger, "somebody's own");
	for (int Try = 0; Try < 5; ++Try)
	{
		fs::create_symlink(Stranger,
						   File.string() + "." + std::to_string(getpid()) + "-" + std::to_string(Try) + ".part");
	}
	EXPECT_TRUE(Write(New)) << Error;
	EXPECT_EQ(Read(Stranger), "somebody's own");
	EXPECT_EQ(Read(File), New);
	EXPECT_FALSE(fs::is_symlink(File));
}

TEST_P(FFileWriter, LeavesNothingWhereASignalEndsTheProgram)
{
	const auto Unfinished = FTemporaryFile::Create(File.string(), Error, Calls);
	ASSERT_TRUE(Unfinished && Unfinished->Write("half a", Error)) << Error;
	FTemporaryName::RemoveAll();
	EXPECT_TRUE(ReadFolder().empty());
}

/** Like a muxer, which opens its file by name. */
TEST_P(FFileWriter, CanBeOpenedByPath)
{
	const auto Written = FTemporaryFile::Create(File.string(), Error, Calls);
	ASSERT_TRUE(Written) << Error;
	WriteText(Written->Path(), New);
	EXPECT_TRUE(Written->Commit(Error)) << Error;
	EXPECT_EQ(Read(File), New);
}

TEST_P(FFileWriter, ReadsWhatThereIsWhateverThePieces)
{
	FMemorySource Source("abcdefg", 3);
	EXPECT_EQ(Source.ReadUpTo(5), "abcde");
	EXPECT_EQ(Source.ReadUpTo(5), "fg");
	EXPECT_EQ(Source.ReadUpTo(5), "");
	EXPECT_EQ(FFileSource::Open(Folder, Error), nullptr);
	EXPECT_EQ(Error, Folder.string() + ": is a folder, not a file");
	EXPECT_EQ(FFileSource::Open(File, Error), nullptr);
	EXPECT_EQ(Error, File.string() + ": cannot be opened: No such file or directory");
	ASSERT_TRUE(Write(Old));
	EXPECT_EQ(FFileSource::Open(File, Error)->ReadUpTo(1000), Old);
}

INSTANTIATE_TEST_SUITE_P(Both, FFileWriter, testing::Bool(),
						 [](const auto& InInfo) { return InInfo.param ? "Named" : "Nameless"; });

TEST(ExceptionText, NamesTheCause)
{
	EXPECT_EQ(ExplainException(std::bad_alloc()), "there is not enough memory");
	EXPECT_EQ(ExplainException(std::length_error("vector::_M_default_append")), "there is not enough memory");
	EXPECT_NE(ExplainException(std::system_error(EAGAIN, std::system_category())).find("thread"), std::string::npos);
	EXPECT_EQ(ExplainException(std::system_error(EACCES, std::system_category(), "x")), "Permission denied");
	EXPECT_EQ(ExplainException(std::runtime_error("no ink")), "no ink");
}

} // namespace

} // namespace Flitmark
