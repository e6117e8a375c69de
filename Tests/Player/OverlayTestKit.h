#pragma once

#include "Formats/CommentDocument.h"
#include "Files/FileText.h"
#include "Scene/Overlay.h"

#include <string>
#include <vector>

namespace Flitmark
{

/** The parts of a comment that a test specifies. */
struct FTestComment
{
	std::string Text;
	/** See EDanmakuMode. */
	int32 Mode = 1;
	double Seconds = 0.0;
	std::string Color = "#FFFFFF";
	int32 FontSize = 24;
};

inline FString MakeDocument(const std::vector<FTestComment>& InComments)
{
	std::string Text;
	for (const FTestComment& Each : InComments)
	{
		Text += (Text.empty() ? "" : ",") + std::string(R"({"danmaku_content":")") + Each.Text +
				R"(","danmaku_mode":)" + std::to_string(Each.Mode) + R"(,"danmaku_spawn_time":)" +
				std::to_string(static_cast<int64>(Each.Seconds * 1e7)) + R"(,"danmaku_font_color":")" + Each.Color +
				R"(","danmaku_font_size":)" + std::to_string(Each.FontSize) + "}";
	}
	return FromUtf8("{\"datas\":[" + Text + "]}");
}

inline void LoadComments(FOverlay& InOverlay, const std::vector<FTestComment>& InComments)
{
	const FString Text = MakeDocument(InComments);
	InOverlay.Load(Text, FCommentDocument::Read(Text));
}

} // namespace Flitmark
