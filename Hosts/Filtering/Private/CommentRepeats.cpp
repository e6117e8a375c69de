#include "Filtering/CommentRepeats.h"

#include <algorithm>
#include <unordered_set>

namespace Flitmark
{

namespace
{

struct FHashComment
{
	std::size_t operator()(const FServiceComment* InComment) const
	{
		return std::hash<int64>()(InComment->Id * 31 + InComment->SpawnTicks);
	}
};

struct FSameComment
{
	bool operator()(const FServiceComment* InLeft, const FServiceComment* InRight) const
	{
		return InLeft->Id == InRight->Id && InLeft->SpawnTicks == InRight->SpawnTicks && InLeft->Text == InRight->Text;
	}
};

} // namespace

int64 DropKnown(std::vector<FServiceComment>& InOutComments, std::size_t InNumEarlier)
{
	std::unordered_set<const FServiceComment*, FHashComment, FSameComment> Known;
	const auto End = InOutComments.begin() + static_cast<std::ptrdiff_t>(InNumEarlier);
	for (auto Comment = InOutComments.begin(); Comment != End; ++Comment)
	{
		if (Comment->Id != 0)
		{
			Known.insert(&*Comment);
		}
	}
	const auto Kept = std::remove_if(End, InOutComments.end(),
									 [&Known](const FServiceComment& InComment)
									 { return InComment.Id != 0 && Known.contains(&InComment); });
	const auto NumTaken = InOutComments.end() - Kept;
	InOutComments.erase(Kept, InOutComments.end());
	return NumTaken;
}

} // namespace Flitmark
