#pragma once

#include "Overlay/OverlayRunner.h"
#include "Files/FileText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Flitmark
{

/** A comment that a test writes. */
struct FTestComment
{
	std::string Text;
	/** See EDanmakuMode. */
	int32 Mode = 1;
	double Seconds = 0.0;
	std::string Color = "#FFFFFF";
};

inline FString MakeDocument(const std::vector<FTestComment>& InComments)
{
	std::string Text;
	for (const FTestComment& Each : InComments)
	{
		Text += (Text.empty() ? "" : ",") + std::string(R"({"danmaku_content":")") + Each.Text +
				R"(","danmaku_mode":)" + std::to_string(Each.Mode) + R"(,"danmaku_spawn_time":)" +
				std::to_string(static_cast<int64>(Each.Seconds * 1e7)) + R"(,"danmaku_font_color":")" + Each.Color +
				R"(","danmaku_font_size":24})";
	}
	return FromUtf8("{\"datas\":[" + Text + "]}");
}

/** A runner that does not have a view yet. */
class FRunnerFixture : public testing::Test
{
protected:
	static constexpr double FrameTime = 1.0 / 60.0;

	FRunnerFixture()
	{
		std::string Error;
		Measure = FTextMeasure::Create({}, Error);
		Runner = FOverlayRunner::Create(*Measure, 1, Error);
	}

	/** A canvas of 1920 x 1080 over a picture with two pixels per canvas unit horizontally and three vertically. */
	void Show() { Runner->SetView({FVector2f(1920.f, 1080.f), {2.0, 3.0}}); }
	void Load(const std::vector<FTestComment>& InComments) { Runner->Load(MakeDocument(InComments), {}); }
	void SetSeconds(double InSeconds) { Runner->SetMediaTime(static_cast<int64>(InSeconds * 1e7)); }
	void Step(double InSeconds = FrameTime) { Runner->RunFrame(InSeconds); }
	std::size_t Count() const { return Runner->GetScene().GetComments().size(); }
	const FSceneComment& First() const { return Runner->GetScene().GetComments().front(); }

	std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FOverlayRunner> Runner;
};

} // namespace Flitmark
