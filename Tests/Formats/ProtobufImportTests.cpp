#include "ImportKit.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

std::string Varint(uint64 InValue)
{
	std::string Bytes;
	for (; InValue >= 0x80; InValue >>= 7)
	{
		Bytes += static_cast<char>((InValue & 0x7F) | 0x80);
	}
	return Bytes + static_cast<char>(InValue);
}

std::string Number(uint64 InField, int64 InValue)
{
	return Varint(InField << 3) + Varint(static_cast<uint64>(InValue));
}

std::string Bytes(uint64 InField, const std::string& InValue)
{
	return Varint(InField << 3 | 2) + Varint(InValue.size()) + InValue;
}

const std::string Full = Number(1, 7'000'000'000) + Number(2, 1500) + Number(3, 5) + Number(4, 18) +
						 Number(5, 0xFF8000) + Bytes(6, "ab") + Bytes(7, "a/nb") + Number(8, 1'600'000'000) +
						 Number(11, 1);
const std::string FullRead = "15000000 T17 FF8000FF \"a\nb\"\n";

} // namespace

TEST(ListProtobuf, IsRead)
{
	const std::string WithUnknown = Number(9, 4) + Bytes(10, "x") + Varint(13U << 3 | 5) + "1234" +
									Varint(14U << 3 | 1) + "12345678" + Full + Bytes(22, "y");
	// Zeros are not written: a full entry without a color is black, one without a time comes at the start.
	const std::string Black = Number(1, 1) + Number(3, 1) + Number(4, 25) + Bytes(7, "black");
	const std::string Little = Number(2, -1) + Bytes(7, "\xFFx");
	const FImportResult Result =
		ImportText(Bytes(1, Full) + Bytes(3, "other") + Bytes(1, WithUnknown) + Bytes(1, Black) + Bytes(1, Little));
	EXPECT_EQ(Result.Report.Format, FindCommentFormat("list-protobuf"));
	EXPECT_EQ(Describe(Result), FullRead + FullRead + "0 s24 000000FF \"black\"\n-10000 s24 FFFFFFFF \"\uFFFDx\"\n");
	EXPECT_EQ(DescribeOrigin(Result).substr(0, 40), "7000000000 1 1294271946 \"\" 1600000000\n70");
	EXPECT_EQ(DescribeFaults(Result), "");
}

TEST(ListProtobuf, BrokenEntriesCostThemselvesAlone)
{
	const std::string Textless = Number(1, 1) + Number(2, 5);
	const std::string Repaired = Full + Varint(12U << 3 | 2) + Varint(99) + "x";
	const std::string Damaged = Number(1, 1) + std::string("\x3A\x7F") + "abc";
	const FImportResult Result = ImportText(Bytes(1, Full) + Bytes(1, Textless) + Bytes(1, Repaired) +
											Bytes(1, Damaged) + Bytes(1, "") + Bytes(1, Full));
	EXPECT_EQ(Describe(Result), FullRead + FullRead + FullRead);
	EXPECT_EQ(DescribeFaults(Result), "0/2 has no text\n0/3 is damaged; everything before the damage was read\n"
									  "0/4 is damaged, and no text can be read\n0/5 has no text\n");
}

TEST(ListProtobuf, WhatFollowsWhereTheFileBreaksIsTold)
{
	const std::string Entry = Bytes(1, Full);
	struct FCase
	{
		std::string Tail;
		const char* Fault;
	};
	const FCase Cases[] = {
		{"", ""},
		{Entry.substr(0, Entry.size() - 1), "0/3 the file ends in the middle of this entry\n"},
		{Entry.substr(0, 1), "0/3 has an impossible length; the rest of the file cannot be read\n"},
		{"\x0A\xFF\xFF\xFF\xFF\x0F" + Entry, "0/3 has an impossible length; the rest of the file cannot be read\n"},
		{std::string(1, '\0') + Entry, "0/3 is not a message field; the rest of the file cannot be read\n"},
		{"\x0F" + Entry, "0/3 is not a message field; the rest of the file cannot be read\n"},
	};
	for (const FCase& Case : Cases)
	{
		const FImportResult Result = ImportText(Entry + Entry + Case.Tail);
		EXPECT_EQ(Describe(Result), FullRead + FullRead);
		EXPECT_EQ(DescribeFaults(Result), Case.Fault);
	}
}

TEST(ListProtobuf, IsReadInSmallPieces)
{
	std::string File;
	for (int Index = 0; Index < 10000; ++Index)
	{
		File += Bytes(1, Full);
	}
	FMemorySource Source(File, 7);
	FImportResult Result;
	std::string Error;
	ASSERT_TRUE(ImportComments(Source, Result, Error));
	EXPECT_EQ(Result.Report.NumRead, 10000U);
	EXPECT_EQ(Result.Report.NumBroken, 0U);
}

} // namespace Flitmark
