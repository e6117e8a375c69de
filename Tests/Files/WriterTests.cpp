#include "FaultyCalls.h"
#include "FolderFixture.h"
#include "Files/ByteSource.h"
#include "Files/TemporaryFile.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

class FFileWriter : public FFolderFixture
{
protected:
	using EFault = FFaultyCalls::EFault;

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

TEST_F(FFileWriter, LeavesTheOldFileOrTheNewWhateverFails)
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

TEST_F(FFileWriter, StartsWithNothingOrTheWholeFile)
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

TEST_F(FFileWriter, WritesThroughInterruptions)
{
	Calls.bInterrupts = true;
	EXPECT_TRUE(Write(New));
	EXPECT_EQ(Read(File), New);
}

/** Opening, flushing and closing the folder come last. */
TEST_F(FFileWriter, AcceptsFoldersThatCannotBeFlushed)
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

TEST_F(FFileWriter, ShowsNothingBeforeTheCommit)
{
	ASSERT_TRUE(Write(Old));
	{
		const auto Abandoned = FTemporaryFile::Create(File.string(), Error);
		const auto Other = FTemporaryFile::Create(File.string(), Error);
		ASSERT_TRUE(Abandoned && Other) << Error;
		EXPECT_TRUE(Abandoned->Write("half a ", Error));
		EXPECT_TRUE(Other->Write(New, Error));
		EXPECT_EQ(Read(File), Old);
		EXPECT_TRUE(Other->Commit(Error));
	}
	EXPECT_EQ(ReadFolder(), (std::map<std::string, std::string>{{"out.txt", New}}));
}

TEST_F(FFileWriter, ReadsWhatThereIsWhateverThePieces)
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

} // namespace

} // namespace Flitmark
