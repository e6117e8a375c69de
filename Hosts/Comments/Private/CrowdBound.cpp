#include "Comments/CrowdBound.h"

#include "Files/FileText.h"
#include "Formats/CommentDocumentWriter.h"
#include "Formats/CommentTraits.h"

#include <unordered_map>

namespace Flitmark
{

namespace
{

/** Counts the comments of each second. */
class FCrowds
{
public:
	/** Whether there is room for one more. */
	bool Admit(int64 InSpawnTicks) { return ++Counts[GetSecond(InSpawnTicks)] <= MostPerSecond; }

private:
	std::unordered_map<int64, int32> Counts;
};

} // namespace

int64 BoundCrowds(std::vector<FServiceComment>& InOutComments)
{
	if (InOutComments.size() <= static_cast<std::size_t>(MostPerSecond))
	{
		return 0;
	}
	FCrowds Crowds;
	return static_cast<int64>(std::erase_if(InOutComments, [&Crowds](const FServiceComment& InComment)
											{ return !Crowds.Admit(InComment.SpawnTicks); }));
}

int64 BoundCrowds(FString& InOutText, FCommentDocument& InOutDocument)
{
	const std::vector<FCommentEntry>& Entries = InOutDocument.GetEntries();
	if (Entries.size() <= static_cast<std::size_t>(MostPerSecond))
	{
		return 0;
	}
	FCrowds Crowds;
	std::vector<bool> Kept;
	Kept.reserve(Entries.size());
	int64 NumOut = 0;
	for (const FCommentEntry& Entry : Entries)
	{
		Kept.push_back(Crowds.Admit(Entry.SpawnTicks));
		NumOut += Kept.back() ? 0 : 1;
	}
	if (NumOut > 0)
	{
		InOutDocument = {};
		InOutText = FromUtf8(KeepElements(ToUtf8(InOutText), Kept));
		InOutDocument = FCommentDocument::Read(InOutText);
	}
	return NumOut;
}

} // namespace Flitmark
