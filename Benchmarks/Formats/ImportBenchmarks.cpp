#include "Formats/CommentDocumentWriter.h"
#include "Formats/CommentImport.h"
#include "GeneratedFiles.h"

#include <benchmark/benchmark.h>

namespace Flitmark
{

namespace
{

constexpr std::size_t FileSize = std::size_t{20} << 20;

void Import(benchmark::State& InState, const char* InFormat)
{
	const std::string File = GenerateFile(InFormat, FileSize);
	std::string Error;
	FImportResult Result;
	for (auto Pass : InState)
	{
		FMemorySource Source(File);
		if (!ImportComments(Source, Result, Error) || Result.Report.Format != FindCommentFormat(InFormat) ||
			Result.Report.NumBroken > 0)
		{
			InState.SkipWithError(("not read as a whole: " + Error).c_str());
			break;
		}
	}
	InState.SetBytesProcessed(InState.iterations() * static_cast<int64>(File.size()));
	InState.SetItemsProcessed(InState.iterations() * static_cast<int64>(Result.Comments.size()));
}

void Write(benchmark::State& InState)
{
	const std::string File = GenerateFile("list-xml", FileSize);
	FMemorySource Source(File);
	FImportResult Result;
	std::string Error;
	ImportComments(Source, Result, Error);
	std::size_t Written = 0;
	for (auto Pass : InState)
	{
		WriteCommentDocument(Result.Comments,
							 [&Written](std::string_view InPiece)
							 {
								 Written += InPiece.size();
								 return true;
							 });
	}
	InState.SetBytesProcessed(static_cast<int64>(Written));
	InState.SetItemsProcessed(InState.iterations() * static_cast<int64>(Result.Comments.size()));
}

BENCHMARK_CAPTURE(Import, ListXml, "list-xml")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, ListProtobuf, "list-protobuf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, ParametersJson, "parameters-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, RowsJson, "rows-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, ChatXml, "chat-xml")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, ChatJson, "chat-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, ObjectsJson, "objects-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, LiveChatJson, "live-chat-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, OffsetChatJson, "offset-chat-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, MessageListJson, "message-list-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, ListElementsJson, "list-elements-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, BodyJson, "body-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, TextJson, "text-json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Import, Own, "document")->Unit(benchmark::kMillisecond);
BENCHMARK(Write)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Flitmark

BENCHMARK_MAIN();
