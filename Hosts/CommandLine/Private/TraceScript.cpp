#include "TraceScript.h"

#include "Comments/CommentsReport.h"
#include "Comments/CrowdBound.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Files/FileText.h"
#include "Message.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <cmath>
#include <functional>
#include <limits>
#include <map>

namespace Flitmark
{

namespace
{

/** The highest canvas, in canvas units: a lane is an object, and some hundred thousand of them are enough. */
constexpr double MaxCanvasHeight = 10'000'000.0;

constexpr double MaxTicks = 9'223'372'036'854'775'807.0;

/** Reads one line: its members, each checked for type and range. The first thing wrong is kept. */
class FLineReader
{
public:
	FLineReader(const FJsonObject& InObject, const std::filesystem::path& InScript)
		: Object(InObject)
		, ScriptFolder(InScript.parent_path())
	{
	}

	double Number(const TCHAR* InName, double InMin, double InMax)
	{
		const TSharedPtr<FJsonValue> Value = Object.TryGetField(InName);
		if (!Value.IsValid() || Value->Type != EJson::Number)
		{
			Fail(InName, "must be a number");
			return InMin;
		}
		const double Found = Value->AsNumber();
		if (!(Found >= InMin && Found <= InMax))
		{
			Fail(InName, "is out of range");
			return InMin;
		}
		return Found;
	}

	int64 WholeNumber(const TCHAR* InName, double InMin, double InMax)
	{
		const double Found = Number(InName, InMin, InMax);
		if (Found != std::floor(Found))
		{
			Fail(InName, "must be a whole number");
		}
		return Found < MaxTicks ? static_cast<int64>(Found) : std::numeric_limits<int64>::max();
	}

	FString Text(const TCHAR* InName)
	{
		const TSharedPtr<FJsonValue> Value = Object.TryGetField(InName);
		if (!Value.IsValid() || Value->Type != EJson::String)
		{
			Fail(InName, "must be a string");
			return FString();
		}
		return Value->AsString();
	}

	bool Bool(const TCHAR* InName)
	{
		const TSharedPtr<FJsonValue> Value = Object.TryGetField(InName);
		if (!Value.IsValid() || Value->Type != EJson::Boolean)
		{
			Fail(InName, "must be true or false");
			return false;
		}
		double Found = 0.0;
		return Value->TryGetNumber(Found) && Found != 0.0;
	}

	/** One of the names of a table. */
	template <class T>
	T Choice(const TCHAR* InName, const std::map<std::u16string_view, T>& InChoices)
	{
		const FString Found = Text(InName);
		const auto Entry = InChoices.find(std::u16string_view(Found.GetStd()));
		if (Entry == InChoices.end())
		{
			Fail(InName, "is not a known name");
			return T();
		}
		return Entry->second;
	}

	/** The text of a document beside the script. */
	FString Document(const TCHAR* InName)
	{
		const FString File = Text(InName);
		if (!Error.empty())
		{
			return FString();
		}
		std::string ReadError;
		std::optional<FString> Read = LoadText(ScriptFolder / ToUtf8(File), ReadError);
		if (!Read)
		{
			Fail(InName, ReadError.c_str());
			return FString();
		}
		FCommentDocument Parsed = FCommentDocument::Read(*Read);
		if (const int64 NumOut = BoundCrowds(*Read, Parsed); NumOut > 0)
		{
			PrintNote(ToUtf8(File) + ": " + DescribeCrowd(NumOut));
		}
		return std::move(*Read);
	}

	void Fail(const TCHAR* InName, const char* InWhat)
	{
		if (Error.empty())
		{
			Error = "\"" + ToUtf8(FString(InName)) + "\" " + InWhat;
		}
	}

	const std::string& GetError() const { return Error; }

private:
	const FJsonObject& Object;
	std::filesystem::path ScriptFolder;
	std::string Error;
};

constexpr double MinInt32 = MIN_int32;
constexpr double MaxInt32 = MAX_int32;

using FReadMembers = std::function<void(FLineReader&, FTraceStep&)>;

struct FActionEntry
{
	ETraceAction Action;
	/** Reads what the action needs beyond its name; may be empty. */
	FReadMembers Read;
};

void ReadSave(FLineReader& InOutLine, FTraceStep& OutStep)
{
	OutStep.Action = InOutLine.Choice<ETraceAction>(TEXT("what"), {{u"FontSize", ETraceAction::SaveFontSize},
																   {u"SpeedScale", ETraceAction::SaveSpeedScale},
																   {u"bIsOpened", ETraceAction::SaveIsOpened}});
	switch (OutStep.Action)
	{
	case ETraceAction::SaveFontSize:
		OutStep.Number = InOutLine.WholeNumber(TEXT("value"), MinInt32, MaxInt32);
		break;
	case ETraceAction::SaveSpeedScale:
		OutStep.Scale = static_cast<float>(
			InOutLine.Number(TEXT("value"), -std::numeric_limits<float>::max(), std::numeric_limits<float>::max()));
		break;
	case ETraceAction::SaveIsOpened:
		OutStep.bFlag = InOutLine.Bool(TEXT("value"));
		break;
	default:
		break;
	}
}

void ReadCheck(FLineReader& InOutLine, FTraceStep& OutStep)
{
	OutStep.Text = InOutLine.Text(TEXT("box"));
	OutStep.bFlag = InOutLine.Bool(TEXT("checked"));
	for (const TCHAR* Box : {TEXT("OpenDanmakuButton"), TEXT("Scroll"), TEXT("Top"), TEXT("Bottom"), TEXT("Small"),
							 TEXT("Normal"), TEXT("C_FE0302"), TEXT("C_00CD00"), TEXT("C_4266BE"), TEXT("C_FFFFFF")})
	{
		if (OutStep.Text.Equals(Box))
		{
			return;
		}
	}
	InOutLine.Fail(TEXT("box"), "is not the name of a check box");
}

void ReadResize(FLineReader& InOutLine, FTraceStep& OutStep)
{
	const double Width = InOutLine.Number(TEXT("width"), 0.0, std::numeric_limits<float>::max());
	const double Height = InOutLine.Number(TEXT("height"), 0.0, std::numeric_limits<float>::max());
	if (!IsCanvasSize(Width, Height))
	{
		InOutLine.Fail(TEXT("height"), "is out of range");
	}
	OutStep.Size = FVector2f(static_cast<float>(Width), static_cast<float>(Height));
}

const std::map<std::u16string_view, FActionEntry>& GetActions()
{
	using enum ETraceAction;
	static const std::map<std::u16string_view, FActionEntry> Actions{
		{u"pause", {Pause, {}}},
		{u"resume", {Resume, {}}},
		{u"player-pause", {PlayerPause, {}}},
		{u"player-resume", {PlayerResume, {}}},
		{u"seek",
		 {Seek,
		  [](FLineReader& L, FTraceStep& S)
		  {
			  S.Number = L.WholeNumber(TEXT("to"), 0.0, MaxTicks);
		  }}},
		{u"url",
		 {Url,
		  [](FLineReader& L, FTraceStep& S)
		  {
			  S.Text = L.Text(TEXT("url"));
		  }}},
		{u"resize", {Resize, ReadResize}},
		{u"load",
		 {Load,
		  [](FLineReader& L, FTraceStep& S)
		  {
			  S.Text = L.Document(TEXT("file"));
		  }}},
		{u"empty", {Empty, {}}},
		{u"type",
		 {Type,
		  [](FLineReader& L, FTraceStep& S)
		  {
			  S.Text = L.Text(TEXT("text"));
		  }}},
		{u"commit",
		 {Commit,
		  [](FLineReader& L, FTraceStep& S)
		  {
			  S.Commit = L.Choice<ETextCommit::Type>(TEXT("how"), {{u"enter", ETextCommit::OnEnter},
																   {u"focus", ETextCommit::OnUserMovedFocus},
																   {u"cleared", ETextCommit::OnCleared},
																   {u"default", ETextCommit::Default}});
		  }}},
		{u"click",
		 {Click,
		  [](FLineReader& L, FTraceStep&)
		  {
			  L.Choice<bool>(TEXT("button"), {{u"SendDanmakuButton", true}});
		  }}},
		{u"check", {Check, ReadCheck}},
		{u"color",
		 {Color,
		  [](FLineReader& L, FTraceStep& S)
		  {
			  S.Text = L.Text(TEXT("text"));
		  }}},
		{u"hover", {Hover, {}}},
		{u"unhover", {Unhover, {}}},
		{u"enter-panel", {EnterPanel, {}}},
		{u"leave-panel", {LeavePanel, {}}},
		{u"save", {SaveFontSize, ReadSave}},
		{u"report", {Report, {}}},
	};
	return Actions;
}

/** Reads one line that holds an object; false where something is wrong. */
bool ReadLine(FLineReader& InOutLine, FTraceScript& InOutScript)
{
	FTraceStep Step;
	Step.Frame = InOutLine.WholeNumber(TEXT("frame"), 0.0, MaxTicks);
	if (!InOutScript.Steps.empty() && Step.Frame < InOutScript.Steps.back().Frame)
	{
		InOutLine.Fail(TEXT("frame"), "is smaller than on the line before");
	}
	const FString Action = InOutLine.Text(TEXT("do"));
	const auto Entry = GetActions().find(std::u16string_view(Action.GetStd()));
	if (Action.Equals(TEXT("set")))
	{
		const FName Setting =
			InOutLine.Choice<FName>(TEXT("what"), {{u"MaxNumOFInputTex", FName(TEXT("MaxNumOFInputTex"))},
												   {u"SmallFontSize", FName(TEXT("SmallFontSize"))},
												   {u"NormalFontSize", FName(TEXT("NormalFontSize"))}});
		const int64 Value = InOutLine.WholeNumber(TEXT("value"), MinInt32, MaxInt32);
		if (Step.Frame != 0)
		{
			InOutLine.Fail(TEXT("set"), "must be at frame 0, before the widgets are built");
		}
		InOutScript.Settings.push_back({Setting, static_cast<int32>(Value)});
		return InOutLine.GetError().empty();
	}
	if (Entry == GetActions().end())
	{
		InOutLine.Fail(TEXT("do"), "is not a known action");
		return false;
	}
	Step.Action = Entry->second.Action;
	if (Entry->second.Read)
	{
		Entry->second.Read(InOutLine, Step);
	}
	InOutScript.Steps.push_back(std::move(Step));
	return InOutLine.GetError().empty();
}

bool IsBlank(std::string_view InLine)
{
	return InLine.find_first_not_of(" \t\r") == std::string_view::npos;
}

} // namespace

std::optional<FTraceScript> FTraceScript::Parse(std::string_view InBytes, const std::filesystem::path& InName,
												std::string& OutError)
{
	FTraceScript Script;
	int64 LineNumber = 0;
	while (!InBytes.empty())
	{
		const std::string_view Bytes = InBytes.substr(0, InBytes.find('\n'));
		InBytes.remove_prefix(std::min(InBytes.size(), Bytes.size() + 1));
		++LineNumber;
		if (IsBlank(Bytes))
		{
			continue;
		}
		const std::string Place = InName.string() + ":" + std::to_string(LineNumber) + ": ";
		const FString Text = FromUtf8(Bytes);
		TSharedPtr<FJsonValue> Value;
		if (!FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(Text), Value) ||
			Value->Type != EJson::Object)
		{
			OutError = Place + "not a JSON object";
			return std::nullopt;
		}
		const TSharedPtr<FJsonObject> Object = Value->AsObject();
		FLineReader Line(*Object, InName);
		if (!ReadLine(Line, Script))
		{
			OutError = Place + Line.GetError();
			return std::nullopt;
		}
	}
	return Script;
}

bool IsCanvasSize(double InWidth, double InHeight)
{
	return InWidth >= 0.0 && InWidth <= static_cast<double>(std::numeric_limits<float>::max()) && InHeight >= 0.0 &&
		   InHeight <= MaxCanvasHeight;
}

} // namespace Flitmark
