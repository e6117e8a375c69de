#include "StageFixture.h"

namespace Flitmark
{

namespace
{

class FLoader : public FStageFixture
{
protected:
	FLoader() { Stage->SetUrl(TEXT("file:///other")); }

	/** Loads a document and plays the seconds from 0 on; returns the comments made, shown or not. */
	std::vector<UUI_DanmakuNode*> Play(const std::string& Document, int32 NumSeconds = 1)
	{
		const std::size_t Before = Log.GetNodes().size();
		Stage->GetOverlay().LoadDanmaku(FromUtf8(Document));
		GoTo(3600.0);
		for (int32 Second = 0; Second < NumSeconds; ++Second)
		{
			GoTo(Second);
		}
		return std::vector(Log.GetNodes().begin() + static_cast<std::ptrdiff_t>(Before), Log.GetNodes().end());
	}
};

/** The parts of a record that the tests below compare. */
struct FRecord
{
	int32 DanmakuID = 0;
	int32 PostID = 0;
	int32 UserID = 0;
	std::string UserDisplayName;
	int64 PostDate = 0;
	int64 SpawnTime = 0;
	std::string Content;
	int32 Mode = 0;
	int32 FontSize = 0;
	std::string FontColor;
	friend bool operator==(const FRecord&, const FRecord&) = default;
};

FRecord ToRecord(const FDanmakuData& Data)
{
	return {Data.DanmakuID,
			Data.PostID,
			Data.UserID,
			ToUtf8(Data.UserDisplayName),
			Data.PostDate.GetTicks(),
			Data.SpawnTime.GetTicks(),
			ToUtf8(Data.Content),
			static_cast<int32>(Data.Mode),
			Data.FontSize,
			ToUtf8(Data.FontColor)};
}

std::ostream& operator<<(std::ostream& Stream, const FRecord& Record)
{
	return Stream << Record.DanmakuID << ' ' << Record.PostID << ' ' << Record.UserID << ' ' << Record.UserDisplayName
				  << ' ' << Record.PostDate << ' ' << Record.SpawnTime << ' ' << Record.Content << ' ' << Record.Mode
				  << ' ' << Record.FontSize << ' ' << Record.FontColor;
}

TEST_F(FLoader, ReadsEveryElement)
{
	const struct
	{
		const char* Element;
		FRecord Expected;
	} Cases[] = {
		{R"({"danmaku_id":1,"post_id":2,"user_id":3,"user_display_name":"ann","danmaku_post_date":"2024.2.3-4.5.6",
			"danmaku_spawn_time":9999999,"danmaku_content":"hi","danmaku_mode":1,"danmaku_font_size":18,
			"danmaku_font_color":"#FE0302","more":[{}]})",
		 {1, 2, 3, "ann", 638425299060000000, 9999999, "hi", 1, 18, "#FE0302"}},
		{"{}", {}},
		{"5", {}},
		{"\"text\"", {}},
		{"null", {}},
		{"[1,2]", {}},
		{R"({"danmaku_id":1.9,"post_id":-1.9,"user_id":-0.5})", {1, -1, 0, {}, 0, 0, {}, 0, 0, {}}},
		{R"({"danmaku_mode":1.9})", {0, 0, 0, {}, 0, 0, {}, 1, 0, {}}},
		{R"({"danmaku_mode":-0.5})", {}},
		{R"({"danmaku_mode":7})", {0, 0, 0, {}, 0, 0, {}, 7, 0, {}}},
		{R"({"danmaku_font_size":25.7})", {0, 0, 0, {}, 0, 0, {}, 0, 25, {}}},
		{R"({"danmaku_font_size":"18"})", {0, 0, 0, {}, 0, 0, {}, 0, 18, {}}},
		{R"({"danmaku_font_size":true})", {0, 0, 0, {}, 0, 0, {}, 0, 1, {}}},
		{R"({"danmaku_font_size":1e300,"danmaku_id":-1e300})", {MIN_int32, 0, 0, {}, 0, 0, {}, 0, MAX_int32, {}}},
		{R"({"danmaku_font_size":null,"danmaku_id":{},"danmaku_content":[]})", {}},
		{R"({"danmaku_content":12,"user_display_name":false})", {0, 0, 0, "false", 0, 0, "12", 0, 0, {}}},
		{R"({"danmaku_spawn_time":"20"})", {0, 0, 0, {}, 0, 20, {}, 0, 0, {}}},
		{R"({"danmaku_spawn_time":"soon"})", {}},
		{R"({"danmaku_post_date":"yesterday"})", {}},
		{R"({"danmaku_post_date":"2024.13.1-0.0.0"})", {}},
	};
	for (const auto& Case : Cases)
	{
		const std::vector<UUI_DanmakuNode*> Nodes = Play("{\"datas\":[" + std::string(Case.Element) + "]}");
		ASSERT_EQ(Nodes.size(), 1u) << Case.Element;
		EXPECT_EQ(ToRecord(Nodes[0]->GetData()), Case.Expected) << Case.Element;
	}
}

TEST_F(FLoader, FilesNothingOfATextThatIsNoDocument)
{
	const struct
	{
		const char* Text;
		std::size_t Comments;
	} Cases[] = {
		{"", 0},
		{" ", 0},
		{"[]", 0},
		{"[{\"datas\":[{}]}]", 0},
		{"7", 0},
		{"{}", 0},
		{"{\"datas\":{}}", 0},
		{"{\"datas\":7}", 0},
		{"{\"datas\":[]}", 0},
		{"{\"other\":[{}]}", 0},
		{"{\"datas\":[{}]", 0},
		{"{\"datas\":[{},]}", 0},
		{"{\"datas\":[{}]} x", 0},
		{"{\"datas\":[{}]}", 1},
		{"{\"a\":[1],\"datas\":[5,{}],\"b\":null}", 2},
	};
	for (const auto& Case : Cases)
	{
		Load({{0.0}});
		EXPECT_EQ(Play(Case.Text).size(), Case.Comments) << "before it: " << Case.Text;
	}
}

TEST_F(FLoader, FilesInOrderUnderTheWholeSecond)
{
	const auto Contents = [](const std::vector<UUI_DanmakuNode*>& Nodes)
	{
		std::string Text;
		for (const UUI_DanmakuNode* Node : Nodes)
		{
			Text += ToUtf8(Node->GetData().Content);
		}
		return Text;
	};
	const std::string Document = WriteDocument(
		{{2.9999999, "d"}, {1.0, "b"}, {-0.5, "a"}, {2.0, "e"}, {1.9999999, "c"}, {-1.5, "never"}, {2.0, "e"}});
	EXPECT_EQ(Contents(Play(Document, 5)), "abcdee");
}

TEST_F(FLoader, ReplacesWhatWasFiled)
{
	Load({{0.0}, {1.0}});
	EXPECT_EQ(Play(WriteDocument({{1.0}}), 2).size(), 1u);
	EXPECT_EQ(Play("no document", 2).size(), 0u);
}

TEST_F(FLoader, LeavesWhatIsShown)
{
	Play(WriteDocument({{0.0, "200x30"}}));
	const UUI_DanmakuNode* Node = GetLastNode();
	const double X = Node->GetPosition().X;
	Load({});
	RunFrames(1, 1.f);
	EXPECT_EQ(GetShown().size(), 1u);
	EXPECT_LT(Node->GetPosition().X, X);
}

TEST_F(FLoader, IsDeafBeforeTheFirstLaidOutFrame)
{
	Rebuild(MakeOptions(FVector2f(0.f, 0.f)));
	Stage->Preroll();
	Load({{0.0}});
	Stage->SetCanvasSize(FVector2f(1920.f, 1080.f));
	GoTo(0.0);
	EXPECT_TRUE(Log.GetNodes().empty());
	GoTo(1.0);
	Load({{0.0}});
	GoTo(0.0);
	EXPECT_EQ(Log.GetNodes().size(), 1u);
}

} // namespace

} // namespace Flitmark
