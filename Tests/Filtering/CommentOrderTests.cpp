#include "Filtering/CommentOrder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace Flitmark
{

TEST(CommentOrder, IsByTimeAndKeepsEqualOnesInOrder)
{
	for (const int64 Count : {0, 1, 2, 10'000})
	{
		std::vector<FServiceComment> Comments;
		for (int64 Id = 0; Id < Count; ++Id)
		{
			FServiceComment& Comment = Comments.emplace_back();
			Comment.Id = Id;
			Comment.SpawnTicks = Id * 7919 % 1000 - 3;
			Comment.Text = std::to_string(Id);
		}
		std::vector<FServiceComment> Expected = Comments;
		std::ranges::stable_sort(Expected, {}, &FServiceComment::SpawnTicks);
		OrderByTime(Comments);
		ASSERT_EQ(Comments.size(), Expected.size());
		for (std::size_t Index = 0; Index < Expected.size(); ++Index)
		{
			ASSERT_EQ(Comments[Index].Id, Expected[Index].Id) << Index;
			ASSERT_EQ(Comments[Index].Text, Expected[Index].Text);
		}
	}
}

} // namespace Flitmark
