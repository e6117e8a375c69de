#pragma once

#include "CoreMinimal.h"
#include "Stage/Stage.h"
#include "Types/SlateEnums.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Flitmark
{

/** What a script's line can do. */
enum class ETraceAction : uint8
{
	Pause,
	Resume,
	PlayerPause,
	PlayerResume,
	Seek,
	Url,
	Resize,
	Load,
	Empty,
	Type,
	Commit,
	Click,
	Check,
	Color,
	Hover,
	Unhover,
	EnterPanel,
	LeavePanel,
	SaveFontSize,
	SaveSpeedScale,
	SaveIsOpened,
	Report,
};

/** One line of a script; what an action does not need stays as it is here. */
struct FTraceStep
{
	int64 Frame = 0;
	ETraceAction Action = ETraceAction::Report;

	/** Ticks to seek to, or the whole number to save. */
	int64 Number = 0;
	float Scale = 0.f;
	FVector2f Size = FVector2f::ZeroVector;
	bool bFlag = false;
	/** A text to type, a URL, a document, or a widget's name. */
	FString Text;
	ETextCommit::Type Commit = ETextCommit::Default;
};

/** What happens at which frame of a trace. */
struct FTraceScript
{
	/** By frame, those of one frame in the order of the file. */
	std::vector<FTraceStep> Steps;
	/** Defaults to be edited before the widgets are built. */
	std::vector<FStageSetting> Settings;

	/**
	 * Reads a script of JSON lines. Empty with OutError "FILE:LINE: what is wrong" where a line is not understood or a
	 * document that it loads cannot be read. InName: the file as the user named it.
	 */
	static std::optional<FTraceScript> Parse(std::string_view InBytes, const std::filesystem::path& InName,
											 std::string& OutError);
};

/** Whether a canvas of that size can be laid out: 0 or more, and no higher than lanes can be counted. */
bool IsCanvasSize(double InWidth, double InHeight);

} // namespace Flitmark
