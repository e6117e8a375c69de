#include "Formats/CommentDocumentWriter.h"

#include "CommentJson.h"

#include <algorithm>
#include <future>
#include <thread>

namespace Flitmark
{

namespace
{

/** Comments that are formatted at a time: about a megabyte. */
constexpr std::size_t SliceSize = 4096;

/** A slice's text, made on a thread of its own where there is more than one. */
class FSlice
{
public:
	void Start(std::span<const FServiceComment> InComments, bool bInAlone)
	{
		// Where no thread can be had, it is made when it is asked for.
		const std::launch Deferred = std::launch::deferred;
		Done =
			std::async(bInAlone ? Deferred : Deferred | std::launch::async, [this, InComments] { Make(InComments); });
	}

	bool IsStarted() const { return Done.valid(); }

	/** Valid until the next Start. */
	std::string_view Take()
	{
		Done.get();
		return Json.GetText();
	}

private:
	void Make(std::span<const FServiceComment> InComments)
	{
		Json.Clear();
		for (const FServiceComment& Comment : InComments)
		{
			Json.Add("\n");
			Json.AddComment(Comment);
			Json.Add(",");
		}
	}

	FCommentJson Json;
	std::future<void> Done;
};

} // namespace

bool WriteCommentDocument(std::span<const FServiceComment> InComments, const FTextOutput& InOutput)
{
	// One more than are made at a time: the one that is handed out.
	std::vector<FSlice> Slices(std::clamp(std::thread::hardware_concurrency(), 1U, 8U) + 1);
	const bool bAlone = InComments.size() <= SliceSize;
	const auto StartNext = [&InComments, bAlone](FSlice& OutSlice)
	{
		if (!InComments.empty())
		{
			const std::size_t Size = std::min(SliceSize, InComments.size());
			OutSlice.Start(InComments.first(Size), bAlone);
			InComments = InComments.subspan(Size);
		}
	};
	std::ranges::for_each(Slices, StartNext);
	bool bWritten = InOutput("{\"datas\":[");
	for (std::size_t Index = 0; bWritten && Slices[Index].IsStarted(); Index = (Index + 1) % Slices.size())
	{
		std::string_view Text = Slices[Index].Take();
		const bool bLast = InComments.empty() && !Slices[(Index + 1) % Slices.size()].IsStarted();
		Text.remove_suffix(bLast ? 1 : 0);
		bWritten = InOutput(Text);
		StartNext(Slices[Index]);
	}
	return bWritten && InOutput("\n]}\n");
}

std::string WriteCommentDocument(std::span<const FServiceComment> InComments)
{
	std::string Document;
	WriteCommentDocument(InComments,
						 [&Document](std::string_view InPiece)
						 {
							 Document += InPiece;
							 return true;
						 });
	return Document;
}

} // namespace Flitmark
