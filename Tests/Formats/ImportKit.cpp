#include "ImportKit.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace Flitmark
{

FImportResult ImportText(std::string_view InText)
{
	FMemorySource Source(InText);
	FImportResult Result;
	std::string Error;
	EXPECT_TRUE(ImportComments(Source, Result, Error)) << Error;
	const FImportReport& Report = Result.Report;
	EXPECT_EQ(Report.NumRead, Result.Comments.size());
	EXPECT_EQ(Report.NumRead + Report.NumBroken + Report.CountSkipped(), Report.NumEntries);
	return Result;
}

std::string ImportRefused(std::string_view InText)
{
	FMemorySource Source(InText);
	FImportResult Result;
	std::string Error;
	EXPECT_FALSE(ImportComments(Source, Result, Error));
	return Error;
}

std::string Describe(const FImportResult& InResult)
{
	constexpr char Letters[] = "sTBRPX$U";
	std::string Text;
	for (const FServiceComment& Comment : InResult.Comments)
	{
		char Look[64];
		std::snprintf(Look, sizeof(Look), "%lld %c%d %08X ", static_cast<long long>(Comment.SpawnTicks),
					  Letters[static_cast<std::size_t>(Comment.Kind)], Comment.FontSize, Comment.Color);
		Text += Look + ("\"" + Comment.Text) + "\"\n";
	}
	return Text;
}

std::string DescribeOrigin(const FImportResult& InResult)
{
	std::string Text;
	for (const FServiceComment& Comment : InResult.Comments)
	{
		Text += std::to_string(Comment.Id) + " " + std::to_string(Comment.PostId) + " " +
				std::to_string(Comment.UserId) + " \"" + Comment.UserName + "\" " + std::to_string(Comment.PostDate) +
				"\n";
	}
	return Text;
}

std::string DescribeSkipped(const FImportResult& InResult)
{
	std::string Text;
	for (const FSkippedEntries& Entries : InResult.Report.Skipped)
	{
		Text += std::to_string(Entries.Num) + " " + Entries.What + "\n";
	}
	return Text;
}

std::string DescribeFaults(const FImportResult& InResult)
{
	std::string Text;
	for (const FImportFault& Fault : InResult.Report.Faults)
	{
		Text += std::to_string(Fault.Line) + "/" + std::to_string(Fault.Index) + " " + Fault.Reason + "\n";
	}
	return Text;
}

} // namespace Flitmark
